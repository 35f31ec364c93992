#pragma once

#include "ObjectSpecsModeler/KEPIRevision.h"

namespace host {

/// The counter of KEPIRevision: one for the process, raised by
///   Feature           when it ends, and before each write to its attributes, even one that fails
///   Container         when a member is added or removed, and when it closes
///   Document          when it ends or gets a container, and when one of its own values is set
///   KEPMetaClass, KEPFillDictionary
///                     when the dictionary changes
///   GeneratorData     when the data of the running generation change
/// Reading raises nothing, and neither do the motion buffers and the current activity, which are
/// read at each use.
/// A class that changes something which can be found through a container raises it first: nothing
/// that was found before is used afterwards, not even by code that the change itself calls.
class Revision {
 public:
  static void raise() noexcept { ++count_; }

  /// Lives as long as the process; never 0.
  [[nodiscard]] static const KEPIRevision::Count& count() noexcept { return count_; }

 private:
  // Sources of this library only: there is one of it.
  static inline KEPIRevision::Count count_ [[gnu::visibility("hidden")]] = 1;
};

}  // namespace host
