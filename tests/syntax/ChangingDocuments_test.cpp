// Two documents that change in the same way, between calls and while a parameter is evaluated. The
// container of one counts its changes, so what was found in it is used again; the container of the
// other does not, so everything is looked up at each use. Lines, reports, errors and reference
// counts are the same.

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferTLAxis.h"
#include "KEPIMfgParameterEvaluation.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "Manufacturing/KEPIMfgGeneratorData.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "ObjectSpecsModeler/KEPILifeCycleObject.h"
#include "ObjectSpecsModeler/KEPIRevision.h"
#include "System/KEPError.h"
#include "host/manufacturing/Activity.h"
#include "host/manufacturing/GeneratorData.h"
#include "host/modeler/Document.h"
#include "host/system/Dictionary.h"
#include "host/system/ListenerScope.h"
#include "tests/support/PPWordDocument.h"
#include "tests/syntax/OutsideCode.h"

namespace ppword::test::changing {
namespace {

using Kind = KEPISpecAttribute::Kind;

constexpr int kChanges = 30000;

/// A container as an application without the counter has it.
class PlainContainer final : public host::Container {
 public:
  using Container::Container;

 private:
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override {
    const bool isCounter = interfaceClass == KEPInterfaceId<KEPIRevision>();
    return isCounter ? nullptr : Container::Answer(interfaceClass);
  }
};

/// What happened in a document, to be compared with the other one.
class Record final : public KEPMfgPPWordListener {
 public:
  void ReferenceLookedUp(std::string_view name, const KEPBaseUnknown* type,
                         const KEPBaseUnknown* evaluation) override {
    const KEPMetaClass* const meta = evaluation != nullptr ? evaluation->GetMetaObject() : nullptr;
    add("?", name);
    add("type", type != nullptr ? KEPBorrow<KEPISpecObject>(type)->GetName() : "none");
    add("by", evaluation == nullptr ? "none" : meta == nullptr ? "other" : meta->GetName());
    fromOutside();
  }
  void ReferenceReplaced(std::string_view name, Source source, std::string_view text) override {
    add(std::to_string(static_cast<int>(source)), name);
    add("->", text);
  }
  void ValueFound(const KEPMfgParameterValue& value, const KEPUnicodeString* format) override {
    add("value", std::to_string(value.kind));
    add("format", format != nullptr ? format->View() : "none");
  }
  void ValueLacking(Lack why) override { add("lack", std::to_string(static_cast<int>(why))); }
  void TextDropped(std::string_view name, std::string_view text) override {
    add("dropped", std::string(name) + "|" + std::string(text));
  }
  [[nodiscard]] bool ReceivesLines() const override { return false; }

  void add(std::string_view what, std::string_view text) {
    ((text_ += what) += '=') += text;
    text_ += '\n';
  }
  [[nodiscard]] const std::string& text() const noexcept { return text_; }

 private:
  std::string text_;
};

// The names of late types that are registered during a step differ by their last letter.
constexpr std::array kNames = {
    "MFG_XPOINT",      "MFG_YPOINT",     "MFG_XAXIS", "MFG_CIRCLE_RADIUS",
    "MFG_CIRCLE_X_PT", "MFG_FEED_VALUE", kHook,       "PLAIN"};
constexpr std::array kFormats = {"%.2f", "%8.3f", "%11.5f", "%40.1f", "%+e", "%d", "[%.1f]", ""};
constexpr std::array kGenerationFormats = {"", "", "%.1f", "%9,4f", "%g", "%s"};
constexpr std::array kAttributes = {"Format", "MultiListValue", "Syntaxe", "Syntaxe2", "$OSM_Xts"};
constexpr std::array kLines = {"GOTO/%MFG_XPOINT,%MFG_YPOINT",
                               "X/%CHANGE_HOOK,%MFG_XPOINT,%MFG_XAXIS",
                               "R/%MFG_XPOINT,%MFG_CIRCLE_RADIUS,%MFG_CIRCLE_X_PT,%MFG_XPOINT",
                               "S/%MFG_XPOINT+2,%MFG_FEED_VALUE,%PLAIN$,&MFG_XAXIS,%(P+1)",
                               "%CHANGE_HOOK,%MFG_XPOINT,%CHANGE_HOOK,%MFG_YPOINT",
                               "T/%LATE,%MFG_XPOINT,%CHANGE_HOOK,%LATE",
                               "NO REFERENCE,",
                               ",%MFG_YPOINT"};

/// The numbers of one step: both documents draw the same.
class Numbers {
 public:
  explicit Numbers(unsigned seed) : random_(seed) {}
  [[nodiscard]] std::size_t below(std::size_t limit) { return random_() % limit; }
  template <class List>
  [[nodiscard]] auto of(const List& list) {
    return list[below(list.size())];
  }

