#pragma once

#include <set>
#include <string_view>

#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPIMfgRootContainer.h"
#include "ObjectSpecsModeler/KEPIDocument.h"
#include "host/modeler/Container.h"
#include "host/system/TextHash.h"

namespace host {

/// A manufacturing document: a root container and the PP word container, and the design parameters
/// that expressions may use. It lives in memory.
class KEP_PLATFORM Document final : public KEPIDocument {
 public:
  /// A document whose PP word container holds the type MfgPPCommand and nothing else. Whoever made
  /// it holds the first handle; containers and features die with the document, except those that
  /// handles still hold, which then belong to no container.
  [[nodiscard]] static KEPVar<Document> create();

  ~Document() override;

  [[nodiscard]] bool NeedsUpgrade() const override { return needsUpgrade_; }
  void setNeedsUpgrade(bool needed) noexcept { needsUpgrade_ = needed; }

  [[nodiscard]] KEPIMfgRootContainer_var rootContainer() const { return root_; }
  /// The PP word container as the feature modeler sees it.
  [[nodiscard]] KEPIContainer_var features() const { return KEPIContainer_var(ppWords_.Get()); }
  /// The PP word container as the module serves it; null when the module is not loaded.
  [[nodiscard]] KEPIMfgPPWordContainer_var ppWordContainer() const { return {ppWords_}; }

  /// Sets a design parameter that "%(" expressions may name.
  void setDesignParameter(std::string_view name, double value);
  /// A container belongs to the document from its making until it closes.
  void add(Container& container) { containers_.insert(&container); }
  void remove(Container& container) noexcept { containers_.erase(&container); }

  [[nodiscard]] const TextMap<double>& designParameters() const noexcept {
    return designParameters_;
  }

 private:
  Document();
  [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;

  class Root final : public KEPIMfgRootContainer {
   public:
    explicit Root(Document& document) : document_(&document) {}
    [[nodiscard]] KEPVar<KEPIMfgPPWordContainer> GetPPWordContainer() const override;
    void close() noexcept { document_ = nullptr; }

   private:
    [[nodiscard]] KEPBaseUnknown* Answer(const KEPMetaClass* interfaceClass) override;
    Document* document_;
  };

  std::set<Container*> containers_;
  KEPVar<Root> root_;
  KEPVar<Container> ppWords_;
  TextMap<double> designParameters_;
  bool needsUpgrade_ = false;
};

/// A new document with the default catalogue. The module must be loaded; otherwise the null-handle
/// error is raised.
[[nodiscard]] KEP_PLATFORM KEPVar<Document> newDocument();

}  // namespace host
