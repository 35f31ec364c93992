#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tools/ppword/Json.h"

/// A file that is a part of every page, and the SHA-256 digest of its bytes in hexadecimal digits.
struct ViewFile {
  std::string_view text;
  std::string_view digest;
};

// The files of tools/ppword/view/page and those of the library that draws, as they were when the
// program was built (EmbedPage.cmake).

/// The page with marks such as @DATA@ where the other parts belong.
[[nodiscard]] ViewFile viewPage();
[[nodiscard]] ViewFile viewStyle();
/// In the order in which they run; none when the program was built without the library.
[[nodiscard]] std::span<const ViewFile> viewScripts();
/// The licence of the library.
[[nodiscard]] ViewFile viewLicence();

/// True when the program was built with the library that draws.
[[nodiscard]] bool canDraw();

/// The page that shows `data`: a document that needs no other file. Its policy allows the scripts
/// and the style of the program, by their digests, and nothing else. No text of the data can end
/// the block that it is in.
[[nodiscard]] std::string pageOf(const Json& data);
