#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "inspect/explain/PassRecorder.h"
#include "inspect/explain/TableOrigins.h"
#include "post/generator/Generator.h"
#include "post/output/LineSink.h"
#include "tools/ppword/Json.h"
#include "tools/ppword/ToolPathInput.h"
#include "tools/ppword/view/Columns.h"
#include "tools/ppword/view/FindingPlaces.h"
#include "tools/ppword/view/Motions.h"
#include "tools/ppword/view/PassForms.h"

/// Notes, while a tool path is written, what its page shows: the text, where each line comes from
/// and how it arose, the motions, the tools, the feed rates and the findings. The generator writes
/// to it, and reads the tool path through it.
class ViewRecorder final : public host::ToolPathReader,
                           public host::ElementObserver,
                           public host::LineSink {
 public:
  /// How many elements, one for each point, and how many lines of text a page has at most, and how
  /// many bytes its text.
  static constexpr long kMostElements = 500000;
  static constexpr std::size_t kMostBytes = 32U << 20U;

  /// The references must outlive the object.
  ViewRecorder(const ToolPathInput& input, host::ToolPathReader& events,
               host::TableOrigins& origins);

  /// From now on the findings of `summary` are noted, and what the passes of `passes` do.
  void follow(const host::Summary& summary, host::PassRecorder& passes);

  // An InputError, with the place in the tool path, when it is more than a page has.
  [[nodiscard]] bool next(host::ToolPathEvent& event) override;
  [[nodiscard]] bool isInOrder() const override { return events_.isInOrder(); }
  void elementBegins(const host::WrittenElement& written) override;
  void write(std::string_view line) override;

  /// To be called after the last element.
  void finish();
  /// Everything for the page.
  [[nodiscard]] Json json(const PostReport& report);

 private:
  /// What elements have in common: the instruction, its sequence, the kind of motion and how many
  /// lines of text.
  using Shape = std::tuple<long, MotionKind, long>;

  void endElement();
  void addMotion(const Motion& motion);
  void addPlace(const host::WrittenElement& written);
  void addFeed(const host::FeedrateChange& change);
  void addTool(const host::ActivityStart& activity);
  /// Adds a line of the element that ends: which one, and how it arose.
  void addLine(long index, host::ExplainedLine& explained);
  [[nodiscard]] long sourceOf(long index, const host::ExplainedLine& explained);
  void addToolAxis();
  void requireSmall(const host::Element& element) const;
  [[nodiscard]] Json sourcesJson() const;
  [[nodiscard]] Json shapesJson() const;
  [[nodiscard]] Json instructionsJson() const;

  /// Distinct texts or things, each with a number.
  template <class Key>
  struct Numbers {
    std::map<Key, long> known;
    std::vector<Key> all;

    long of(const Key& key) {
      const auto [entry, isNew] = known.try_emplace(key, static_cast<long>(all.size()));
      if (isNew) all.push_back(key);
      return entry->second;
    }
  };

  const ToolPathInput& input_;
  host::ToolPathReader& events_;
  host::TableOrigins& origins_;
  host::PassRecorder* passes_ = nullptr;
  std::optional<FindingPlaces> findings_;
  Motions motions_;

  // The element that is being written, and its lines.
  long elements_ = 0;
  long instruction_ = 0;
  MotionKind kind_ = MotionKind::None;
  std::vector<std::string> written_;
  bool isOpen_ = false;

  long lines_ = 0;
  std::string text_;
  Numbers<std::pair<std::string, int>> instructions_;
  Numbers<std::pair<long, long>> sources_;
  std::vector<std::string> sourceLines_;
  std::size_t sourceBytes_ = 0;
  PassForms forms_;
  Numbers<Shape> shapes_;
  Column ofShape_;
  Column inputLines_;
  std::array<Column, 3> points_;
  std::array<Column, 3> centers_;
  std::array<Column, 3> turns_;
  Column axisElements_;
  std::array<Column, 3> axes_;
  std::optional<host::Triple> lastAxis_;
  Numbers<std::string> files_;
  Changes fileChanges_;
  Changes pointChanges_;
  Numbers<std::string> tools_;
  Changes toolChanges_;
  Numbers<std::string> feeds_;
  Changes feedChanges_;
  host::FeedrateChange feedrate_;
  std::string tool_;
  long feed_ = 0;
};
