#include "post/generator/Generator.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPError.h"
#include "host/manufacturing/Activity.h"
#include "host/modeler/Document.h"
#include "host/system/ListenerScope.h"
#include "language/syntax/Characters.h"
#include "post/consumer/ConsumerLines.h"
#include "post/output/LineSink.h"
#include "post/parameters/Parameters.h"
#include "post/text/SpellingSuggestion.h"
#include "post/toolpath/LineReader.h"

namespace host {
namespace {

constexpr ppword::CharacterTable kDigits("0123456789");
constexpr ppword::CharacterTable kDigitsButZero("123456789");

/// What messages call an element.
std::string titleOf(const Element& element) {
  return element.ppCommand > 0 ? "PP command " + std::to_string(element.ppCommand)
                               : element.instruction;
}

/// What to add to a message about an unknown NC instruction: the one that was perhaps meant.
std::string suggestionFor(std::string_view instruction, const KEPIContainer& features) {
  const std::string_view name = instruction.substr(0, instruction.find('#'));
  std::vector<std::string_view> known;
  const auto types = features.ListMembersHere(KEPInterfaceId<KEPISpecObject>());
  for (const KEPISpecObject_var type : types) {
    const KEPISpecObject_var base = type->GetBaseType();
    if (base && base->GetName() == "MfgPPSyntax") known.push_back(type->GetName());
  }
  const std::string_view meant = nearest(name, known);
  return meant.empty() ? "" : "; did you mean \"" + std::string(meant) + "\"?";
}

/// True if an element names its instruction alone, or with a motion's number and nothing else after
/// the marker: the container takes any other text there as no motion.
bool isExact(const Element& element, std::string_view name, int motion) {
  const std::string& asked = element.instruction;
  return asked == name ||
         (motion > 0 && asked == std::string(name) + "#SEQMOTION#" + std::to_string(motion));
}

}  // namespace

/// Counts what the module reports of the element that is being written.
class Generator::Listener final : public KEPMfgPPWordListener {
 public:
  Listener(Summary& summary, const GivenValues& given, StatedNames& names)
      : summary_(summary), given_(given), names_(names) {}
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  void listenFor(const Element& element) noexcept { element_ = &element; }
  /// The motions of a sequential activity have speeds of their own.
  void listenFor(const ActivityStart& activity) noexcept {
    hasOwnSpeeds_ = activity.motions.has_value();
  }

  [[nodiscard]] bool ReceivesLines() const override { return false; }

  void ReferenceLookedUp(std::string_view name, const KEPBaseUnknown* type,
                         const KEPBaseUnknown* /*evaluation*/) override {
    type_ = type;
    textSize_ = 0;
    lacksDimension_ = false;
    names_.use(name);
  }

  void ValueFound(const KEPMfgParameterValue& value, const KEPUnicodeString* /*format*/) override {
    if (value.kind == KEPMfgParameterValue::kText) textSize_ = value.text.View().size();
  }

  void ValueLacking(Lack why) override { lacksDimension_ = why == Lack::Dimension; }

  void ReferenceReplaced(std::string_view name, Source source, std::string_view text) override {
    if (source == Source::NotEvaluated) return count(summary_.unevaluated, name);
    if (textSize_ > text.size()) count(summary_.cutTexts, name);
    if (source == Source::Evaluation) evaluationReplaced(name, text);
  }

  void TextDropped(std::string_view name, std::string_view text) override {
    count(summary_.dropped, std::string(name).append(text));
  }

  void OperationEnded(Operation outcome, std::string_view operation,
                      std::string_view /*result*/) override {
    if (outcome == Operation::Deleted) {
      count(summary_.deleted, operation);
    }
  }

 private:
  void count(Tally& tally, std::string_view name) {
    tally.add(name, element_->place(), titleOf(*element_));
  }

  void evaluationReplaced(std::string_view name, std::string_view text) {
    const BufferValues values = recentValuesOf(name);
    const bool isOwn = hasOwnSpeeds_ && name == "MFG_SPNDL_SPEED";
    const bool isGiven = isOwn || given_.holdAll(values);
    if (!isGiven) count(summary_.neverGiven, name);
    if (lacksDimension_) count(summary_.missingDimensions, name);
    if (lacksNumber(text)) return count(summary_.withoutNumber, name);
    const bool cannotBeZero = isGiven && !isOwn && given_.cannotBeZero(values);
    if (cannotBeZero && kDigitsButZero.firstIn(text) == text.size()) {
      count(summary_.roundedToZero, name);
    }
  }

