#pragma once

#include "src/container/KEPMfgPPWordContainer.h"

/// Serves KEPIMfgPPWordContainer: owns a KEPMfgPPWordContainer and forwards every operation to it.
class KEPMfgPPWordContainerTie final : public KEPIMfgPPWordContainer {
 public:
  /// Both this object and the one it owns become extensions of `extended`.
  explicit KEPMfgPPWordContainerTie(KEPBaseUnknown& extended) {
    BindTo(extended);
    object_.BindTo(extended);
  }

  [[nodiscard]] const KEPMetaClass* GetMetaObject() const override {
    return object_.GetMetaObject();
  }

  [[nodiscard]] KEPISpecObject* FindPPWord(const KEPString& name) override {
    return object_.FindPPWord(name);
  }
  void GetPPWord(KEPISpecObject_var& word, const KEPString& name) override {
    object_.GetPPWord(word, name);
  }
  HRESULT Refresh() override { return object_.Refresh(); }
  HRESULT Initialize(bool skipAttributeUpgrade) override {
    return object_.Initialize(skipAttributeUpgrade);
  }
  bool SetObjects(const KEPBaseUnknown_var& object) override { return object_.SetObjects(object); }
  bool GetFirstObject(KEPBaseUnknown_var& object) override {
    return object_.GetFirstObject(object);
  }
  void GetPPCommand(KEPIMfgPPCommand_var& command, const KEPUnicodeString& name) override {
    object_.GetPPCommand(command, name);
  }
  void GetSyntaxEvaluation(KEPIMfgSyntaxEvaluation_var& evaluation,
                           const KEPUnicodeString& name) override {
    object_.GetSyntaxEvaluation(evaluation, name);
  }
  HRESULT LoadPPWordTable(const KEPUnicodeString& path) override {
    return object_.LoadPPWordTable(path);
  }
  HRESULT SetUserSyntax(const KEPUnicodeString& line) override {
    return object_.SetUserSyntax(line);
  }
  HRESULT SetSecondObject(const KEPBaseUnknown_var& object) override {
    return object_.SetSecondObject(object);
  }
  HRESULT GetSecondObject(KEPBaseUnknown_var& object) override {
    return object_.GetSecondObject(object);
  }
  HRESULT ResetToDefault() override { return object_.ResetToDefault(); }

 private:
  KEPMfgPPWordContainer object_;
};
