#pragma once

#include "Manufacturing/KEPMfgPPWordListener.h"
#include "language/syntax/LineObserver.h"

namespace ppword {

// The two lists of passes, and of what becomes of an operation, are the same.
static_assert(static_cast<std::size_t>(Pass::UnmaskEscapes) + 1 ==
              KEPMfgPPWordListener::kPasses.size());
static_assert(static_cast<int>(Pass::WordGroups) ==
              static_cast<int>(KEPMfgPPWordListener::Pass::WordGroups));
static_assert(static_cast<int>(OperationEnd::Deleted) ==
              static_cast<int>(KEPMfgPPWordListener::Operation::Deleted));

/// Passes on to a listener of the platform what happens to a line.
class ListenedLine final : public LineObserver {
 public:
  /// `listener` is not null when the object is used, and outlives it.
  explicit ListenedLine(KEPMfgPPWordListener* listener) : listener_(listener) {}

  [[nodiscard]] bool receivesLines() const override { return listener_->ReceivesLines(); }
  void lineAfterPass(Pass pass, std::string_view line) override {
    listener_->LineAfterPass(static_cast<KEPMfgPPWordListener::Pass>(pass), line);
  }
  void operationEnded(OperationEnd end, std::string_view operation,
                      std::string_view result) override {
    listener_->OperationEnded(static_cast<KEPMfgPPWordListener::Operation>(end), operation, result);
  }

 private:
  KEPMfgPPWordListener* listener_;
};

}  // namespace ppword
