#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ppword {

class PlainFixed;

/// A print format for one number, checked. Formats come from documents and table files, so they are
/// parsed and never handed to a printf. Accepted: literal text, "%%", and at most one conversion of
/// e E f F g G a A with flags of "-+ #0", a width and a precision of at most three digits each, and
/// an "l" that has no effect (ISO C 7.21.6.1). The object refers to the text that it was parsed
/// from.
class NumberFormat {
 public:
  /// Nothing when the text is not such a format.
  [[nodiscard]] static std::optional<NumberFormat> parse(std::string_view text);

  /// Appends `value`, which must be finite, as printf prints it in the C locale, byte for byte,
  /// under every locale.
  void append(double value, std::string& out) const;

  [[nodiscard]] bool hasConversion() const noexcept { return conversion_ != 0; }
  /// True when the format has text beside its conversion.
  [[nodiscard]] bool hasLiteral() const noexcept { return !before_.empty() || !after_.empty(); }

 private:
  std::string_view before_;
  std::string_view after_;
  char conversion_ = 0;
  bool left_ = false;
  bool plus_ = false;
  bool blank_ = false;
  bool alternate_ = false;
  bool zero_ = false;
  int width_ = 0;
  int precision_ = -1;

  [[nodiscard]] bool read(std::string_view text);
  /// Reads what follows a "%"; returns the place after it, null when it is not a conversion of
  /// one double.
  [[nodiscard]] const char* readConversion(const char* at, const char* end);
  /// Takes a character for a flag; false, with nothing changed, when it is not one.
  bool readFlag(char character);
  /// Writes sign, "0x" and padding in front of `length` digits; returns the first character.
  [[nodiscard]] char* writeInFront(bool isNegative, char conversion, std::size_t length,
                                   char* digits) const;
  void appendNumber(double value, std::string& out) const;
};

/// The rule by which every number of the module is printed: an absolute value below 1e-6 becomes
/// 0, the format applies, and the first "," of the whole text becomes ".". A format without a
/// conversion prints as it is. Sets `text`; false, with `text` untouched, when the format is
/// not acceptable or the value not finite.
[[nodiscard]] bool printNumber(std::string_view format, double value, std::string& text);
[[nodiscard]] bool printNumber(PlainFixed format, double value, std::string& text);

/// True for a format that prints numbers: an acceptable one with a conversion. One without prints
/// every number alike.
[[nodiscard]] bool printsNumbers(std::string_view format);

}  // namespace ppword
