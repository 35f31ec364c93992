#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "KEPIMfgPPCommand.h"
#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPIMfgRootContainer.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "host/modeler/Container.h"
#include "host/system/TextHash.h"

namespace host {

/// A manufacturing document: a root container and the PP word container, and the design parameters
/// that expressions may use. It lives in memory.
class KEP_PLATFORM Document final : public ContainerOwner {
 public:
  /// A document whose PP word container holds the type MfgPPCommand and nothing else. Whoever made
  /// it holds the first handle; containers and features die with the document, except those that
  /// handles still hold, which then belong to no container.
  [[nodiscard]] static KEPVar<Document> create();
  /// The same with nothing in its PP word container, for who fills it from a file.
  [[nodiscard]] static KEPVar<Document> createEmpty();

  ~Document() override;

  [[nodiscard]] bool NeedsUpgrade() const override { return needsUpgrade_; }
  void setNeedsUpgrade(bool needed) noexcept;

  [[nodiscard]] KEPIMfgRootContainer_var rootContainer() const { return root_; }
  /// The PP word container as the feature modeler sees it.
  [[nodiscard]] KEPIContainer_var features() const { return KEPIContainer_var(ppWords_.Get()); }
  /// The PP word container as the module serves it; null when the module is not loaded.
  [[nodiscard]] KEPIMfgPPWordContainer_var ppWordContainer() const { return {ppWords_}; }

  /// Sets a design parameter that "%(" expressions may name.
  void setDesignParameter(std::string_view name, double value);
  /// Creates a further container, which lives as long as the document; the PP word container is the
  /// first.
  Container& addContainer(std::string_view lateType);
  [[nodiscard]] const TextMap<double>& designParameters() const noexcept {
    return designParameters_;
  }

  /// The mark of the stored state that the document was opened from or saved as; 0 for none.
  [[nodiscard]] std::int64_t storedStamp() const noexcept { return storedStamp_; }
  void setStoredStamp(std::int64_t stamp) noexcept { storedStamp_ = stamp; }

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

  KEPVar<Root> root_;
  KEPVar<Container> ppWords_;
  std::vector<KEPVar<Container>> furtherContainers_;
  TextMap<double> designParameters_;
  bool needsUpgrade_ = false;
  std::int64_t storedStamp_ = 0;
};

/// A new document with the default catalogue. The module must be loaded; otherwise the null-handle
/// error is raised.
[[nodiscard]] KEP_PLATFORM KEPVar<Document> newDocument();

/// A document with the content of another one: its containers, features, attributes and design
/// parameters. Values that the module holds outside of features (motion buffers, current objects)
/// are those of a new document. It comes from no file. The original does not change and may end.
[[nodiscard]] KEP_PLATFORM KEPVar<Document> copyOf(const Document& document);

/// The PP commands of a document, each an instance in its PP word container, in the order of their
/// creation. They have no name of their own: a command is known by its position here, from 1.
[[nodiscard]] KEP_PLATFORM std::vector<KEPIMfgPPCommand_var> ppCommands(const Document& document);

/// How many sequences an NC instruction has: its attributes without those of the modeler itself.
[[nodiscard]] KEP_PLATFORM int sequenceCount(const KEPISpecObject_var& instruction);

}  // namespace host
