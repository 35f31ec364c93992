#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "host/modeler/Document.h"

namespace ppword::test {

/// A feature as text: «NAME : BASE» and an indented line for each attribute value, or «NAME unset».
[[nodiscard]] std::string entryOf(const KEPISpecObject_var& feature);

/// The entries of a container's types and instances in creation order.
[[nodiscard]] std::vector<std::string> listing(const KEPIContainer_var& container);

/// The entries of the written-out default catalogue, the three roots first.
[[nodiscard]] std::vector<std::string> writtenOutCatalogue();

/// The counts of references of a document, its container and every member.
struct References {
  int document;
  int container;
  std::vector<int> members;
  friend bool operator==(const References&, const References&) = default;
};
[[nodiscard]] References referencesOf(const KEPVar<host::Document>& document);
std::ostream& operator<<(std::ostream& out, const References& references);

}  // namespace ppword::test
