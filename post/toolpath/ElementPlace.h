#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

/// A place of a tool path as a user writes it, FILE:LINE or FILE:LINE:POINT. Both count from 1.
struct ElementPlace {
  std::string file;
  long line = 0;
  long point = 1;
};

/// Nothing for another text. Of a file name that ends with a colon and a number the place needs
/// its POINT too.
[[nodiscard]] std::optional<ElementPlace> readElementPlace(std::string_view text);

}  // namespace host