 private:
  std::minstd_rand random_;
};

/// One of the two documents.
class World {
 public:
  explicit World(bool isCounted) : isCounted_(isCounted) { open(); }
  ~World() = default;
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  /// Evaluates lines, changes, and evaluates again.
  [[nodiscard]] std::string step(Numbers numbers);
  [[nodiscard]] int changes() const noexcept { return changes_; }

 private:
  void change(Numbers& numbers);
  void changeOne(Numbers& numbers);
  [[nodiscard]] std::string evaluated(Numbers& numbers);
  /// How many references its components have.
  [[nodiscard]] int references() const {
    int count = words_->GetReferenceCount() + document_->GetReferenceCount();
    for (const auto& feature : features_) count += feature ? feature->GetReferenceCount() : 0;
    return count;
  }

  void open() {
    document_ = host::Document::create();
    words_ = KEPVar<host::Container>::Adopt(isCounted_ ? new host::Container(*document_, kLateType)
                                                       : new PlainContainer(*document_, kLateType));
    activity_ = host::Activity::create("Pocket.1");
    activity_->parameters().set("PLAIN", host::realValue(1.5));
    document_->ppWordContainer()->SetObjects(activity_);
    document_->setDesignParameter("P", 3.0);
    const KEPIMfgBufferPoint_var point(words_);
    point->SetPoint(1.25, -2.5, 3.0);
    roots_.clear();
    for (const char* const name : {"MfgPPWordRoot", "MfgPPSyntax", "MfgPPParameter"}) {
      roots_.push_back(make(name, roots_.empty() ? KEPISpecObject_var() : roots_.front()));
    }
    for (const char* const name : kNames) define(name);
    for (std::size_t i = 0; i < kInstructions; ++i) features_.push_back(instruction(i));
  }
  KEPISpecObject_var make(std::string_view name, const KEPISpecObject_var& base) const {
    return KEPISpecObject_var::Adopt(words_->CreateStartUp(name, base));
  }
  void define(std::string_view name) {
    const auto type = make(name, roots_[2]);
    if (!type) return;
    const KEPISpecAttrAccess_var attributes(type);
    attributes->AddAttribute("Format", Kind::String);
    attributes->SetString("Format", "%.3f");
    features_.push_back(type);
  }
  KEPISpecObject_var instruction(std::size_t number) {
    auto type = make("NC_" + std::to_string(number), roots_[1]);
    const KEPISpecAttrAccess_var attributes(type);
    attributes->AddAttribute("Syntaxe", Kind::StringList);
    attributes->SetList("Syntaxe", list({kLines[number], kLines[number + 2]}));
    return type;
  }

  void registerLate();
  void changeGeneration(Numbers& numbers);
  void changeAttribute(const KEPISpecAttrAccess_var& attributes, Numbers& numbers);
  void createFeature(Numbers& numbers);
  /// A feature of this document, or a base type of another one; the handle may be null.
  [[nodiscard]] KEPISpecObject_var any(Numbers& numbers) {
    return features_[numbers.below(features_.size())];
  }
  void instantiate(const KEPISpecObject_var& feature, int index);
  void evaluate(const KEPISpecObject_var& feature);

  static constexpr std::size_t kInstructions = 5;
  static constexpr std::size_t kMostFeatures = 30;

