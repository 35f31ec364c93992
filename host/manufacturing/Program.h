#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "Manufacturing/KEPIMfgActivity.h"
#include "Manufacturing/KEPIMfgProgram.h"
#include "Manufacturing/KEPIMfgSetup.h"
#include "host/modeler/Document.h"

namespace host {

/// The setup of a part on a machine.
class KEP_PLATFORM Setup final : public KEPIMfgSetup {
 public:
  /// A setup on `resource` (null: on no machine yet).
  [[nodiscard]] static KEPVar<Setup> create(KEPIMfgResource_var resource);

  [[nodiscard]] KEPIMfgResource_var GetResource() const override { return resource_; }

 private:
  explicit Setup(KEPIMfgResource_var resource) : resource_(std::move(resource)) {}
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;

  KEPIMfgResource_var resource_;
};

/// A program of a document; it is an activity too.
class KEP_PLATFORM Program final : public KEPIMfgProgram {
 public:
  /// A program that holds its document and its setup; either may be null.
  [[nodiscard]] static KEPVar<Program> create(std::string_view name, KEPVar<Document> document,
                                              KEPIMfgSetup_var setup);

  [[nodiscard]] const KEPVar<Document>& document() const noexcept { return document_; }
  [[nodiscard]] const KEPIMfgSetup_var& setup() const noexcept { return setup_; }

 private:
  class AsActivity final : public KEPIMfgActivity {
   public:
    AsActivity(Program& owner, std::string_view name) : name_(name) { BindTo(owner); }
    [[nodiscard]] KEPUnicodeString GetName() const override { return {name_}; }
    HRESULT GetToolAndAssembly(KEPBaseUnknown_var& tool,
                               KEPBaseUnknown_var& assembly) const override;

   private:
    std::string name_;
  };

  Program(std::string_view name, KEPVar<Document> document, KEPIMfgSetup_var setup)
      : activity_(*this, name), document_(std::move(document)), setup_(std::move(setup)) {}
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;

  AsActivity activity_;
  KEPVar<Document> document_;
  KEPIMfgSetup_var setup_;
};

}  // namespace host
