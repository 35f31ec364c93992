#pragma once

#include "ObjectSpecsModeler/KEPIContainer.h"
#include "ObjectSpecsModeler/KEPIRevision.h"

namespace ppword {

/// The state of the application's documents in which something was found. What was found is stored
/// beside its mark, uncounted, and is good as long as the mark is current. Whoever uses it asks
/// before each use: any code that is called in between may change a document.
///
///     if (!mark.isCurrent()) { mark.set(container); type = find(); }
///     use(type);
class RevisionMark {
 public:
  [[nodiscard]] bool isCurrent() const noexcept { return *counter_ == count_; }

  /// Marks what will be found through `container` (may be null); comes before the search, which may
  /// change the document itself. Never current for a container that counts no changes.
  void set(const KEPIContainer* container) {
    const auto* const revision = KEPBorrow<KEPIRevision>(container);
    counter_ = revision != nullptr ? &revision->GetCount() : &kNoCounter;
    count_ = revision != nullptr ? *counter_ : kNever;
  }
  /// The mark is not current any more.
  void clear() noexcept { count_ = kNever; }

  /// The counter that `set` found; one that is always 0 without a counter.
  [[nodiscard]] const KEPIRevision::Count& counter() const noexcept { return *counter_; }

 private:
  static constexpr KEPIRevision::Count kNoCounter = 0;
  static constexpr KEPIRevision::Count kNever = ~kNoCounter;

  const KEPIRevision::Count* counter_ = &kNoCounter;
  KEPIRevision::Count count_ = kNever;
};

}  // namespace ppword
