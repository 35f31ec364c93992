#pragma once

#include <map>
#include <string>

#include "Manufacturing/KEPIMfgResource.h"
#include "Manufacturing/KEPIMfgTool.h"
#include "Manufacturing/KEPIMfgToolAssembly.h"
#include "host/manufacturing/ParameterTable.h"

// What a tool, the assembly that holds it and its insert offer.

namespace host {

/// The correctors of a tool.
class ToolCompensation final : public ModelExtension<ToolCompensation, KEPIMfgToolCompensation> {
 public:
  using Points = std::map<int, std::string>;
  explicit ToolCompensation(const Points& points) : points_(points) {}

  HRESULT GetOutputPoint(int corrector, KEPUnicodeString& outputPoint) const override {
    return lookUp(points_, corrector, outputPoint);
  }

 private:
  const Points& points_;
};

/// Where the points of a tool lie, for whatever activity works with it.
class ToolReplay final : public ModelExtension<ToolReplay, KEPIMfgToolCompensationValueReplay> {
 public:
  using Positions = std::map<int, KEPMathVector>;
  explicit ToolReplay(const Positions& positions) : positions_(positions) {}

  HRESULT GetPosition(const KEPIMfgActivity_var& /*activity*/, int point,
                      KEPMathVector& position) const override {
    return lookUp(positions_, point, position);
  }

 private:
  const Positions& positions_;
};

/// What holds a tool, with its insert.
class ToolAssembly final : public NamedTable<ToolAssembly, KEPIMfgToolAssembly> {
 public:
  explicit ToolAssembly(const ToolAssemblyValues& values) : NamedTable(values.attributes) {
    if (values.insert) insert_ = createModelObject(model::kInsert, *values.insert);
  }

  [[nodiscard]] KEPBaseUnknown_var GetInsert() const override { return insert_; }

 private:
  KEPBaseUnknown_var insert_;
};

/// A marker: the assembly is that of a turning tool.
class LatheToolAssembly final : public ModelExtension<LatheToolAssembly, KEPIMfgLatheToolAssembly> {
 public:
  explicit LatheToolAssembly(const ToolAssemblyValues& /*values*/) {}
};

/// The number of a corrector and, in the assembly of a turning tool, of the point that its setting
/// values refer to.
class LatheRefCompensation final
    : public ModelExtension<LatheRefCompensation, KEPIMfgLatheRefCompensation> {
 public:
  explicit LatheRefCompensation(int number) : number_(number) {}

  HRESULT GetNumber(int& number) const override {
    number = number_;
    return S_OK;
  }

 private:
  int number_;
};

/// The radii of the cutting edge, for whatever activity works with it.
class LatheToolInsertUtilities final
    : public ModelExtension<LatheToolInsertUtilities, KEPIMfgLatheToolInsertUtilities> {
 public:
  using Radii = std::map<std::string, double, std::less<>>;
  explicit LatheToolInsertUtilities(const Radii& radii) : radii_(radii) {}

  HRESULT GetRadius(const KEPIMfgActivity_var& /*activity*/, const KEPUnicodeString& outputPoint,
                    double& radius) const override {
    return lookUp(radii_, outputPoint.View(), radius);
  }

 private:
  const Radii& radii_;
};

/// An insert as something that a program works with.
class InsertResource final : public ModelExtension<InsertResource, KEPIMfgResource> {
 public:
  explicit InsertResource(const InsertValues& values) : type_(values.type) {}

  [[nodiscard]] KEPUnicodeString GetResourceType() const override { return type_; }
  /// An insert has no texts by name.
  [[nodiscard]] HRESULT GetValue(std::string_view /*name*/,
                                 KEPUnicodeString& /*value*/) const override {
    return E_FAIL;
  }

 private:
  KEPUnicodeString type_;
};

}  // namespace host
