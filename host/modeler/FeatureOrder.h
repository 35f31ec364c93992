#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

#include "host/modeler/Feature.h"

namespace host {

class Container;

/// The features of a document in an order in which they can be created again: base types before
/// those that derive from them, and those of one container in the order of their creation.
class FeatureOrder {
 public:
  struct Entry {
    const Feature* feature;
    /// The places, from 0, of its container among the containers and of its base type here;
    /// nothing for a type that was removed, and for a feature without a base type.
    std::optional<std::size_t> container;
    std::optional<std::size_t> base;
    /// How many types are above it.
    int depth;
  };

  /// Takes the containers of a document, which must not change while the object exists.
  explicit FeatureOrder(const std::vector<Container*>& containers);

  [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return entries_; }

 private:
  struct Members {
    std::vector<const Feature*> features;
    std::size_t next = 0;
  };
  using Place = std::optional<std::size_t>;

  void addNext(std::size_t home);
  void addBase(const Feature& base);
  void append(const Feature& feature, Place home);

  std::unordered_map<const KEPIContainer*, std::size_t> homes_;
  std::vector<Members> members_;
  std::vector<Entry> entries_;
  std::unordered_map<const Feature*, std::size_t> places_;
};

}  // namespace host
