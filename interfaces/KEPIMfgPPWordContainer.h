#pragma once

#include "KEPIMfgPPCommand.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPResult.h"
#include "System/KEPString.h"
#include "System/KEPUnicodeString.h"
#include "System/KEPVar.h"

/// The post-processor vocabulary of a document: its NC instructions, parameters and PP commands.
/// Names are exact and case-sensitive, and every answer comes from the container at the moment of
/// the call. An operation keeps no reference beyond those of the handles that it hands out and of
/// the two objects that it is told to keep.
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

  /// Publishes the attributes of all members when the document needs an upgrade or the switch
  /// "MfgForcePublish" is set, then makes the types of the default catalogue that are missing. Both
  /// switches are read once for the process, each when first needed. Gives
  ///   0           nothing to publish, attributes published, or the switch "MfgNoPublish" is set
  ///   0x8000FFFF  publishing was due and `skipAttributeUpgrade` is true; the catalogue is made
  ///   0x80004005  a host error was caught; it is the last error
  /// Other exceptions pass on.
  virtual HRESULT Initialize(bool skipAttributeUpgrade) = 0;

  /// Sets the first and the second object; true. The container only keeps them.
  virtual bool SetObjects(const KEPBaseUnknown_var& object) = 0;
  /// Copies the first object out; true.
  virtual bool GetFirstObject(KEPBaseUnknown_var& object) = 0;

  /// Sets `command` to the type of that name as a PP command; null when it is absent or none.
  virtual void GetPPCommand(KEPIMfgPPCommand_var& command, const KEPUnicodeString& name) = 0;

  /// Sets `evaluation` to the syntax evaluation of an NC instruction and gives it the number of the
  /// sequential motion. A name that is a type gets -1. Otherwise the name is cut at its first
  /// "#SEQMOTION#", as in NC_GOTO#SEQMOTION#12 (at the very start it does not count), and the text
  /// behind that is read as "%d" reads it, saturated at 32 bits (no number: -1). Null when there is
  /// no such instruction; with a number of 1 or more the null-handle error is raised instead, and
  /// `evaluation` is untouched.
  virtual void GetSyntaxEvaluation(KEPIMfgSyntaxEvaluation_var& evaluation,
                                   const KEPUnicodeString& name) = 0;

  /// Overlays the container with a PP word table: the commands, lists and formats of the file
  /// replace those of the same name, everything else stays. NC_SPINDLE_STOP is never loaded, what
  /// the reader cannot give is skipped, and the session's listener is told of every entry. Gives
  /// the status of the table's syntax check: S_OK, or E_FAIL with the check's error as last error
  /// and nothing but the three root types made. A file that cannot be opened gives E_FAIL with
  /// ERR_5009 of "ManufacturingError", type 2, and changes nothing.
  virtual HRESULT LoadPPWordTable(const KEPUnicodeString& path) = 0;

  /// Makes the instruction NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX hold exactly this line, so that
  /// it is evaluated like any other; success.
  virtual HRESULT SetUserSyntax(const KEPUnicodeString& line) = 0;

  /// Sets the second object; 0.
  virtual HRESULT SetSecondObject(const KEPBaseUnknown_var& object) = 0;
  /// Copies the second object out; 0.
  virtual HRESULT GetSecondObject(KEPBaseUnknown_var& object) = 0;

  /// Removes every NC instruction, the last made first, and makes the default catalogue again.
  /// PP commands and the parameter types, as they are, stay. Success.
  virtual HRESULT ResetToDefault() = 0;
};

using KEPIMfgPPWordContainer_var = KEPVar<KEPIMfgPPWordContainer>;
