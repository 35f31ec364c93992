#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "post/listing/ArcMove.h"
#include "post/listing/BlockPlaces.h"
#include "post/listing/CallCounts.h"
#include "post/listing/CoordinateSystems.h"
#include "post/listing/LengthUnit.h"
#include "post/listing/ModalCalls.h"
#include "post/listing/RotaryChain.h"
#include "post/listing/ToolTable.h"
#include "post/listing/Vocabulary.h"
#include "post/toolpath/ToolPath.h"

namespace host {

class LineReader;

/// How far a chord may be from the arc that it is written for, in millimetres, unless it is stated.
inline constexpr double kChordDeviation = 0.01;

struct ListingOptions {
  /// Unit of the positions in the output; also that of positions before any unit is named. Without
  /// it the output has the unit of the first move.
  std::optional<LengthUnit> unit;
  /// What the rotary words turn. With it every move has its tool axis, and the points are taken as
  /// those of the tool's tip in the part's frame; without it a rotary word other than 0 is refused.
  std::optional<RotaryChain> rotary;
  /// What the document of the output can express.
  Vocabulary vocabulary{};
  double chordDeviation = kChordDeviation;
  /// True to write arcs that rise as chords too.
  bool helicesAsChords = false;
  /// True to convert all moves to the coordinate system of the first one.
  bool convertsOrigins = false;
  ListedTexts texts = ListedTexts::Program;
  /// The tools of the machine; null when they are unknown.
  std::shared_ptr<const ToolTable> tools{};
  /// The NC program that the listing was created from: events and messages have the places of its
  /// blocks. Null for those of the listing.
  std::shared_ptr<const BlockPlaces> blocks{};
};

/// Reads a canonical listing, one call a line, in constant memory. The table's own NC_START_MACRO
/// comes first. Every activity has the parameter MFG_UNIT; if the document asks for it, nothing is
/// delivered before the unit is known, which is that of the first move, or before 10,000 events.
/// Moves, feed rates, the spindle, tool changes, dwells, texts and what else the document has words
/// for become elements; every call is counted. Anything that would leave a position in doubt raises
/// an InputError with file, line and column.
class ListingReader final : public ToolPathReader {
 public:
  /// The longest line, without its end.
  static constexpr std::size_t kLongestLine = 65536;
  /// How many different unknown calls are counted before a listing is refused.
  static constexpr std::size_t kMostUnknownNames = 100;

  ListingReader(std::unique_ptr<LineReader> lines, ListingOptions options);
  ~ListingReader() override;

  [[nodiscard]] bool next(ToolPathEvent& event) override;
  [[nodiscard]] bool isInOrder() const override { return options_.blocks == nullptr; }

  /// The calls read so far.
  [[nodiscard]] const CallCounts& calls() const noexcept { return calls_; }
  /// Whether moves have tool axes.
  [[nodiscard]] bool hasToolAxes() const noexcept { return options_.rotary.has_value(); }
  /// The unit of the positions in the output; nothing before the first move.
  [[nodiscard]] std::optional<LengthUnit> unit() const noexcept { return outputUnit_; }
  [[nodiscard]] const Vocabulary& vocabulary() const noexcept { return options_.vocabulary; }
  [[nodiscard]] const CoordinateSystems& systems() const noexcept { return systems_; }
  /// True when a line that follows the NC program ended it: the program has no M2 or M30.
  [[nodiscard]] bool endWasAdded() const noexcept { return endWasAdded_; }

