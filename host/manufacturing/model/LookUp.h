#pragma once

#include "System/KEPResult.h"

namespace host {

/// Gives the value that a map holds for a key; E_FAIL, with `value` untouched, when it holds none.
template <class Map, class Key, class Value>
HRESULT lookUp(const Map& map, const Key& key, Value& value) {
  const auto found = map.find(key);
  if (found == map.end()) return E_FAIL;
  value = found->second;
  return S_OK;
}

}  // namespace host
