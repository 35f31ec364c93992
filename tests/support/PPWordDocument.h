#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "host/manufacturing/Activity.h"
#include "host/modeler/Document.h"

namespace ppword::test {

using Texts = std::vector<std::string>;

inline Texts texts(const KEPListValKEPUnicodeString& list) {
  Texts result;
  for (const KEPUnicodeString& text : list) result.emplace_back(text.View());
  return result;
}

inline KEPListValKEPUnicodeString list(const Texts& items) {
  KEPListValKEPUnicodeString result;
  for (const std::string& item : items) result.Append(KEPUnicodeString(std::string_view(item)));
  return result;
}

/// A document whose PP word container holds the three roots and what the test adds.
class PPWordDocument {
 public:
  PPWordDocument() {
    make("MfgPPWordRoot", "");
    make("MfgPPSyntax", "MfgPPWordRoot");
    make("MfgPPParameter", "MfgPPWordRoot");
  }

  [[nodiscard]] KEPISpecObject_var find(std::string_view name) const {
    return KEPISpecObject_var::Adopt(features->FindStartUp(name));
  }
  KEPISpecObject_var make(std::string_view name, std::string_view base) const {
    return KEPISpecObject_var::Adopt(features->CreateStartUp(name, find(base)));
  }
  /// A parameter type with a format.
  void format(std::string_view name, std::string_view format) const {
    const KEPISpecAttrAccess_var type = make(name, "MfgPPParameter");
    type->AddAttribute("Format", KEPISpecAttribute::Kind::String);
    type->SetString("Format", format);
  }
  /// An NC instruction with the lines of "Syntaxe".
  KEPISpecObject_var instruction(std::string_view name, const Texts& lines) const {
    KEPISpecObject_var type = make(name, "MfgPPSyntax");
    const KEPISpecAttrAccess_var attributes = type;
    attributes->AddAttribute("Syntaxe", KEPISpecAttribute::Kind::StringList);
    attributes->SetList("Syntaxe", list(lines));
    return type;
  }
  /// An NC instruction that declares these attributes without values, in this order; the modeler's
  /// bookkeeping attributes begin with "$".
  KEPISpecAttrAccess_var declared(std::string_view name, const Texts& attributes) const {
    using Kind = KEPISpecAttribute::Kind;
    KEPISpecAttrAccess_var type = make(name, "MfgPPSyntax");
    for (const std::string& attribute : attributes) {
      type->AddAttribute(attribute, attribute.starts_with('$') ? Kind::String : Kind::StringList);
    }
    return type;
  }
  /// Makes an activity the one that the document is generating.
  [[nodiscard]] KEPVar<host::Activity> activity() const {
    KEPVar<host::Activity> made = host::Activity::create("Pocket.1");
    words->SetObjects(made);
    return made;
  }

  KEPVar<host::Document> document = host::Document::create();
  KEPIContainer_var features = document->features();
  KEPIMfgPPWordContainer_var words = document->ppWordContainer();
};

}  // namespace ppword::test
