#include <charconv>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/document/Digest.h"
#include "host/document/DocumentFormat.h"
#include "host/document/StoredDocument.h"

namespace host {
namespace {

using AttributeKind = KEPISpecAttribute::Kind;
using Slot = AttributeTable::Slot;

/// The rows of a query, column by column. Every value taken goes into the digest; a value that the
/// format does not allow refuses the file.
class Rows {
 public:
  Rows(Database& database, Digest& digest, std::int64_t& count, std::string_view query)
      : database_(database), digest_(digest), count_(count), statement_(database, query) {}

  [[nodiscard]] bool next() {
    column_ = 0;
    if (!statement_.step()) return false;
    if (++count_ > format::kMostRows) database_.refuse("holds more than 2000000 rows");
    return true;
  }

  [[nodiscard]] std::int64_t number(std::int64_t least, std::int64_t most) {
    const std::int64_t value = key(column_);
    if (value < least || value > most) damaged();
    digest_.add(value);
    ++column_;
    return value;
  }
  [[nodiscard]] std::optional<std::int64_t> optionalNumber(std::int64_t least, std::int64_t most) {
    if (!statement_.isNull(column_)) return number(least, most);
    digest_.addNull();
    ++column_;
    return std::nullopt;
  }
  [[nodiscard]] std::string_view text() {
    if (!statement_.isText(column_)) damaged();
    const std::string_view value = statement_.text(column_++);
    digest_.add(value);
    return value;
  }
  template <class Kind, std::size_t kCount>
  [[nodiscard]] Kind kind(const std::array<std::pair<Kind, std::int64_t>, kCount>& stored) {
    const std::int64_t value = number(0, kCount);
    for (const auto& [kind, number] : stored) {
      if (number == value) return kind;
    }
    damaged();
  }

  /// An integer that tells where the row belongs; it is not taken.
  [[nodiscard]] std::int64_t key(int column) const {
    if (!statement_.isInteger(column)) damaged();
    return statement_.integer(column);
  }
  void skip(int columns) noexcept { column_ += columns; }

  [[noreturn]] void damaged() const { database_.refuse("the document is damaged"); }

 private:
  Database& database_;
  Digest& digest_;
  std::int64_t& count_;
  Statement statement_;
  int column_ = 0;
};

class Reader {
 public:
  Reader(Database& database, std::int64_t version) : database_(database), version_(version) {}

  [[nodiscard]] KEPVar<Document> read() {
    readContainers();
    readFeatures();
    readAttributes();
    if (version_ >= format::kFirstWithPublished) readDesignParameters();
    if (database_.queryNumber("SELECT digest FROM document") != digest_.value()) {
      database_.refuse("the document is damaged: its content does not match its checksum");
    }
    document_->setNeedsUpgrade(version_ < format::kVersion);
    document_->setStoredStamp(storedStamp(database_));
    return document_;
  }

 private:
  [[nodiscard]] Rows rows(std::string_view query) { return {database_, digest_, rowCount_, query}; }

  void readContainers() {
    Rows rows = this->rows("SELECT id,late_type FROM container ORDER BY id");
    std::int64_t count = 0;
    while (rows.next()) {
      if (count == format::kMostContainers) database_.refuse("holds more than 1000 containers");
      static_cast<void>(rows.number(count + 1, count + 1));
      const std::string_view lateType = rows.text();
      if (count++ > 0) {
        document_->addContainer(lateType);
      } else if (lateType != format::kWordContainer) {
        rows.damaged();
      }
    }
    if (count == 0) rows.damaged();
  }

  void readFeatures() {
    const bool hasMark = version_ >= format::kFirstWithPublished;
    Rows rows =
        this->rows(hasMark ? "SELECT id,container,kind,name,base,published FROM feature ORDER BY id"
                           : "SELECT id,container,kind,name,base FROM feature ORDER BY id");
    // A type that was removed while others derive from it belongs to no container.
    const auto nowhere = KEPVar<Container>::Adopt(new Container(*document_, ""));
    while (rows.next()) {
      const auto count = static_cast<std::int64_t>(features_.size());
      static_cast<void>(rows.number(count + 1, count + 1));
      const auto home = rows.optionalNumber(1, containerCount());
      const Feature::Kind kind = rows.kind(format::kFeatureKinds);
      const std::string name(rows.text());
      const auto base = rows.optionalNumber(1, count);
      Container& container = home ? containerAt(*home) : *nowhere;
      Feature* const feature = make(container, kind, name, base);
      if (feature == nullptr) rows.damaged();
      if (hasMark && rows.number(0, 1) == 1) feature->publish();
      if (!home) container.removeMember(*feature);
    }
  }

  /// Without the container that holds features of none.
  [[nodiscard]] std::int64_t containerCount() const {
    return static_cast<std::int64_t>(document_->containers().size()) - 1;
  }
  [[nodiscard]] Container& containerAt(std::int64_t id) const {
    return *document_->containers()[static_cast<std::size_t>(id) - 1];
  }