  [[nodiscard]] BufferValues recentValuesOf(std::string_view parameter) {
    Reading& recent = recent_[std::hash<const KEPBaseUnknown*>{}(type_) / kTypeSize % kRecent];
    if (recent.type != type_) recent = {type_, valuesOf(parameter)};
    return recent.values;
  }

  /// The values of buffers that a parameter of the type that was looked up last prints.
  [[nodiscard]] BufferValues valuesOf(std::string_view parameter) {
    const auto [known, isNew] = readings_.try_emplace(type_);
    if (const auto* const found = isNew ? findParameter(parameter) : nullptr) {
      known->second = found->row->values;
    }
    return known->second;
  }

  /// True for the text of a parameter type that prints numbers when no digit is in it.
  [[nodiscard]] bool lacksNumber(std::string_view text) const {
    // Most texts end with a digit.
    if (!text.empty() && kDigits.holds(text.back())) return false;
    if (kDigits.firstIn(text) < text.size()) return false;
    const auto* const attributes = KEPBorrow<KEPISpecAttrAccess>(type_);
    return attributes != nullptr && attributes->FindText("Format") != nullptr;
  }

  Summary& summary_;
  const GivenValues& given_;
  StatedNames& names_;
  struct Reading {
    const KEPBaseUnknown* type = nullptr;
    BufferValues values{};
  };
  static constexpr std::size_t kRecent = 64;
  /// About what a type takes, so that types which were created one after the other differ.
  static constexpr std::size_t kTypeSize = 256;

