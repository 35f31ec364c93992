#include "src/container/TableLoad.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "ObjectSpecsModeler/KEPISpecAttrAccess.h"
#include "src/container/TypeTree.h"
#include "src/table/AppendAll.h"
#include "src/table/CommandQueries.h"
#include "src/table/CommandSyntax.h"
#include "src/table/MemorySource.h"
#include "src/table/SectionQueries.h"
#include "src/table/TableCheck.h"
#include "src/table/TableError.h"

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

/// One table on its way into one container. Each part of the table is walked through once; the
/// walks read what stands behind a keyword and go on behind the keyword itself.
class TableLoad {
 public:
  /// Makes the root types that the container lacks.
  TableLoad(const KEPIContainer_var& container, std::string_view table)
      : container_(container),
        syntaxRoot_(syntaxRoot(container)),
        parameterRoot_(parameterRoot(container)),
        table_(table) {}

  void loadCommands() {
    MemorySource source(table_);
    int number = 0;
    walkCommands(source, [&] {
      const long here = source.position();
      loadCommandAndSequences(source, ++number);
      return !source.seek(here);
    });
  }

  void loadMultiLists() { loadParameters(kListKeyword, Section::MultiList, &TableLoad::loadList); }
  void loadFormats() { loadParameters(kFormatKeyword, Section::Format, &TableLoad::loadFormat); }

 private:
  void loadCommandAndSequences(TableSource& source, int number) {
    std::string name;
    int sequences = 0;
    const Outcome outcome = loadCommand(source, name, sequences);
    report(Section::Command, number, name, outcome);
    if (sequences >= kFirstFurtherSequence) loadSequences(source, name, sequences);
  }

  /// Loads the first sequence of the command whose name follows. `sequences` is the number of all
  /// that it has; 0 when it is not loaded.
  Outcome loadCommand(TableSource& source, std::string& name, int& sequences) {
    const auto found = nextName(source, kCommandPrefix);
    if (!found) return Outcome::NameUnreadable;
    name = *found;
    // deliberate: this command never enters a container
    if (name == kNeverLoaded) return Outcome::NeverLoaded;
    const long body = source.position();
    int count = 0;
    if (!numberOfSequences(source, count) || !source.seek(body)) return Outcome::ContentUnreadable;
    auto elements = readSyntax(source, name, positions_);
    if (!elements) return Outcome::ContentUnreadable;
    const auto [type, wasThere] = typeFor(name, syntaxRoot_, kSyntaxe, Kind::StringList);
    if (wasThere) clearSequences(type);
    sequences = count;
    KEPListValKEPString lines;
    appendAll(*std::move(elements), lines);
    return outcomeOf(KEPMfgAttributeUtilities::SetStringListString(type, kSyntaxe, lines),
                     wasThere);
  }

  /// Loads the further sequences of a command, found by its name.
  void loadSequences(TableSource& source, const std::string& name, int sequences) {
    if (!positions_) positions_ = commandPositions(source);
    const auto body = positions_->find(name);
    bool found = body != positions_->end() && source.seek(body->second);
    SequenceWalk walk(source);
    found = found && walk.next();
    for (int sequence = kFirstFurtherSequence; sequence <= sequences; ++sequence) {
      found = found && walk.next();
      const long here = source.position();
      report(Section::Sequence, sequence, name,
             found ? loadSequence(source, name, sequence) : Outcome::ContentUnreadable);
      found = found && source.seek(here);
    }
  }

  Outcome loadSequence(TableSource& source, const std::string& name, int sequence) {
    auto lines = readSyntax(source, name, positions_);
    if (!lines) return Outcome::ContentUnreadable;
    const std::string attribute = sequenceAttribute(sequence);
    const KEPISpecAttrAccess_var attributes = findType(container_, name);
    const bool wasThere = attributes->FindAttribute(attribute).has_value();
    attributes->AddAttribute(attribute, Kind::StringList);
    HRESULT status = S_OK;
    for (const std::string& line : *lines) status = attributes->AppendToList(attribute, line);
    return outcomeOf(status, wasThere);
  }

  using LoadParameter = Outcome (TableLoad::*)(TableSource& source, std::string_view name);

  void loadParameters(std::string_view keyword, Section section, LoadParameter loadParameter) {
    MemorySource source(table_);
    int number = 0;
    walkKeyword(source, keyword, [&] {
      const long here = source.position();
      const std::string name(nextName(source, kParameterPrefix).value_or(""));
      report(section, ++number, name,
             name.empty() ? Outcome::NameUnreadable : (this->*loadParameter)(source, name));
      return !source.seek(here);
    });
  }

  Outcome loadList(TableSource& source, std::string_view name) {
    const auto [type, wasThere] = typeFor(name, parameterRoot_, kMultiListValue, Kind::StringList);
    if (wasThere) KEPMfgAttributeUtilities::RemoveAll(type, kMultiListValue);
    KEPListValKEPString words;
    if (!readValues(source, words)) return Outcome::ContentUnreadable;
    return outcomeOf(KEPMfgAttributeUtilities::SetStringListString(type, kMultiListValue, words),
                     wasThere);
  }

  Outcome loadFormat(TableSource& source, std::string_view name) {
    const auto [type, wasThere] = typeFor(name, parameterRoot_, kFormat, Kind::String);
    if (wasThere) KEPMfgAttributeUtilities::UnsetAttributeValue(type, kFormat);
    KEPString format;
    if (!readFormat(source, format)) return Outcome::ContentUnreadable;
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
  std::string_view table_;
  std::optional<CommandPositions> positions_;
  KEPMfgPPWordListener* listener_ = KEPMfgPPWordListener::Current();
};

}  // namespace

HRESULT loadTable(const KEPIContainer_var& container, const KEPUnicodeString& path) {
  const auto table = tableBytes(path.ConvertToChar());
  if (!table) return raiseTableError({"ERR_5009", {}});
  TableLoad load(container, *table);
  MemorySource source(*table);
  if (const auto fault = faultOfTable(source)) return raiseTableError(*fault);
  load.loadCommands();
  load.loadMultiLists();
  load.loadFormats();
  return S_OK;
}

}  // namespace ppword
