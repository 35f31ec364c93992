#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "System/KEPPlatform.h"
#include "host/modeler/Container.h"
#include "host/modeler/Document.h"
#include "tests/container/Listing.h"

namespace ppword::test {

/// What came of initialising a container that held the type of the PP commands.
struct Initialised {
  HRESULT status;
  bool published;
  /// Types that the container held afterwards: 156 with the default catalogue.
  std::size_t types;
  friend bool operator==(const Initialised&, const Initialised&) = default;
};

inline constexpr Initialised kNotPublished{S_OK, false, 156};
inline constexpr Initialised kPublished{S_OK, true, 156};
inline constexpr Initialised kSkipped{E_UNEXPECTED, false, 156};

inline std::ostream& operator<<(std::ostream& out, const Initialised& result) {
  return out << "status " << result.status << (result.published ? "" : " not") << " published "
             << result.types << " types";
}

struct Circumstances {
  bool needsUpgrade;
  bool skip;
};

/// Initialises the container of a new document under these circumstances.
inline Initialised initialised(Circumstances circumstances) {
  const auto document = host::Document::create();
  document->setNeedsUpgrade(circumstances.needsUpgrade);
  const HRESULT status = document->ppWordContainer()->Initialize(circumstances.skip);
  const KEPVar<host::Feature> command =
      KEPISpecObject_var::Adopt(document->features()->FindStartUp("MfgPPCommand"));
  return {status, command->isPublished(), listing(document->features()).size()};
}

}  // namespace ppword::test
