#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "host/modeler/Feature.h"

/// Every number and name that document files store. docs/document-format.md explains them. Numbers
/// that were stored once keep their meaning; it also says what a file of an older version lacks.
namespace host::format {

/// "PPWD" in the database header: this is a document.
inline constexpr std::int64_t kApplicationId = 0x50505744;

/// The version that is written, and the oldest that is read.
inline constexpr std::int64_t kVersion = 2;
inline constexpr std::int64_t kOldestVersion = 1;
/// The first version with a feature's mark "published" and with design parameters.
inline constexpr std::int64_t kFirstWithPublished = 2;

/// The late type of the first container of every document.
inline constexpr std::string_view kWordContainer = "MfgPPWordCont";

inline constexpr std::array<std::pair<Feature::Kind, std::int64_t>, 2> kFeatureKinds{{
    {Feature::Kind::StartUp, 1},
    {Feature::Kind::Instance, 2},
}};
inline constexpr std::array<std::pair<KEPISpecAttribute::Kind, std::int64_t>, 3> kAttributeKinds{{
    {KEPISpecAttribute::Kind::String, 1},
    {KEPISpecAttribute::Kind::Integer, 2},
    {KEPISpecAttribute::Kind::StringList, 3},
}};

/// Limits that keep a file from taking memory or time without bound; they hold for writing too.
inline constexpr std::int64_t kMostBytes = std::int64_t{256} << 20U;
inline constexpr std::int64_t kMostRows = 2'000'000;
inline constexpr int kMostTextBytes = 16 << 20U;
inline constexpr std::int64_t kMostContainers = 1000;
inline constexpr int kMostBaseTypes = 64;

inline constexpr std::string_view kDocumentTable =
    "CREATE TABLE document(stamp INTEGER NOT NULL,digest INTEGER NOT NULL)STRICT";
inline constexpr std::string_view kContainerTable =
    "CREATE TABLE container(id INTEGER PRIMARY KEY,late_type TEXT NOT NULL)STRICT";
inline constexpr std::string_view kFeatureTable =
    "CREATE TABLE feature(id INTEGER PRIMARY KEY,container INTEGER,kind INTEGER NOT NULL,"
    "name TEXT NOT NULL,base INTEGER,published INTEGER NOT NULL)STRICT";
inline constexpr std::string_view kFeatureTableOfVersion1 =
    "CREATE TABLE feature(id INTEGER PRIMARY KEY,container INTEGER,kind INTEGER NOT NULL,"
    "name TEXT NOT NULL,base INTEGER)STRICT";
inline constexpr std::string_view kAttributeTable =
    "CREATE TABLE attribute(feature INTEGER,position INTEGER,name TEXT NOT NULL,"
    "kind INTEGER NOT NULL,declared INTEGER NOT NULL,has_value INTEGER NOT NULL,number INTEGER,"
    "PRIMARY KEY(feature,position))STRICT,WITHOUT ROWID";
inline constexpr std::string_view kTextTable =
    "CREATE TABLE text(feature INTEGER,attribute INTEGER,position INTEGER,text TEXT NOT NULL,"
    "PRIMARY KEY(feature,attribute,position))STRICT,WITHOUT ROWID";
inline constexpr std::string_view kDesignParameterTable =
    "CREATE TABLE design_parameter(name TEXT PRIMARY KEY,value TEXT NOT NULL)STRICT,WITHOUT ROWID";

/// The statements that make a database of each version, in order.
inline constexpr std::array kSchemaOfVersion1{kDocumentTable, kContainerTable,
                                              kFeatureTableOfVersion1, kAttributeTable, kTextTable};
inline constexpr std::array kSchema{kDocumentTable,  kContainerTable, kFeatureTable,
                                    kAttributeTable, kTextTable,      kDesignParameterTable};

/// The schema of a version that can be read.
[[nodiscard]] constexpr std::span<const std::string_view> schemaOf(std::int64_t version) {
  if (version == kVersion) return kSchema;
  return kSchemaOfVersion1;
}

}  // namespace host::format
