#include "src/syntax/KEPMfgSyntaxEvaluation.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgEnvVarMgt.h"
#include "Manufacturing/KEPMfgModelUtilities.h"
#include "language/syntax/Characters.h"
#include "language/syntax/Continuation.h"
#include "src/syntax/DocumentParameters.h"
#include "src/syntax/ListenedLine.h"
#include "src/syntax/SyntaxAttribute.h"

using namespace ppword;

namespace {

constexpr std::string_view kDelayInstruction = "NC_DELAY";

/// Read when the first line is processed and cached for the process.
bool cleansParentheses() {
  static const bool isOn = !KEPMfgEnvVarMgt::Get("MFG_PPWORD_CLEAN_PARENTHESIS").IsEmpty();
  return isOn;
}

/// True for a line with which a continuation may begin or end: it is empty, or a blank or a comma
/// is its first or last character.
bool mayContinue(const KEPUnicodeString& line) {
  static constexpr CharacterTable kEnds(std::string_view(", \0", 3));
  return kEnds.holds(*line.ConvertToChar()) || kEnds.holds(line.View().back());
}

/// Looks at the ends of the lines first: a caller that fills one list has all of its lines looked
/// at by every call.
void setContinuationMarks(KEPListValKEPUnicodeString& lines) {
  const auto mark = [&lines](int k) {
    if (k < 1 || k >= lines.Size() || !needsContinuationMark(lines[k], lines[k + 1])) return;
    lines[k] = KEPUnicodeString(std::string(lines[k].View()) + '$');
  };
  for (auto line = lines.begin(); line != lines.end(); ++line) {
    line = std::find_if(line, lines.end(), mayContinue);
    if (line == lines.end()) return;
    const int k = static_cast<int>(line - lines.begin()) + 1;
    mark(k - 1);
    mark(k);
  }
}

/// True for a list of exactly one line that ends with ",".
bool hasTrailingComma(const KEPListValKEPUnicodeString& lines) {
  return lines.Size() == 1 && lines[1].View().ends_with(',');
}

void dropLastCharacter(KEPUnicodeString& line) {
  std::string text(line.View());
  text.pop_back();
  line = KEPUnicodeString(std::move(text));
}

}  // namespace

bool KEPMfgSyntaxEvaluation::InstantiateSyntax(KEPListValKEPUnicodeString& lines,
                                               const int& index) {
  const auto feature = KEPISpecObject_var::Of(GetImpl());
  Outcome outcome = Outcome::NoSyntax;
  if (feature) {
    const KEPIMfgPPWordContainer_var container = containerOf(feature);
    tellSequentialMotion(container);
    outcome = appendLines(feature, container, index, lines);
  }
  if (outcome == Outcome::Failed) return false;
  setContinuationMarks(lines);
  if (hasTrailingComma(lines) && IsAKindOf(kDelayInstruction)) dropLastCharacter(lines[1]);
  return outcome == Outcome::AllLines;
}

KEPIMfgPPWordContainer_var KEPMfgSyntaxEvaluation::containerOf(const KEPISpecObject_var& feature) {
  if (known_.mark.isCurrent()) return known_.container;
  known_.mark.set(feature->GetContainer());
  KEPIMfgPPWordContainer_var container;
  KEPMfgModelUtilities::GetPPWordContainer(feature, container);
  known_.container = container.Get();
  known_.texts = nullptr;
  if (!container) known_.mark.clear();
  return container;
}

const KEPListValKEPUnicodeString* KEPMfgSyntaxEvaluation::knownTexts(int index) const noexcept {
  return known_.index == index && known_.mark.isCurrent() ? known_.texts : nullptr;
}

const KEPListValKEPUnicodeString* KEPMfgSyntaxEvaluation::textsOf(const KEPISpecAttribute& syntax,
                                                                  int index) noexcept {
  if (known_.mark.isCurrent() && syntax.IsAList()) {
    known_.texts = &syntax.GetTexts();
    known_.index = index;
  }
  return &syntax.GetTexts();
}

void KEPMfgSyntaxEvaluation::tellSequentialMotion(
    const KEPIMfgPPWordContainer_var& container) const {
  auto* const buffer = KEPBorrow<KEPIMfgBufferSeqMotionNumber>(container.Get());
  if (buffer != nullptr) buffer->SetNumber(seqMotionNumber_);
}

KEPMfgSyntaxEvaluation::Outcome KEPMfgSyntaxEvaluation::appendLines(
    const KEPISpecObject_var& feature, const KEPIMfgPPWordContainer_var& container, int index,
    KEPListValKEPUnicodeString& lines) {
  const auto* texts = knownTexts(index);
  if (texts == nullptr) {
    const auto syntax = syntaxAttribute(feature, index);
    if (!syntax) {
      return feature->GetNumberOfAttributes() == 0 ? Outcome::NoSyntax : Outcome::Failed;
    }
    if (!syntax->IsAList()) return Outcome::NoSyntax;
    texts = textsOf(*syntax, index);
  }
  const int count = texts->Size();
  if (count > 0 && !container) return Outcome::Failed;
  // A list that the caller fills grows as it does.
  if (lines.Size() == 0) lines.Reserve(count);
  DocumentParameters parameters(feature, container, known_.mark.counter());
  ListenedLine listened(parameters.listener());
  LineObserver* const observer = parameters.listener() == nullptr ? nullptr : &listened;
  // Taken out for the call: an evaluation may instantiate this very syntax again.
  auto scratch =
      scratch_ ? std::move(scratch_) : std::make_unique<LineScratch>(cleansParentheses());
  for (int i = 1; i <= count; ++i) {
    // Found again after the first line: an evaluation may have changed the syntax.
    if (i > 1) texts = textsNow(feature, index);
    if (texts == nullptr || i > texts->Size()) return Outcome::Failed;
    scratch->start(static_cast<std::size_t>(i), (*texts)[i]);
    if (!instantiateLine(*scratch, parameters, observer)) {
      return Outcome::Failed;
    }
    lines.Append(KEPUnicodeString(scratch->line().text()));
  }
  scratch_ = std::move(scratch);
  return Outcome::AllLines;
}

const KEPListValKEPUnicodeString* KEPMfgSyntaxEvaluation::textsNow(
    const KEPISpecObject_var& feature, int index) {
  if (const auto* const texts = knownTexts(index)) return texts;
  const auto syntax = syntaxAttribute(feature, index);
  return syntax ? textsOf(*syntax, index) : nullptr;
}

int KEPMfgSyntaxEvaluation::SetAuxNumber(int number) {
  auxNumber_ = number;
  return 0;
}

int KEPMfgSyntaxEvaluation::SetSeqMotionNumber(int number) {
  seqMotionNumber_ = number;
  return 0;
}
