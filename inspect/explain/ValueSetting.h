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

/// Writes the value into the document, as a design parameter, or to the activity. A real value of a
/// coordinate of the point or the tool axis, such as MFG_XPOINT, goes to its motion buffer.
void applySetting(const ValueSetting& setting, Document& document, Activity& activity);

}  // namespace host
