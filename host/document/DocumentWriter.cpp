
#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/document/Digest.h"
#include "host/document/DocumentError.h"
#include "host/document/DocumentFormat.h"
#include "host/document/Sqlite.h"
#include "host/document/StoredDocument.h"
#include "host/modeler/FeatureOrder.h"

namespace host {
namespace {

using Slot = AttributeTable::Slot;
using Number = std::optional<std::int64_t>;

template <class Kind, std::size_t kCount>
std::int64_t stored(const std::array<std::pair<Kind, std::int64_t>, kCount>& numbers, Kind kind) {
  for (const auto& [each, number] : numbers) {
    if (each == kind) return number;
  }
  return 0;
}

[[noreturn]] void refuse(const Database& database, std::string_view reason) {
  throw DocumentError(DocumentError::Kind::NotWritten, database.name(),
                      "cannot be written: " + std::string(reason));
}

/// The number of a place, which counts from 0, in a file.
Number idOf(std::optional<std::size_t> place) {
  return place ? Number(static_cast<std::int64_t>(*place) + 1) : Number();
}

void requireDepth(const FeatureOrder& order, const Database& database) {
  for (const FeatureOrder::Entry& entry : order.entries()) {
    if (entry.depth <= format::kMostBaseTypes) continue;
    refuse(database, "a type in it has more than 64 types above it");
  }
}

class Writer {
 public:
  explicit Writer(Database& database) : database_(database) {}

  /// Gives the stamp.
  std::int64_t write(const Document& document) {
    makeTables();
    writeContainers(document);
    const FeatureOrder order(document.containers());
    requireDepth(order, database_);
    writeFeatures(order);
    writeAttributes(order);
    writeDesignParameters(document);
    std::int64_t stamp = 0;
    while (stamp == 0) sqlite::randomness(sizeof stamp, &stamp);
    Statement statement(database_, "INSERT INTO document VALUES(?,?)");
    statement.bind(1, stamp);
    statement.bind(2, digest_.value());
    statement.execute();
    return stamp;
  }

 private:
  void makeTables() {
    for (const char* const table :
         {"document", "container", "feature", "attribute", "text", "design_parameter"}) {
      database_.run(std::string("DROP TABLE IF EXISTS ") + table);
    }
    for (const std::string_view statement : format::kSchema) {
      database_.run(std::string(statement));
    }
    database_.run("PRAGMA application_id=" + std::to_string(format::kApplicationId));
    database_.run("PRAGMA user_version=" + std::to_string(format::kVersion));
  }

  // Values of a row, bound in order. What identifies a row of texts stays out of the digest.
  void put(Statement& statement, int place, std::int64_t number) {
    statement.bind(place, number);
    digest_.add(number);
  }
  void put(Statement& statement, int place, std::string_view text) {
    statement.bind(place, text);
    digest_.add(text);
  }
  void put(Statement& statement, int place, Number number) {
    if (number) return put(statement, place, *number);
    statement.bindNull(place);
    digest_.addNull();
  }
  template <class... Values>
  void insert(Statement& statement, const Values&... values) {
    int place = 0;
    (put(statement, ++place, values), ...);
    execute(statement);
  }
  void execute(Statement& statement) {
    if (++rowCount_ > format::kMostRows) refuse(database_, "it has more than 2000000 rows");
    statement.execute();
  }

  void writeContainers(const Document& document) {
    if (std::ssize(document.containers()) > format::kMostContainers) {
      refuse(database_, "it has more than 1000 containers");
    }
    Statement statement(database_, "INSERT INTO container VALUES(?,?)");
    std::int64_t id = 0;
    for (const Container* container : document.containers()) {
      insert(statement, ++id, container->lateType());
    }
  }

  void writeFeatures(const FeatureOrder& order) {
    Statement statement(database_, "INSERT INTO feature VALUES(?,?,?,?,?,?)");
    std::int64_t id = 0;
    for (const auto& [feature, container, base, depth] : order.entries()) {
      insert(statement, ++id, idOf(container), stored(format::kFeatureKinds, feature->kind()),
             feature->GetName(), idOf(base), std::int64_t{feature->isPublished()});
    }
  }

  void writeAttributes(const FeatureOrder& order) {
    Statement attribute(database_, "INSERT INTO attribute VALUES(?,?,?,?,?,?,?)");
    Statement text(database_, "INSERT INTO text VALUES(?,?,?,?)");
    std::int64_t feature = 0;
    for (const FeatureOrder::Entry& entry : order.entries()) {
      ++feature;
      std::int64_t position = 0;
      for (const Slot& slot : entry.feature->attributes().slots()) {
        const bool isNumber = slot.set && slot.kind == KEPISpecAttribute::Kind::Integer;
        insert(attribute, feature, ++position, std::string_view(slot.name),
               stored(format::kAttributeKinds, slot.kind), std::int64_t{slot.declared},
               std::int64_t{slot.set}, isNumber ? Number(slot.integer) : Number());
        if (slot.set && !isNumber) writeTexts(text, feature, position, slot);
      }
    }
  }

  void writeTexts(Statement& statement, std::int64_t feature, std::int64_t attribute,
                  const Slot& slot) {
    std::int64_t position = 0;
    for (const KEPUnicodeString& text : slot.texts) {
      statement.bind(1, feature);
      statement.bind(2, attribute);
      statement.bind(3, ++position);
      put(statement, 4, text.View());
      execute(statement);
    }
  }

  void writeDesignParameters(const Document& document) {
    Statement statement(database_, "INSERT INTO design_parameter VALUES(?,?)");
    const std::map<std::string_view, double> sorted(document.designParameters().begin(),
                                                    document.designParameters().end());
    for (const auto& [name, value] : sorted) {
      std::array<char, 64> digits{};
      const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
      insert(statement, name, std::string_view(digits.data(), end));
    }
  }

  Database& database_;
  Digest digest_;
  std::int64_t rowCount_ = 0;
};

}  // namespace

std::int64_t writeDocument(const Document& document, Database& database) {
  return Writer(database).write(document);
}

}  // namespace host
