#include "src/container/TableLoad.h"

#include <string>
#include <string_view>

#include "KEPMfgPPTableTxt.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "ObjectSpecsModeler/KEPISpecAttrAccess.h"
#include "src/container/TypeTree.h"
#include "src/table/TableError.h"
#include "src/table/TableStream.h"

namespace ppword {
namespace {

using Kind = KEPISpecAttribute::Kind;
using Section = KEPMfgPPWordListener::Section;
using Outcome = KEPMfgPPWordListener::Outcome;

constexpr std::string_view kNeverLoaded = "NC_SPINDLE_STOP";
constexpr int kFirstFurtherSequence = 2;

std::string sequenceAttribute(int sequence) {
  return std::string(kSyntaxe) + std::to_string(sequence);
}

/// Empties the first sequence and unsets the further ones; all stay declared.
void clearSequences(const KEPISpecObject_var& type) {
  KEPMfgAttributeUtilities::RemoveAll(type, kSyntaxe);
  const int last = type->GetNumberOfAttributes() + 1;
  for (int sequence = kFirstFurtherSequence; sequence <= last; ++sequence) {
    const std::string attribute = sequenceAttribute(sequence);
    if (KEPFailed(KEPMfgAttributeUtilities::UnsetAttributeValue(type, attribute))) return;
  }
}

/// What became of an entry whose value was written with this status.
Outcome outcomeOf(HRESULT status, bool wasThere) {
  if (KEPFailed(status)) return Outcome::NotDeclared;
  return wasThere ? Outcome::Replaced : Outcome::Created;
}

/// One table on its way into one container.
class TableLoad {
 public:
  /// Makes the root types that the container lacks.
  TableLoad(const KEPIContainer_var& container, KEPMfgPPTableTxt& table)
      : container_(container),
        syntaxRoot_(syntaxRoot(container)),
        parameterRoot_(parameterRoot(container)),
        table_(table) {}

  void loadCommands() {
    int count = 0;
    table_.GetNumberOfCommand(count);
    for (int number = 1; number <= count; ++number) {
      KEPString name;
      int sequences = 0;
      const Outcome outcome = loadCommand(number, name, sequences);
      report(Section::Command, number, name, outcome);
      for (int sequence = kFirstFurtherSequence; sequence <= sequences; ++sequence) {
        report(Section::Sequence, sequence, name, loadSequence(name, sequence));
      }
    }
  }

  void loadMultiLists() {
    int count = 0;
    table_.GetNumberOfMultiListParameter(count);
    for (int number = 1; number <= count; ++number) {
      KEPString name;
      const Outcome outcome = loadMultiList(number, name);
      report(Section::MultiList, number, name, outcome);
    }
  }

  void loadFormats() {
    int count = 0;
    table_.GetNumberOfFormatParameter(count);
    for (int number = 1; number <= count; ++number) {
      KEPString name;
      const Outcome outcome = loadFormat(number, name);
      report(Section::Format, number, name, outcome);
    }
  }

 private:
  /// Loads the first sequence of a command. `sequences` is the number of all that it has; 0 when it
  /// is not loaded.
  Outcome loadCommand(int number, KEPString& name, int& sequences) {
    if (!table_.GetNameOfCommand(number, name)) return Outcome::NameUnreadable;
    // deliberate: this command never enters a container
    if (name.View() == kNeverLoaded) return Outcome::NeverLoaded;
    int count = 0;
    KEPListValKEPString lines;
    if (!table_.GetNumberOfSequenceForCommand(number, count) ||
        !table_.GetSyntaxOfCommand(number, lines)) {
      return Outcome::ContentUnreadable;
    }
    const auto [type, wasThere] = typeFor(name, syntaxRoot_, kSyntaxe, Kind::StringList);
    if (wasThere) clearSequences(type);
    sequences = count;
    return outcomeOf(KEPMfgAttributeUtilities::SetStringListString(type, kSyntaxe, lines),
                     wasThere);
  }

  Outcome loadSequence(const KEPString& name, int sequence) {
    KEPListValKEPString lines;
    if (!table_.GetSyntaxOfSequenceForCommand(name, sequence, lines)) {
      return Outcome::ContentUnreadable;
    }
    const std::string attribute = sequenceAttribute(sequence);
    const KEPISpecAttrAccess_var attributes = findType(container_, name);
    const bool wasThere = attributes->FindAttribute(attribute).has_value();
    attributes->AddAttribute(attribute, Kind::StringList);
    HRESULT status = S_OK;
    for (const KEPString& line : lines) status = attributes->AppendToList(attribute, line);
    return outcomeOf(status, wasThere);
  }

  Outcome loadMultiList(int number, KEPString& name) {
    if (!table_.GetNameOfMultiListParameter(number, name)) return Outcome::NameUnreadable;
    const auto [type, wasThere] = typeFor(name, parameterRoot_, kMultiListValue, Kind::StringList);
    if (wasThere) KEPMfgAttributeUtilities::RemoveAll(type, kMultiListValue);
    KEPListValKEPString words;
    if (!table_.GetValuesOfMultiListParameter(number, words)) return Outcome::ContentUnreadable;
    return outcomeOf(KEPMfgAttributeUtilities::SetStringListString(type, kMultiListValue, words),
                     wasThere);
  }

  Outcome loadFormat(int number, KEPString& name) {
    if (!table_.GetNameOfFormatParameter(number, name)) return Outcome::NameUnreadable;
    const auto [type, wasThere] = typeFor(name, parameterRoot_, kFormat, Kind::String);
    if (wasThere) KEPMfgAttributeUtilities::UnsetAttributeValue(type, kFormat);
    KEPString format;
    if (!table_.GetValueOfFormatParameter(number, format)) return Outcome::ContentUnreadable;
    return outcomeOf(KEPMfgAttributeUtilities::SetString(type, kFormat, format), wasThere);
  }

  struct FoundType {
    KEPISpecObject_var type;
    bool wasThere;
  };

  /// The type of that name; made under `base` with its one attribute when the container lacks it.
  [[nodiscard]] FoundType typeFor(std::string_view name, const KEPISpecObject_var& base,
                                  std::string_view attribute, Kind kind) const {
    KEPISpecObject_var found = findType(container_, name);
    if (found) return {std::move(found), true};
    return {makeType(container_, name, base, attribute, kind), false};
  }

  void report(Section section, int number, std::string_view name, Outcome outcome) const {
    if (listener_ != nullptr) listener_->TableEntry(section, number, name, outcome);
  }

  const KEPIContainer_var& container_;
  KEPISpecObject_var syntaxRoot_;
  KEPISpecObject_var parameterRoot_;
  KEPMfgPPTableTxt& table_;
  KEPMfgPPWordListener* listener_ = KEPMfgPPWordListener::Current();
};

bool canBeOpened(const KEPUnicodeString& path) { return TableStream().open(path.ConvertToChar()); }

}  // namespace

HRESULT loadTable(const KEPIContainer_var& container, const KEPUnicodeString& path) {
  if (!canBeOpened(path)) return raiseTableError({"ERR_5009", {}});
  KEPMfgPPTableTxt table(KEPString(path.View()));
  TableLoad load(container, table);
  const HRESULT verdict = table.CheckFileSyntax();
  if (KEPFailed(verdict)) return verdict;
  load.loadCommands();
  load.loadMultiLists();
  load.loadFormats();
  return verdict;
}

}  // namespace ppword