  /// What the parameters print, by their types, and those that were asked for last.
  std::unordered_map<const KEPBaseUnknown*, BufferValues> readings_;
  std::array<Reading, kRecent> recent_;
  bool hasOwnSpeeds_ = false;
  const Element* element_ = nullptr;
  /// Of the reference that was looked up last.
  const KEPBaseUnknown* type_ = nullptr;
  /// Of the text that was found for it; 0 for a number.
  std::size_t textSize_ = 0;
  bool lacksDimension_ = false;
  ListenerScope scope_{*this};
};

Generator::Generator(KEPVar<Document> document, std::string_view file, LineSink& sink,
                     ElementObserver* observer)
    : document_(std::move(document)),
      words_(document_->ppWordContainer()),
      buffers_(words_),
      sink_(sink),
      observer_(observer),
      listener_(std::make_unique<Listener>(summary_, given_, names_)) {
  summary_.file = file;
  words_->SetObjects({});
}

Generator::~Generator() { words_->SetObjects({}); }

void Generator::run(ToolPathReader& toolPath) {
  ToolPathEvent event;
  while (toolPath.next(event)) put(event);
  finish();
}

void Generator::put(const ToolPathEvent& event) {
  std::visit([this](const auto& piece) { put(piece); }, event);
}

void Generator::finish() { names_.report(summary_.misspelt); }

void Generator::put(const ActivityStart& start) {
  listener_->listenFor(start);
  names_.read(start);
  KEPVar<Activity> activity = Activity::create(static_cast<const ActivityValues&>(start));
  if (start.isVirtual) activity = Activity::createVirtual(start.name, activity);
  words_->SetObjects(activity);
}

void Generator::put(const Element& element) {
  listener_->listenFor(element);
  buffers_.apply(element.changes);
  const std::string ofCommand = element.ppCommand > 0 ? titleOf(element) : std::string();
  const std::string_view title = element.ppCommand > 0 ? ofCommand : element.instruction;
  given_.read(element, title);
  const Instruction instruction = instructionOf(element);
  long point = 0;
  for (const Position& position : element.positions) {
    buffers_.apply(position);
    given_.read(position, element, title);
    instantiate(instruction, element, ++point);
  }
  if (element.positions.empty()) instantiate(instruction, element, 1);
  const auto count = static_cast<long>(std::max<std::size_t>(element.positions.size(), 1));
  summary_.elements += count;
  summary_.instructions.add(instruction.name, element.place(), title, count);
}

Generator::Instruction Generator::instructionOf(const Element& element) {
  Instruction instruction;
  if (element.ppCommand > 0) {
    instruction.command = commandOf(element);
    KEPUnicodeString name;
    static_cast<void>(instruction.command->GetCommandName(name));
    instruction.name = name.View();
  } else {
    instruction.evaluation = evaluationOf(element);
    instruction.name = KEPISpecObject_var(instruction.evaluation)->GetName();
    if (!isExact(element, instruction.name, instruction.evaluation->GetSeqMotionNumber())) {
      refuse(element, "names no sequential motion: a number from 1 is expected after #SEQMOTION#");
    }
  }
  return instruction;
}

KEPIMfgPPCommand_var Generator::commandOf(const Element& element) {
  if (!commands_) commands_ = ppCommands(*document_);
  const auto position = static_cast<std::size_t>(element.ppCommand);
  if (position > commands_->size()) {
    refuse(element, "is not in this document, which has " + std::to_string(commands_->size()));
  }
  return (*commands_)[position - 1];
}

KEPIMfgSyntaxEvaluation_var Generator::evaluationOf(const Element& element) {
  KEPIMfgSyntaxEvaluation_var evaluation;
  try {
    words_->GetSyntaxEvaluation(evaluation, KEPUnicodeString(element.instruction));
  } catch (const KEPErrorNullHandle&) {
    // The container raises this for a sequential motion of an instruction that it does not have.
  }
  if (!evaluation) {
    throw InputError(fileOf(element), element.line, 0,
                     "this document has no NC instruction " + element.instruction +
                         suggestionFor(element.instruction, *document_->features()));
  }
  return evaluation;
}

void Generator::announce(const Instruction& instruction, const Element& element, long point) const {
  if (!instruction.command) {
    observer_->elementBegins(
        {element, point, instruction.name, element.sequence, instruction.evaluation});
    return;
  }
  int sequence = 0;
  static_cast<void>(instruction.command->GetSequenceNumber(sequence));
  const auto type = KEPISpecObject_var::Adopt(words_->FindPPWord(KEPString(instruction.name)));
  const KEPIMfgSyntaxEvaluation_var evaluation = type;
  observer_->elementBegins({element, point, instruction.name, sequence, evaluation});
}

void Generator::instantiate(const Instruction& instruction, const Element& element, long point) {
  if (observer_ != nullptr) announce(instruction, element, point);
  lines_.RemoveAll();
  if (instruction.command) {
    if (!instruction.command->Evaluate(lines_)) {
      refuse(element,
             "cannot be written: it names no NC instruction of this document or no sequence of it, "
             "or one of its lines cannot be computed");
    }
  } else if (!instruction.evaluation->InstantiateSyntax(lines_, element.sequence)) {
    const int count = sequenceCount(instruction.evaluation);
    const std::string lacking = "it has no sequence " + std::to_string(element.sequence) +
                                "; it has " + std::to_string(count);
    refuse(element,
           "cannot be written: " +
               (element.sequence > count ? lacking : "one of its lines cannot be computed"));
  }
  try {
    writeLines(instruction, element);
  } catch (const UnfitLine& unfit) {
    refuse(element, "cannot be written: " + std::string(unfit.what()));
  }
}

void Generator::writeLines(const Instruction& instruction, const Element& element) {
  for (const KEPUnicodeString& line : lines_) {
    sink_.write(line);
    // A line has no more columns than bytes.
    if (line.View().size() <= kStatementColumns) continue;
    if (line.GetLengthInChar() <= kStatementColumns) continue;
    summary_.wide.add(instruction.name, element.place(), titleOf(element));
  }
  summary_.lines += lines_.Size();
}

std::string_view Generator::fileOf(const Element& element) const {
  return element.file.empty() ? summary_.file : element.file;
}

void Generator::refuse(const Element& element, std::string_view why) const {
  throw InputError(fileOf(element), element.line, 0, titleOf(element) + ' ' + std::string(why));
}

}  // namespace host
