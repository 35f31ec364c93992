#pragma once

#include <string>

#include "KEPIMfgPPWordContainer.h"
#include "ObjectSpecsModeler/KEPIContainer.h"
#include "src/registration/Registered.h"
#include "src/revision/RevisionMark.h"

/// The behaviour of a PP word container, as an extension of the container component. The operations
/// are those of KEPIMfgPPWordContainer; all types live in the container.
class KEPMfgPPWordContainer final : public ppword::Registered<KEPMfgPPWordContainer> {
 public:
  [[nodiscard]] KEPISpecObject* FindPPWord(const KEPString& name);
  void GetPPWord(KEPISpecObject_var& word, const KEPString& name);
  HRESULT Refresh();
  HRESULT Initialize(bool skipAttributeUpgrade);
  bool SetObjects(const KEPBaseUnknown_var& object);
  bool GetFirstObject(KEPBaseUnknown_var& object);
  void GetPPCommand(KEPIMfgPPCommand_var& command, const KEPUnicodeString& name);
  void GetSyntaxEvaluation(KEPIMfgSyntaxEvaluation_var& evaluation, const KEPUnicodeString& name);
  HRESULT LoadPPWordTable(const KEPUnicodeString& path);
  HRESULT SetUserSyntax(const KEPUnicodeString& line);
  HRESULT SetSecondObject(const KEPBaseUnknown_var& object);
  HRESULT GetSecondObject(KEPBaseUnknown_var& object);
  HRESULT ResetToDefault();

 private:
  /// The container that this object extends; using it raises the null-handle error when the
  /// extended object is none.
  [[nodiscard]] KEPIContainer_var container() const;

  /// The instruction that was asked for last, as long as nothing has changed; not counted.
  struct LastInstruction {
    ppword::RevisionMark mark;
    std::string name;
    KEPIMfgSyntaxEvaluation* evaluation = nullptr;
  };

  LastInstruction last_;
  KEPBaseUnknown_var firstObject_;
  KEPBaseUnknown_var secondObject_;
};
