#include "tools/ppword/view/Page.h"

#include <array>
#include <charconv>
#include <nlohmann/json.hpp>
#include <string_view>

#include "tools/ppword/view/Columns.h"

namespace {

// As a policy names a block that may run or be used.
std::string sourceOf(const ViewFile& file) {
  std::string bytes;
  for (std::size_t at = 0; at < file.digest.size(); at += 2) {
    unsigned byte = 0;
    const char* const digits = file.digest.data() + at;
    std::from_chars(digits, digits + 2, byte, 16);
    bytes += static_cast<char>(byte);
  }
  return " 'sha256-" + base64(bytes) + "'";
}

std::string policy() {
  std::string text = "default-src 'none'; base-uri 'none'; form-action 'none'; script-src";
  for (const ViewFile& script : viewScripts()) text += sourceOf(script);
  return text + "; style-src" + sourceOf(viewStyle());
}

std::string element(std::string_view opening, std::string_view text, std::string_view closing) {
  return ((std::string(opening) += text) += closing);
}

std::string scripts() {
  std::string text;
  for (const ViewFile& script : viewScripts()) {
    text += element("<script>", script.text, "</script>\n");
  }
  return text;
}

// In JSON "<" is in texts only, where it can be written otherwise. Everything else that begins
// markup begins with it, and all characters beyond ASCII are written as numbers.
std::string dataText(const Json& data) {
  const std::string json = data.dump(-1, ' ', true);
  std::string text;
  text.reserve(json.size());
  for (const char byte : json) byte == '<' ? text += "\\u003c" : text += byte;
  return text;
}

}  // namespace

bool canDraw() { return !viewScripts().empty(); }

std::string pageOf(const Json& data) {
  const std::array<std::pair<std::string_view, std::string>, 5> parts{{
      {"@POLICY@", policy()},
      {"@STYLE@", element("<style>", viewStyle().text, "</style>")},
      {"@LICENCE@",
       element("<script type=\"text/plain\" id=\"licence\">", viewLicence().text, "</script>")},
      {"@DATA@",
       element("<script type=\"application/json\" id=\"data\">", dataText(data), "</script>")},
      {"@SCRIPTS@", scripts()},
  }};
  const std::string_view page = viewPage().text;
  std::string text;
  std::size_t at = 0;
  for (const auto& [mark, part] : parts) {
    const std::size_t place = page.find(mark, at);
    (text += page.substr(at, place - at)) += part;
    at = place + mark.size();
  }
  return text += page.substr(at);
}
