#include <array>

#include "tools/ppword/lsp/Messages.h"

namespace lsp {
namespace {

constexpr std::array<AgreedEncoding, 3> kEncodings = {
    {{"utf-8", Encoding::Utf8}, {"utf-16", Encoding::Utf16}, {"utf-32", Encoding::Utf32}}};

}  // namespace

AgreedEncoding agreedEncoding(const Json& capabilities) {
  const Json names = capabilities.value("/general/positionEncodings"_json_pointer, Json::array());
  for (const Json& name : names) {
    for (const AgreedEncoding& row : kEncodings) {
      if (name == std::string(row.name)) return row;
    }
  }
  return kEncodings[1];
}

Json capabilitiesOf(std::string_view encoding) {
  constexpr int kIncremental = 2;
  return {{"positionEncoding", std::string(encoding)},
          {"textDocumentSync", {{"openClose", true}, {"change", kIncremental}, {"save", true}}},
          {"completionProvider", {{"triggerCharacters", {"%", "&", "*"}}}},
          {"hoverProvider", true},
          {"definitionProvider", true},
          {"referencesProvider", true},
          {"documentSymbolProvider", true},
          {"codeActionProvider", {{"codeActionKinds", {"quickfix"}}}}};
}

}  // namespace lsp
