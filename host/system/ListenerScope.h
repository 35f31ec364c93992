#pragma once

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "System/KEPPlatform.h"

namespace host {

/// Installs a listener in the session while it lives. A listener that was installed before gets
/// every call too, after the new one, and is the session's listener again at the end. Scopes nest:
/// the one that began last ends first.
///
///   Listener listener;
///   {
///     const host::ListenerScope scope(listener);
///     words->LoadPPWordTable(path);
///   }
class KEP_PLATFORM ListenerScope final : private KEPMfgPPWordListener {
 public:
  /// The listener must outlive the scope.
  explicit ListenerScope(KEPMfgPPWordListener& listener);
  ListenerScope(const ListenerScope&) = delete;
  ListenerScope& operator=(const ListenerScope&) = delete;
  ~ListenerScope() override;

 private:
  void LineAfterPass(Pass pass, std::string_view line) override;
  [[nodiscard]] bool ReceivesLines() const override;
  void ReferenceLookedUp(std::string_view name, const KEPBaseUnknown* type,
                         const KEPBaseUnknown* evaluation) override;
  void ValueFound(const KEPMfgParameterValue& value, const KEPUnicodeString* format) override;
  void ReferenceReplaced(std::string_view name, Source source, std::string_view text) override;
  void TextDropped(std::string_view name, std::string_view text) override;
  void OperationEnded(Operation outcome, std::string_view operation,
                      std::string_view result) override;
  void TableEntry(Section section, int number, std::string_view name, Outcome outcome) override;
  void ValueLacking(Lack why) override;
  void GenerationFormatUsed(const KEPUnicodeString& format) override;

  KEPMfgPPWordListener& listener_;
  KEPMfgPPWordListener* previous_;
};

}  // namespace host
