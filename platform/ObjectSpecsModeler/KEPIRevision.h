#pragma once

#include <cstdint>

#include "System/KEPComponent.h"

/// How often the application changed anything that can be found through a container: an optional
/// interface of containers. With it the module stores what it found in a document, and looks it up
/// again only when the count differs; with a container that does not offer it the module looks
/// everything up again at each use. The results are the same.
///
/// An application that offers the interface has one counter in the process, for all documents, and
/// raises it
///   - when a type or an instance is created, removed from its container, or ends;
///   - when an attribute of one is declared, written or unset, whoever does it;
///   - when a container or a document is closed, or ends;
///   - by KEPMetaClass::Extend and KEPFillDictionary;
///   - when the data of the running generation change, as far as the application stores them.
/// It is raised before code of somebody else can run with the change, such as the destructor of an
/// extension. To raise it once more than necessary costs time only. Not counted are values that
/// the module asks for at each use: motion buffers, the first and second object of a PP word
/// container, the parameters of activities, and what a generation answers.
///
/// For example, in code that stores a pointer `format` into an attribute:
///
///     const KEPIRevision::Count& count = revision->GetCount();
///     if (count != storedCount) { storedCount = count; format = findFormat(); }
///
/// The comparison comes before every use of the pointer: code that was called in between may have
/// changed the document.
class KEP_PLATFORM KEPIRevision : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIRevision";

  using Count = std::uint64_t;

  /// The counter of the process, which is never 0 and never less than before. It is the same object
  /// for every container, and lives as long as the process.
  [[nodiscard]] virtual const Count& GetCount() const = 0;
};
