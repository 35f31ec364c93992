#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "post/listing/LengthUnit.h"

namespace host {

class Document;

/// The NC instructions that only a listing asks for: no row of the default catalogue has them.
inline constexpr std::string_view kListingInstructions[] = {"NC_COOLANT", "NC_PROGRAM_STOP",
                                                            "NC_OPTIONAL_STOP"};

/// What an NC_ORIGIN prints of a coordinate system.
struct OriginWords {
  /// MFG_ORIGIN_NUMBER.
  bool number = false;
  /// MFG_NCAXIS_X_ORIG, MFG_NCAXIS_Y_ORIG and MFG_NCAXIS_Z_ORIG.
  bool coordinates = false;
  /// MFG_NCAXIS_X_VECX and MFG_NCAXIS_Y_VECX.
  bool rotation = false;
};

/// What the NC instructions of a document can express of a listing, besides what every one can.
struct Vocabulary {
  /// The unit that the words of feed rates name (MMPM, IPM, MMPR, IPR), and those of surface speeds
  /// (SMM: metres, SFM: feet); nothing where NC_FEEDRATE or NC_SPINDLE_START takes no such word
  /// from MFG_FEED_UNIT or MFG_SPNDL_UNIT.
  std::optional<LengthUnit> feedPerMinute;
  std::optional<LengthUnit> feedPerRevolution;
  std::optional<LengthUnit> surfaceSpeed;
  /// Whether there are NC_COOLANT with its three sequences, NC_PROGRAM_STOP, NC_OPTIONAL_STOP.
  bool coolant = false;
  bool programStop = false;
  bool optionalStop = false;
  /// As writesBareTexts() says.
  bool bareTexts = false;
  /// Whether a table has an NC_START_MACRO of its own.
  bool startMacro = false;
  /// What the NC_ORIGIN of a table prints; nothing if no table has one of its own.
  std::optional<OriginWords> origin;
  /// Whether a line of an instruction refers to MFG_UNIT.
  bool unit = false;
};

/// What the vocabulary of a document does not say, but that of a table that it has loaded does.
struct TableWords {
  /// The major words with text.
  std::vector<std::string> textWords;
  bool startMacro = false;
  bool origin = false;
};

/// Whether a document's NC_OUTPUT_COMMENT writes texts as statements: without a word before them
/// that readers take for a comment, of their own or of a table's.
[[nodiscard]] bool writesBareTexts(const Document& document,
                                   const std::vector<std::string>& textWords);

/// The vocabulary of a document in its current state.
[[nodiscard]] Vocabulary vocabularyOf(const Document& document, const TableWords& table = {});

}  // namespace host
