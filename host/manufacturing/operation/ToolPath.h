#pragma once

#include "Manufacturing/KEPIMfgToolPath.h"
#include "host/manufacturing/ActivityValues.h"
#include "host/manufacturing/model/ModelObject.h"

namespace host {

/// A tool path that knows its type, or does not.
class Traject final : public ModelExtension<Traject, KEPIMfgTraject> {
 public:
  explicit Traject(const ToolPathValues& values) : type_(values.type) {}

  HRESULT GetType(bool& known, int& type) const override {
    known = type_.has_value();
    type = type_.value_or(type);
    return S_OK;
  }

 private:
  std::optional<int> type_;
};

/// The tool path of an operation that has one.
class ToolPathManagement final
    : public ModelExtension<ToolPathManagement, KEPIMfgToolPathManagement> {
 public:
  explicit ToolPathManagement(const ActivityValues& values) {
    if (values.toolPath) path_ = makeModelObject(model::kToolPath, *values.toolPath);
  }

  HRESULT GetToolPath(KEPIMfgTraject_var& path) const override {
    path = path_;
    return path ? S_OK : E_FAIL;
  }

 private:
  KEPBaseUnknown_var path_;
};

}  // namespace host
