#include "src/container/TableLoad.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "Manufacturing/KEPMfgPPWordListener.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "language/table/CommandQueries.h"
#include "language/table/CommandSyntax.h"
#include "language/table/MemorySource.h"
#include "language/table/SectionQueries.h"
#include "language/table/TableCheck.h"
#include "src/container/TypeTree.h"
#include "src/table/AppendAll.h"
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
/// walks read what follows a keyword and go on after the keyword itself.
class TableLoad {
 public:
  /// Creates the root types that the container lacks.
  TableLoad(const KEPIContainer_var& container, std::string_view table)
      : container_(container),
        syntaxRoot_(syntaxRoot(container)),
        parameterRoot_(parameterRoot(container)),
        table_(table),
        reading_(table, mostBytesOfLoad(table)),
        linesLeft_(mostLinesOfLoad(table)) {}

  void loadCommands() {
    MemorySource source(table_);
    int number = 0;
    forEachCommand(source, [&](const std::string& name, long body) {
      loadCommandAndSequences(++number, name, body);
    });
  }

  void loadMultiLists() { loadParameters(kListKeyword, Section::MultiList, &TableLoad::loadList); }
  void loadFormats() { loadParameters(kFormatKeyword, Section::Format, &TableLoad::loadFormat); }

 private:
  void loadCommandAndSequences(int number, const std::string& name, long body) {
    int sequences = 0;
    const Outcome outcome = loadCommand(name, body, sequences);
    report(Section::Command, number, name, outcome);
    if (sequences >= kFirstFurtherSequence) loadSequences(name, sequences);
  }

  /// Loads the first sequence of a command. `sequences` is the number of all that it has; unchanged
  /// when it is not loaded.
  Outcome loadCommand(const std::string& name, long body, int& sequences) {
    if (name.empty()) return Outcome::NameUnreadable;
    // deliberate: this command never enters a container
    if (name == kNeverLoaded) return Outcome::NeverLoaded;
    int count = 0;
    if (!reading_.seek(body) || !numberOfSequences(reading_, count) || !reading_.seek(body)) {
      return Outcome::ContentUnreadable;
    }
    auto elements = readLines(name);
    if (!elements) return Outcome::ContentUnreadable;
    const auto [type, wasThere] = typeFor(name, syntaxRoot_, kSyntaxe, Kind::StringList);
    if (wasThere) clearSequences(type);
    sequences = count;
    KEPListValKEPString lines;
    appendAll(*std::move(elements), lines);
    return outcomeOf(KEPMfgAttributeUtilities::SetStringListString(type, kSyntaxe, lines),
                     wasThere);
  }

  /// The lines of the command or sequence in which the reading is.
  [[nodiscard]] std::optional<std::vector<std::string>> readLines(std::string_view name) {
    if (linesLeft_ == 0) return std::nullopt;
    auto lines = readSyntax(reading_, name, positions_);
    if (lines) linesLeft_ -= std::min(linesLeft_, lines->size());
    return lines;
  }

  /// Loads the further sequences of a command, found by its name.
  void loadSequences(const std::string& name, int sequences) {
    if (!positions_) positions_ = commandPositions(reading_);
    const auto body = positions_->find(name);
    bool found = body != positions_->end() && reading_.seek(body->second);
    SequenceWalk walk(reading_);
    found = found && walk.next();
    for (int sequence = kFirstFurtherSequence; sequence <= sequences; ++sequence) {
      found = found && walk.next();
      const long here = reading_.position();
      report(Section::Sequence, sequence, name,
             found ? loadSequence(name, sequence) : Outcome::ContentUnreadable);
      found = found && reading_.seek(here);
    }
  }

  Outcome loadSequence(const std::string& name, int sequence) {
    auto lines = readLines(name);
    if (!lines) return Outcome::ContentUnreadable;
    const std::string attribute = sequenceAttribute(sequence);
    const KEPISpecAttrAccess_var attributes = findType(container_, name);
    const bool wasThere = attributes->FindAttribute(attribute).has_value();
    attributes->AddAttribute(attribute, Kind::StringList);
    HRESULT status = S_OK;
    for (const std::string& line : *lines) status = attributes->AppendToList(attribute, line);
    return outcomeOf(status, wasThere);
  }

  using LoadParameter = Outcome (TableLoad::*)(std::string_view name);

  void loadParameters(std::string_view keyword, Section section, LoadParameter loadParameter) {
    MemorySource source(table_);
    int number = 0;
    forEachParameter(source, keyword, [&](const std::string& name, long body) {
      reading_.seek(body);
      report(section, ++number, name,
             name.empty() ? Outcome::NameUnreadable : (this->*loadParameter)(name));
    });
  }

  Outcome loadList(std::string_view name) {
    const auto [type, wasThere] = typeFor(name, parameterRoot_, kMultiListValue, Kind::StringList);
    if (wasThere) KEPMfgAttributeUtilities::RemoveAll(type, kMultiListValue);
    std::vector<std::string> read;
    if (!readValues(reading_, read)) return Outcome::ContentUnreadable;
    KEPListValKEPString words;
    appendAll(std::move(read), words);
    return outcomeOf(KEPMfgAttributeUtilities::SetStringListString(type, kMultiListValue, words),
                     wasThere);
  }

  Outcome loadFormat(std::string_view name) {
    const auto [type, wasThere] = typeFor(name, parameterRoot_, kFormat, Kind::String);
    if (wasThere) KEPMfgAttributeUtilities::UnsetAttributeValue(type, kFormat);
    std::string format;
    if (!readFormat(reading_, format)) return Outcome::ContentUnreadable;
    return outcomeOf(KEPMfgAttributeUtilities::SetString(type, kFormat, std::move(format)),
                     wasThere);
  }

  struct FoundType {
    KEPISpecObject_var type;
    bool wasThere;
  };

  /// The type of that name; created under `base` with its one attribute when the container lacks
  /// it.
  [[nodiscard]] FoundType typeFor(std::string_view name, const KEPISpecObject_var& base,
                                  std::string_view attribute, Kind kind) const {
    KEPISpecObject_var found = findType(container_, name);
    if (found) return {std::move(found), true};
    return {createType(container_, name, base, attribute, kind), false};
  }

  void report(Section section, int number, std::string_view name, Outcome outcome) const {
    if (listener_ != nullptr) listener_->TableEntry(section, number, name, outcome);
  }

  const KEPIContainer_var& container_;
  KEPISpecObject_var syntaxRoot_;
  KEPISpecObject_var parameterRoot_;
  std::string_view table_;
  MemorySource reading_;  // reads what follows the names; each walk has its own source
  std::size_t linesLeft_;
  std::optional<CommandPositions> positions_;
  KEPMfgPPWordListener* listener_ = KEPMfgPPWordListener::Current();
};

}  // namespace

HRESULT loadTable(const KEPIContainer_var& container, const KEPUnicodeString& path) {
  const auto table = tableBytes(path.ConvertToChar());
  if (!table) return recordTableError({"ERR_5009", {}});
  TableLoad load(container, *table);
  MemorySource source(*table);
  if (const auto fault = faultOfTable(source)) return recordTableError(*fault);
  load.loadCommands();
  load.loadMultiLists();
  load.loadFormats();
  return S_OK;
}

}  // namespace ppword
