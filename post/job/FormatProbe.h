#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/modeler/Document.h"

namespace host {

/// Tells how the module prints a number with a format, by asking it: a document of its own
/// evaluates a radius with that format. The module must be loaded.
class FormatProbe {
 public:
  FormatProbe();

  /// False for a format that cannot print a number, and for one that prints every number alike: one
  /// without a conversion.
  [[nodiscard]] bool showsNumbers(std::string_view format) const;
  /// Nothing when the format cannot print the number.
  [[nodiscard]] std::optional<std::string> printed(double number, std::string_view format) const;

  /// The document that is asked, with the default catalogue.
  [[nodiscard]] const Document& document() const { return *document_; }

 private:
  KEPVar<Document> document_;
};

}  // namespace host
