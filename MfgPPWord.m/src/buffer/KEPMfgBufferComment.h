#pragma once

#include "KEPIMfgBufferComment.h"
#include "src/registration/Registered.h"

/// Stores the values of KEPIMfgBufferComment.
class KEPMfgBufferComment final
    : public ppword::Registered<KEPMfgBufferComment, KEPIMfgBufferComment> {
 public:
  void SetComment(const KEPString& comment) override { comment_ = comment; }
  void GetComment(KEPString& comment) const override { comment = comment_; }

 private:
  KEPString comment_;
};