  /// Null for a feature that cannot be: its name is taken, its type is missing.
  [[nodiscard]] Feature* make(Container& container, Feature::Kind kind, std::string_view name,
                              std::optional<std::int64_t> base) {
    Entry entry;
    KEPISpecObject_var type;
    if (base) {
      const Entry& of = features_[static_cast<std::size_t>(*base) - 1];
      entry.depth = of.depth + 1;
      type = KEPISpecObject_var(of.feature.Get());
    }
    if (entry.depth > format::kMostBaseTypes) return nullptr;
    if (kind == Feature::Kind::Instance && !type) return nullptr;
    KEPISpecObject* const made = kind == Feature::Kind::StartUp
                                     ? container.CreateStartUp(name, type)
                                     : container.CreateInstance(type, name);
    if (made == nullptr) return nullptr;
    entry.feature = KEPVar<Feature>::Adopt(static_cast<Feature*>(made));
    return features_.emplace_back(std::move(entry)).feature.Get();
  }

  void readAttributes() {
    Rows rows = this->rows(
        "SELECT feature,position,name,kind,declared,has_value,number FROM attribute"
        " ORDER BY feature,position");
    Rows texts = this->rows(
        "SELECT feature,attribute,position,text FROM text ORDER BY feature,attribute,position");
    bool isText = texts.next();
    std::int64_t feature = 0;
    std::int64_t position = 0;
    while (rows.next()) {
      position = rows.key(0) == feature ? position + 1 : 1;
      feature = rows.number(1, static_cast<std::int64_t>(features_.size()));
      static_cast<void>(rows.number(position, position));
      Slot slot = readSlot(rows);
      for (std::int64_t at = 1; isText && texts.key(0) == feature && texts.key(1) == position;
           ++at) {
        if (texts.key(2) != at) rows.damaged();
        texts.skip(3);
        slot.texts.Append(KEPUnicodeString(texts.text()));
        isText = texts.next();
      }
      Feature& owner = *features_[static_cast<std::size_t>(feature) - 1].feature;
      if (!isWellFormed(slot) || !owner.addStored(std::move(slot))) rows.damaged();
    }
    if (isText) rows.damaged();
  }

  [[nodiscard]] static Slot readSlot(Rows& rows) {
    std::string name(rows.text());
    const AttributeKind kind = rows.kind(format::kAttributeKinds);
    const bool declared = rows.number(0, 1) == 1;
    Slot slot{std::move(name), kind, declared};
    slot.set = rows.number(0, 1) == 1;
    const auto number =
        rows.optionalNumber(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    if (number.has_value() != (slot.set && slot.kind == AttributeKind::Integer)) rows.damaged();
    slot.integer = static_cast<int>(number.value_or(0));
    return slot;
  }

  /// A string attribute with a value has one text; only lists have another number.
  [[nodiscard]] static bool isWellFormed(const Slot& slot) {
    const int texts = slot.texts.Size();
    if (!slot.set || slot.kind == AttributeKind::Integer) return texts == 0;
    return slot.kind == AttributeKind::StringList || texts == 1;
  }

  void readDesignParameters() {
    Rows rows = this->rows("SELECT name,value FROM design_parameter ORDER BY name");
    while (rows.next()) {
      const std::string name(rows.text());
      const std::string_view text = rows.text();
      double value = 0.0;
      const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
      if (error != std::errc() || end != text.data() + text.size()) rows.damaged();
      document_->setDesignParameter(name, value);
    }
  }

  struct Entry {
    KEPVar<Feature> feature;
    /// How many types it has above it.
    int depth = 0;
  };

  Database& database_;
  std::int64_t version_;
  Digest digest_;
  std::int64_t rowCount_ = 0;
  KEPVar<Document> document_ = Document::createEmpty();
  std::vector<Entry> features_;
};

void requireSchema(Database& database, std::int64_t version) {
  Statement schema(database, "SELECT sql FROM sqlite_schema ORDER BY rowid");
  for (const std::string_view statement : format::schemaOf(version)) {
    const bool isThere = schema.step() && schema.isText(0) && schema.text(0) == statement;
    if (!isThere) database.refuse("this file is not a document: it has other tables");
  }
  if (schema.step()) database.refuse("this file is not a document: it has other tables");
}

/// Whether the first thing that a query gives is this text.
bool gives(Database& database, std::string_view query, std::string_view text) {
  Statement statement(database, query);
  return statement.step() && statement.isText(0) && statement.text(0) == text;
}

}  // namespace

std::int64_t requireDocument(Database& database) {
  if (database.queryNumber("PRAGMA application_id") != format::kApplicationId) {
    database.refuse("this file is not a document");
  }
  const std::int64_t version = database.queryNumber("PRAGMA user_version");
  if (version > format::kVersion) {
    database.refuse("the document is of version " + std::to_string(version) +
                    "; this program reads no newer version than " +
                    std::to_string(format::kVersion));
  }
  if (version < format::kOldestVersion) database.refuse("the document is damaged");
  // Another encoding would not take every byte that a text may hold.
  if (!gives(database, "PRAGMA encoding", "UTF-8")) {
    database.refuse("this file is not a document: its encoding is not UTF-8");
  }
  requireSchema(database, version);
  if (!gives(database, "PRAGMA quick_check(1)", "ok")) database.refuse("the document is damaged");
  if (database.queryNumber("SELECT count(*) FROM document") != 1) {
    database.refuse("the document is damaged");
  }
  return version;
}

std::int64_t storedStamp(Database& database) {
  return database.queryNumber("SELECT stamp FROM document");
}

KEPVar<Document> readDocument(Database& database, std::int64_t version) {
  return Reader(database, version).read();
}

}  // namespace host