 private:
  /// Whether the text states its unit, and whether that or a tool's length needs it.
  [[nodiscard]] bool textStatesUnit() const;
  [[nodiscard]] bool needsUnit() const;
  [[nodiscard]] bool waitsForUnit() const;
  void begin();
  bool readCall();
  [[nodiscard]] LinePlace placeOfListing() const;
  [[nodiscard]] LinePlace placeOf(const CanonicalCall& call);
  void noteFile(const LinePlace& place, std::size_t firstEvent);
  void checkRunningNumber(const CanonicalCall& call, const LinePlace& place);
  void count(const CanonicalCall& call, CallFate fate, const LinePlace& place);
  CallFate dispatch(const CallRule& rule, const CanonicalCall& call, const LinePlace& place);
  CallFate dispatch(const CallRule& rule, const CanonicalCall& call,
                    const CanonicalArguments& arguments, const LinePlace& place);
  CallFate dispatchModal(const CallRule& rule, const CanonicalCall& call,
                         const CanonicalArguments& arguments, const LinePlace& place);
  void useUnits(const CanonicalArguments& arguments, const LinePlace& place);
  void move(const CallRule& rule, const CanonicalCall& call, const CanonicalArguments& arguments,
            const LinePlace& place);
  CallFate dispatchMove(const CallRule& rule, const CanonicalCall& call,
                        const CanonicalArguments& arguments, const LinePlace& place);
  CallFate moveAlongArc(const CanonicalCall& call, const CanonicalArguments& arguments,
                        const LinePlace& place);
  [[nodiscard]] double doubtOfStart() const;
  CallFate moveAlongChords(const ArcMove& arc, const Triple& words, const LinePlace& place);
  void prepareMove(const CanonicalCall& call, const CanonicalArguments& arguments,
                   std::size_t firstRotaryWord, const LinePlace& place);
  [[nodiscard]] ArcMove arcOf(const CanonicalArguments& arguments, const Triple& start) const;
  void changeUnit(const CanonicalCall& call, const LinePlace& place);
  void requireUnit(const CanonicalCall& call, std::string_view what, const LinePlace& place);
  void checkRotaryWords(const CanonicalArguments& arguments, std::size_t first,
                        const LinePlace& place) const;
  [[nodiscard]] Position positionOf(const CanonicalArguments& arguments) const;
  /// The position of a point, and the tool axis there if the text has one.
  [[nodiscard]] Position positionAt(const Triple& point, const Triple& words) const;
  [[nodiscard]] std::string_view moveInstruction() const {
    return options_.rotary ? "NC_GOTO_VARIABLE_AXIS" : "NC_GOTO";
  }
  void changeSystem(const CallRule& rule, const CanonicalArguments& arguments,
                    const LinePlace& place);
  void changeToolOffset(const CanonicalArguments& arguments);
  [[nodiscard]] bool onlyTurns(const Position& position, const Triple& words) const;
  void put(std::string_view instruction, long line, std::optional<Position> position = {});

  std::unique_ptr<LineReader> lines_;
  ListingOptions options_;
  CallCounts calls_;
  long lastRunningNumber_ = 0;
  std::optional<LengthUnit> inputUnit_;
  std::optional<LengthUnit> outputUnit_;
  CoordinateSystems systems_;
  bool ended_ = false;
  bool endWasAdded_ = false;
  /// The place of the last block that has a number, of an NC program.
  LinePlace block_{};

  /// Where the move before ended, while that is known, and its rotary words.
  std::optional<Triple> lastPoint_;
  /// The same also after a change of the system or the tool offset, whose rounding is in it.
  std::optional<Triple> nearPoint_;
  /// In tenths of a millimetre.
  Triple toolOffset_{};
  Triple lastWords_{};
  /// The unit in which it was listed.
  std::optional<LengthUnit> lastUnit_;
  bool multaxDue_ = false;
  std::optional<ArcPlane> plane_ = ArcPlane{};

  /// The events of the last call, and how many of them were delivered.
  std::vector<ToolPathEvent> events_;
  std::size_t delivered_ = 0;
  /// True once an event was delivered.
  bool hasBegun_ = false;
  ModalCalls modalCalls_;
};

/// The texts that were written as statements, which readers do not take for comments.
[[nodiscard]] std::vector<CallCount> bareTexts(const ListingReader& listing);

/// A summary of a listing for people, in lines without line feeds: the unit of positions, what is
/// assumed about rotary axes, the calls by fate, and warnings about what is missing from the
/// output.
[[nodiscard]] std::vector<std::string> summaryLines(const ListingReader& listing);

}  // namespace host
