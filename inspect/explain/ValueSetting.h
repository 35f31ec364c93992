#pragma once

#include <string>
#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "host/manufacturing/Activity.h"
#include "host/modeler/Document.h"

namespace host {

/// A value that a user sets for a name: NAME=number, NAME:int=number, NAME:text=text, or
/// NAME:design=number for a design parameter.
struct ValueSetting {
  std::string name;
  KEPMfgParameterValue value;
  bool isDesign = false;
};

/// Reads a setting. False, with `reason` set, when it is none.
[[nodiscard]] bool readSetting(std::string_view text, ValueSetting& setting, std::string& reason);

/// Writes the value into the document, as a design parameter, or to the activity. A number of a
/// parameter that prints a value of a motion buffer, such as MFG_XPOINT or MFG_FEED_VALUE, goes to
/// the buffer too, and so does the text of MFG_OUTPUT_COMMENT.
void applySetting(const ValueSetting& setting, Document& document, Activity& activity);

}  // namespace host
