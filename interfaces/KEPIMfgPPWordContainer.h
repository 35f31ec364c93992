#pragma once

#include "KEPIMfgPPCommand.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "ObjectSpecsModeler/KEPISpecObject.h"
#include "System/KEPComponent.h"
#include "System/KEPPlatform.h"
#include "System/KEPString.h"

/// The post-processor vocabulary of a document: its NC instructions, parameters and PP commands.
/// Begin here: the container loads a PP word table, it offers the motion buffers (ask for one by
/// assigning the container to a handle), and it finds the syntax evaluation that turns an NC
/// instruction into APT lines. With a container `words`, this writes the instruction NC_GOTO:
///
///     if (KEPFailed(words->LoadPPWordTable("mill.pptable"))) return;
///     const KEPIMfgBufferPoint_var point = words;
///     point->SetPoint(10.0, -2.5, 0.125);
///     KEPIMfgSyntaxEvaluation_var evaluation;
///     words->GetSyntaxEvaluation(evaluation, "NC_GOTO");
///     KEPListValKEPUnicodeString lines;
///     if (evaluation->InstantiateSyntax(lines, 1)) std::cout << lines[1].View() << '\n';
///
/// With a table that prints coordinates as %10.4f: GOTO/   10.0000,   -2.5000,    0.1250
///
/// Names are exact and case-sensitive, and every result describes the container at the moment of
/// the call. The container stores references only to the two objects that it is asked to store;
/// each handle that it returns holds one of its own.
class KEP_PLATFORM KEPIMfgPPWordContainer : public KEPBaseUnknown {
 public:
  static constexpr const char* kInterfaceName = "KEPIMfgPPWordContainer";

  /// The type with this name, with one reference that the caller releases; null when there is none.
  [[nodiscard]] virtual KEPISpecObject* FindPPWord(const KEPString& name) = 0;

  /// Sets `word` to the type with this name, or to null when there is none.
  virtual void GetPPWord(KEPISpecObject_var& word, const KEPString& name) = 0;

  /// Does nothing. Always success.
  virtual HRESULT Refresh() = 0;

  /// Publishes the attributes of all members when the document needs an upgrade or the switch
  /// "MfgForcePublish" is set, then creates the types of the default catalogue that are missing.
  /// Both switches are read once per process, each when it is first needed. Returns
  ///   0           nothing to publish, attributes published, or the switch "MfgNoPublish" is set
  ///   0x8000FFFF  publishing was due and `skipAttributeUpgrade` is true; the catalogue is created
  ///   0x80004005  a host error was caught; it is the last error
  /// Other exceptions pass through.
  virtual HRESULT Initialize(bool skipAttributeUpgrade) = 0;

  /// Sets the first and the second object to `object`. The container stores them and does not use
  /// them. Always true.
  virtual bool SetObjects(const KEPBaseUnknown_var& object) = 0;
  /// Sets `object` to the first object. Always true.
  virtual bool GetFirstObject(KEPBaseUnknown_var& object) = 0;

  /// Sets `command` to the type with this name as a PP command, or to null when there is none or it
  /// is not a PP command.
  virtual void GetPPCommand(KEPIMfgPPCommand_var& command, const KEPUnicodeString& name) = 0;

  /// Sets `evaluation` to the syntax evaluation of an NC instruction, and the number of the
  /// sequential motion in it. For a name that is a type this number is -1. Any other name is cut at
  /// its first "#SEQMOTION#", as in NC_GOTO#SEQMOTION#12 (one at the very start does not count),
  /// and the text after it is read as "%d" reads it, saturated at 32 bits (-1 when it has no
  /// number). Null when there is no such instruction; if the number is 1 or more the null-handle
  /// error is raised instead, and `evaluation` is untouched.
  virtual void GetSyntaxEvaluation(KEPIMfgSyntaxEvaluation_var& evaluation,
                                   const KEPUnicodeString& name) = 0;

  /// Loads a PP word table over the container: the commands, lists and formats of the file replace
  /// those with the same name, everything else stays. NC_SPINDLE_STOP is never loaded, entries that
  /// the reader cannot read are skipped, and every entry is reported to the session's listener.
  /// Returns the status of the table's syntax check: S_OK, or E_FAIL with the error of the check as
  /// last error; nothing but the three root types is then created. For a file that cannot be opened
  /// it returns E_FAIL with ERR_5009 of "ManufacturingError", type 2, and changes nothing.
  virtual HRESULT LoadPPWordTable(const KEPUnicodeString& path) = 0;

  /// Sets the syntax of the instruction NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX to exactly this
  /// line, which can then be evaluated like any other. Always success.
  virtual HRESULT SetUserSyntax(const KEPUnicodeString& line) = 0;

  /// Sets the second object. Always 0.
  virtual HRESULT SetSecondObject(const KEPBaseUnknown_var& object) = 0;
  /// Sets `object` to the second object. Always 0.
  virtual HRESULT GetSecondObject(KEPBaseUnknown_var& object) = 0;

  /// Removes every NC instruction, the latest first, and creates the default catalogue again. PP
  /// commands and parameter types stay unchanged. Always success.
  virtual HRESULT ResetToDefault() = 0;
};

using KEPIMfgPPWordContainer_var = KEPVar<KEPIMfgPPWordContainer>;
