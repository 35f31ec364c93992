#pragma once

#include "KEPIMfgPPCommand.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPResult.h"
#include "System/KEPString.h"
#include "System/KEPUnicodeString.h"
#include "System/KEPVar.h"

/// The post-processor vocabulary of a document: its NC instructions, parameters and PP commands.
class KEP_PLATFORM KEPIMfgPPWordContainer : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgPPWordContainer";

  /// The type of that name, carrying one reference that the caller releases; null when there is
  /// none.
  [[nodiscard]] virtual KEPISpecObject* FindPPWord(const KEPString& name) = 0;

  /// Sets `word` to the type of that name, to null when there is none.
  virtual void GetPPWord(KEPISpecObject_var& word, const KEPString& name) = 0;

  /// Does nothing; success.
  virtual HRESULT Refresh() = 0;

  /// Publishes attributes where the document or the switch "MfgForcePublish" asks for it, then
  /// makes the default catalogue. Gives
  ///   0           nothing to publish, attributes published, or the switch "MfgNoPublish" is set
  ///   0x8000FFFF  publishing was due and `skipAttributeUpgrade` is true; the catalogue is made
  ///   0x80004005  a host error was caught; it is the last error
  virtual HRESULT Initialize(bool skipAttributeUpgrade) = 0;

  /// Sets the first and the second object; true. The container only keeps them.
  virtual bool SetObjects(const KEPBaseUnknown_var& object) = 0;
  /// Copies the first object out; true.
  virtual bool GetFirstObject(KEPBaseUnknown_var& object) = 0;

  /// Sets `command` to the type of that name as a PP command; null when it is absent or none.
  virtual void GetPPCommand(KEPIMfgPPCommand_var& command, const KEPUnicodeString& name) = 0;

  /// Sets `evaluation` to the syntax evaluation of an NC instruction and gives it the number of the
  /// sequential motion: -1, or the number behind the marker "#SEQMOTION#" of a name such as
  /// NC_GOTO#SEQMOTION#12 when the whole name is no type. Null when there is no such instruction;
  /// with a number of 1 or more that raises the null-handle error instead.
  virtual void GetSyntaxEvaluation(KEPIMfgSyntaxEvaluation_var& evaluation,
                                   const KEPUnicodeString& name) = 0;

  /// Overlays the container with a PP word table: the commands, lists and formats of the file
  /// replace those of the same name, everything else stays. Gives the status of the table's
  /// syntax check; a file that cannot be opened raises ERR_5009 and changes nothing, one that
  /// fails the check leaves only the three root types made.
  virtual HRESULT LoadPPWordTable(const KEPUnicodeString& path) = 0;

  /// Makes NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX hold exactly this line; success.
  virtual HRESULT SetUserSyntax(const KEPUnicodeString& line) = 0;

  /// Sets the second object; 0.
  virtual HRESULT SetSecondObject(const KEPBaseUnknown_var& object) = 0;
  /// Copies the second object out; 0.
  virtual HRESULT GetSecondObject(KEPBaseUnknown_var& object) = 0;

  /// Removes every NC instruction and makes the default catalogue again; PP commands are kept.
  /// Success.
  virtual HRESULT ResetToDefault() = 0;
};

using KEPIMfgPPWordContainer_var = KEPVar<KEPIMfgPPWordContainer>;
