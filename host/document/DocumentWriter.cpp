#include <sqlite3.h>

#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/document/Digest.h"
#include "host/document/DocumentError.h"
#include "host/document/DocumentFormat.h"
#include "host/document/StoredDocument.h"

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

/// The features of a document, base types before those that derive from them, and those of one
/// container in the order of their creation.
class StorageOrder {
 public:
  struct Entry {
    const Feature* feature;
    /// The number of its container from 1; nothing for a type that was removed.
    Number container;
    Number base;
  };

  StorageOrder(const Document& document, const Database& database) : database_(database) {
    if (std::ssize(document.containers()) > format::kMostContainers) {
      refuse(database_, "it has more than 1000 containers");
    }
    for (const Container* container : document.containers()) {
      Members members;
      for (const auto& member : container->ListMembersHere(KEPInterfaceId<KEPISpecObject>())) {
        members.features.push_back(KEPVar<Feature>(member).Get());
      }
      homes_.emplace(container, homes_.size());
      members_.push_back(std::move(members));
    }
    for (std::size_t home = 0; home < members_.size(); ++home) {
      while (members_[home].next < members_[home].features.size()) addNext(home);
    }
  }

  [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return entries_; }

 private:
  struct Members {
    std::vector<const Feature*> features;
    std::size_t next = 0;
  };

  [[nodiscard]] static const Feature* baseOf(const Feature& feature) {
    return static_cast<const Feature*>(feature.GetBaseType().Get());
  }

  /// Adds the next member of a container behind its base types.
  void addNext(std::size_t home) {
    const Feature& feature = *members_[home].features[members_[home].next++];
    std::vector<const Feature*> bases;
    for (const Feature* base = baseOf(feature); base != nullptr && !ids_.contains(base);
         base = baseOf(*base)) {
      bases.push_back(base);
      if (bases.size() > format::kMostBaseTypes) refuseDepth();
    }
    for (auto base = bases.rbegin(); base != bases.rend(); ++base) addBase(**base);
    append(feature, home);
  }

  void addBase(const Feature& base) {
    const auto home = homes_.find(base.GetContainer());
    if (home == homes_.end()) return append(base, std::nullopt);
    while (!ids_.contains(&base)) addNext(home->second);
  }

  void append(const Feature& feature, std::optional<std::size_t> home) {
    const Feature* const base = baseOf(feature);
    const Number baseId = base == nullptr ? Number() : ids_.at(base);
    const int depth = baseId ? depths_[static_cast<std::size_t>(*baseId) - 1] + 1 : 0;
    if (depth > format::kMostBaseTypes) refuseDepth();
    const Number container = home ? Number(static_cast<std::int64_t>(*home) + 1) : Number();
    entries_.push_back({&feature, container, baseId});
    depths_.push_back(depth);
    ids_.emplace(&feature, static_cast<std::int64_t>(entries_.size()));
  }

  [[noreturn]] void refuseDepth() const {
    refuse(database_, "a type in it has more than 64 types above it");
  }

  const Database& database_;
  std::unordered_map<const KEPIContainer*, std::size_t> homes_;
  std::vector<Members> members_;
  std::vector<Entry> entries_;
  std::vector<int> depths_;
  std::unordered_map<const Feature*, std::int64_t> ids_;
};

class Writer {
 public:
  explicit Writer(Database& database) : database_(database) {}

  /// Gives the stamp.
  std::int64_t write(const Document& document) {
    makeTables();
    writeContainers(document);
    const StorageOrder order(document, database_);
    writeFeatures(order);
    writeAttributes(order);
    writeDesignParameters(document);
    std::int64_t stamp = 0;
    while (stamp == 0) sqlite3_randomness(sizeof stamp, &stamp);
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
    Statement statement(database_, "INSERT INTO container VALUES(?,?)");
    std::int64_t id = 0;
    for (const Container* container : document.containers()) {
      insert(statement, ++id, container->lateType());
    }
  }

  void writeFeatures(const StorageOrder& order) {
    Statement statement(database_, "INSERT INTO feature VALUES(?,?,?,?,?,?)");
    std::int64_t id = 0;
    for (const auto& [feature, container, base] : order.entries()) {
      insert(statement, ++id, container, stored(format::kFeatureKinds, feature->kind()),
             feature->GetName(), base, std::int64_t{feature->isPublished()});
    }
  }

  void writeAttributes(const StorageOrder& order) {
    Statement attribute(database_, "INSERT INTO attribute VALUES(?,?,?,?,?,?,?)");
    Statement text(database_, "INSERT INTO text VALUES(?,?,?,?)");
    std::int64_t feature = 0;
    for (const StorageOrder::Entry& entry : order.entries()) {
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
