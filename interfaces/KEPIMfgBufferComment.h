#pragma once

#include "System/KEPComponent.h"
#include "System/KEPString.h"

/// The current comment.
class KEP_PLATFORM KEPIMfgBufferComment : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgBufferComment";

  /// Empty until set; bytes are stored unchanged.
  virtual void SetComment(const KEPString& comment) = 0;
  virtual void GetComment(KEPString& comment) const = 0;
};

using KEPIMfgBufferComment_var = KEPVar<KEPIMfgBufferComment>;