  bool isCounted_;
  KEPVar<host::Document> document_;
  KEPVar<host::Container> words_;
  KEPVar<host::Activity> activity_;
  std::vector<KEPISpecObject_var> roots_;
  std::vector<KEPISpecObject_var> features_;
  KEPVar<host::Document> other_ = host::Document::create();
  KEPIMfgGeneratorData_var generation_;
  Record* record_ = nullptr;
  int lateTypes_ = 0;
  int changes_ = 0;
};

void World::registerLate() {
  // Each document has late types of its own: a type cannot be registered twice.
  const std::string lateType =
      "LATE" + std::to_string(++lateTypes_) + (isCounted_ ? "counted" : "plain");
  const auto type = make(lateType, roots_[2]);
  if (!type) return;
  const KEPISpecObject_var named = make("LATE", type);
  const KEPIMfgParameterEvaluation_var before(type);
  if (record_ != nullptr) record_->add("before", before ? "some" : "none");
  enter(extensionOf(lateType), KEPInterfaceId<KEPIMfgParameterEvaluation>(),
        lateTypes_ % 2 == 0
            ? host::findCreator("MFG_XPOINT", KEPInterfaceId<KEPIMfgParameterEvaluation>())
            : &createHook);
  features_.push_back(named ? named : type);
}

void World::changeGeneration(Numbers& numbers) {
  const auto settings = [&numbers](auto&& set) {
    const char* const points = numbers.of(kGenerationFormats);
    set(points, numbers.of(kGenerationFormats));
  };
  switch (numbers.below(4)) {
    case 0:
      return host::setCurrentGeneratorData(nullptr);
    case 1:
      return settings([](const char* points, const char* axes) {
        host::setCurrentGeneratorData(host::GeneratorData::create(points, axes));
      });
    case 2: {
      const auto generation = KEPVar<HookGeneration>::Adopt(new HookGeneration);
      settings([&](const char* points, const char* axes) {
        generation->settings->points = points;
        generation->settings->axes = axes;
      });
      return host::setCurrentGeneratorData(KEPIMfgGeneratorData_var(generation.Get()));
    }
    default: {
      // What a generation answers changes without a word to anybody.
      const auto current = KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData();
      auto* const own = dynamic_cast<HookGeneration*>(current.Get());
      settings([own](const char* points, const char*) {
        if (own != nullptr) own->settings->points = points;
      });
    }
  }
}

void World::changeAttribute(const KEPISpecAttrAccess_var& attributes, Numbers& numbers) {
  const char* const name = numbers.of(kAttributes);
  const char* const line = numbers.of(kLines);
  switch (numbers.below(9)) {
    case 0:
      attributes->AddAttribute(name, static_cast<Kind>(numbers.below(3)));
      return;
    case 1:
    case 2:
    case 3:
      attributes->SetString("Format", numbers.of(kFormats));
      return;
    case 4:
      attributes->SetList("Syntaxe", list({line, numbers.of(kLines), numbers.of(kLines)}));
      return;
    case 5:
      attributes->AppendToList(name, line);
      return;
    case 6:
      attributes->RemoveAll(name);
      return;
    case 7:
      attributes->SetInteger(name, 1);
      return;
    default:
      attributes->Unset(name);
  }
}

void World::createFeature(Numbers& numbers) {
  const KEPISpecObject_var base = any(numbers);
  const char* const name = numbers.of(kNames);
  KEPISpecObject_var made;
  switch (numbers.below(5)) {
    case 0:
      made = make(name, base ? base : roots_[2]);
      break;
    case 1:
      if (base) made = KEPISpecObject_var::Adopt(words_->CreateInstance(base, name));
      break;
    case 2:
      // A base type of another document, for types of this one.
      made = KEPISpecObject_var::Adopt(other_->features()->CreateStartUp(name, base));
      break;
    case 3:
      made = make("NC_" + std::to_string(numbers.below(kInstructions)), base ? base : roots_[1]);
      break;
    default:
      return define(name);
  }
  if (made) features_.push_back(made);
}

void World::change(Numbers& numbers) {
  ++changes_;
  changeOne(numbers);
  if (features_.size() <= kMostFeatures) return;
  // It ends when nothing else holds it, after the list is in order.
  const auto gone = std::move(features_.front());
  features_.erase(features_.begin());
}

void World::changeOne(Numbers& numbers) {
  const KEPISpecObject_var feature = any(numbers);
  const std::size_t kind = numbers.below(64);
  if (kind < 26) {
    if (feature) changeAttribute(KEPISpecAttrAccess_var(feature), numbers);
  } else if (kind < 36) {
    createFeature(numbers);
  } else if (kind < 41) {
    if (feature) KEPILifeCycleObject_var(feature)->remove();
  } else if (kind < 46) {
    // The last handle of a feature that was removed before.
    features_[numbers.below(features_.size())] = nullptr;
  } else if (kind < 53) {
    changeGeneration(numbers);
  } else if (kind < 55) {
    // The old one ends.
    other_ = host::Document::create();
  } else if (kind < 56) {
    document_->setDesignParameter("P", static_cast<double>(numbers.below(9)));
  } else if (kind < 57) {
    activity_->parameters().set("PLAIN", host::integerValue(static_cast<int>(numbers.below(9))));
  } else if (kind < 59) {
    const auto source = KEPVar<host::Feature>(static_cast<host::Feature*>(any(numbers).Get()));
    if (source && feature) {
      static_cast<host::Feature*>(feature.Get())->setAttributes(source->attributes());
    }
  } else if (kind < 60) {
    if (numbers.below(4) == 0) registerLate();
  } else if (kind < 61) {
    // The document ends; features of it are still held.
    if (numbers.below(4) == 0) open();
  } else {
    const KEPIMfgPPWordContainer_var words(words_);
    words->SetUserSyntax(numbers.of(kLines));
  }
}

void World::evaluate(const KEPISpecObject_var& feature) {
  const KEPIMfgParameterEvaluation_var evaluation = feature;
  if (!evaluation) return;
  KEPString text = "untouched";
  try {
    record_->add("evaluated", evaluation->Evaluate(text) ? "yes" : "no");
  } catch (const KEPError&) {
    record_->add("error", "raised");
  }
  record_->add("text", text.View());
}

void World::instantiate(const KEPISpecObject_var& feature, int index) {
  const KEPIMfgSyntaxEvaluation_var evaluation = feature;
  if (!evaluation) return record_->add("no", "evaluation");
  KEPListValKEPUnicodeString lines;
  try {
    record_->add("done", evaluation->InstantiateSyntax(lines, index) ? "yes" : "no");
  } catch (const KEPError&) {
    record_->add("error", "raised");
  }
  for (const KEPUnicodeString& line : lines) record_->add("line", line.View());
}

std::string World::evaluated(Numbers& numbers) {
  Record notes;
  record_ = &notes;
  const bool isListened = numbers.below(3) == 0;
  const auto scope = isListened ? std::make_unique<host::ListenerScope>(notes) : nullptr;
  // In which call from outside the document changes; later than the last one is never.
  std::size_t calls = numbers.below(6);
  fromOutside = [&] {
    notes.add("references", std::to_string(references()));
    if (calls-- == 0) change(numbers);
  };
  KEPIMfgSyntaxEvaluation_var evaluation;
  const KEPIMfgPPWordContainer_var words(words_);
  words->GetSyntaxEvaluation(evaluation, "NC_" + std::to_string(numbers.below(kInstructions)));
  instantiate(KEPISpecObject_var(evaluation), static_cast<int>(numbers.below(16) == 0 ? 2 : 1));
  const KEPISpecObject_var another = any(numbers);
  instantiate(another, 1);
  evaluate(another);
  fromOutside = [] {};
  notes.add("references", std::to_string(references()));
  record_ = nullptr;
  return notes.text();
}

std::string World::step(Numbers numbers) {
  const auto current = KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData();
  if (current.Get() != generation_.Get()) host::setCurrentGeneratorData(generation_);
  std::string text = evaluated(numbers);
  change(numbers);
  text += "changed\n" + evaluated(numbers);
  generation_ = KEPMfgGeneratorData::GetCurrentKEPIMfgGeneratorData();
  return text;
}

class ChangingDocuments : public testing::TestWithParam<unsigned> {
 protected:
  ChangingDocuments() { registerOutsideCode(); }
  ~ChangingDocuments() override {
    host::setCurrentGeneratorData(nullptr);
    KEPError::KEPCleanLastError();
  }
};

TEST_P(ChangingDocuments, AreReadAsTheyAreNow) {
  World counted(true);
  World plain(false);
  for (unsigned step = 0; counted.changes() < kChanges; ++step) {
    const Numbers numbers(GetParam() * 1000003U + step);
    const std::string expected = plain.step(numbers);
    ASSERT_EQ(counted.step(numbers), expected) << "step " << step;
    ASSERT_EQ(counted.changes(), plain.changes());
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ChangingDocuments, testing::Values(1U, 2U, 3U, 4U));

}  // namespace
}  // namespace ppword::test::changing
