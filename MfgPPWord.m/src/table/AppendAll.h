#pragma once

#include <string>
#include <utility>
#include <vector>

#include "System/KEPList.h"

namespace ppword {

/// Appends texts to a list of the platform.
inline void appendAll(std::vector<std::string> texts, KEPListValKEPString& list) {
  for (std::string& text : texts) list.Append(std::move(text));
}

}  // namespace ppword
