#pragma once

#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "System/KEPPlatform.h"

class KEPBaseUnknown;

/// What the module tells of its work: who answered a reference, what was computed and dropped, what
/// a table load did. Every operation does nothing until a listener overrides it. Texts are valid
/// during the call only.
class KEP_PLATFORM KEPMfgPPWordListener {
 public:
  /// Who gave the text of a parameter reference.
  enum class Source { Evaluation, FormattedParameter, Parameter, Nobody };
  /// What became of an operation in a syntax line.
  enum class Operation {
    /// Its result took its place.
    Computed,
    /// It stays as it is: an operand is no number, or there is no result.
    Kept,
    /// It is gone with the operand that it had: the other one is missing, or a "-" stood in front
    /// of what is no number. A sign alone is gone with the comma that held its place.
    Deleted
  };
  /// The part of a table that an entry belongs to.
  enum class Section { Command, Sequence, MultiList, Format };
  /// What became of an entry of a table.
  enum class Outcome {
    /// Made: its type, for a sequence its attribute, was missing.
    Created,
    /// Its type, for a sequence its attribute, was there already.
    Replaced,
    /// Left out on purpose.
    NeverLoaded,
    /// Skipped: no readable name stands behind its keyword.
    NameUnreadable,
    /// Its content cannot be read. A command or sequence is skipped; a list or format type is made
    /// or loses its value.
    ContentUnreadable,
    /// Its type is there and does not declare the attribute, or declares it with another kind;
    /// that attribute was not changed.
    NotDeclared
  };

  KEPMfgPPWordListener() = default;
  KEPMfgPPWordListener(const KEPMfgPPWordListener&) = delete;
  KEPMfgPPWordListener& operator=(const KEPMfgPPWordListener&) = delete;
  virtual ~KEPMfgPPWordListener();

  /// A syntax line after the named pass; "syntax" names the line as it is written.
  virtual void LineAfterPass(std::string_view /*pass*/, std::string_view /*line*/) {}

  /// A reference of a syntax line is looked up: the parameter type of that name, and the evaluation
  /// that the type has; null where there is none. For an operand between parentheses, whose type is
  /// not looked for, no replacement follows.
  virtual void ReferenceLookedUp(std::string_view /*name*/, const KEPBaseUnknown* /*type*/,
                                 const KEPBaseUnknown* /*evaluation*/) {}

  /// The value found for the reference that was looked up last, and the format that its type gives
  /// it; null where the value is printed without one.
  virtual void ValueFound(const KEPMfgParameterValue& /*value*/,
                          const KEPUnicodeString* /*format*/) {}

  /// A reference of a syntax line with its name as it was looked up, and the text that took its
  /// place. With Source::Nobody the reference could not be evaluated, and the text is that of the
  /// setting MFG_UNEVALUATED_PPPARAMETER.
  virtual void ReferenceReplaced(std::string_view /*name*/, Source /*source*/,
                                 std::string_view /*text*/) {}

  /// Characters of a syntax line that stand in no output: the end of a name that was cut off.
  virtual void TextDropped(std::string_view /*name*/, std::string_view /*text*/) {}

  /// An operation in a syntax line, as it stood there, and its result; empty unless it was
  /// computed. Of a long left operand of one that was kept only the end is told, behind "...".
  virtual void OperationEnded(Operation /*outcome*/, std::string_view /*operation*/,
                              std::string_view /*result*/) {}

  /// An entry of a table: its section, number (from 1; for a sequence its own), name (empty when it
  /// cannot be read) and outcome.
  virtual void TableEntry(Section /*section*/, int /*number*/, std::string_view /*name*/,
                          Outcome /*outcome*/) {}

  /// The listener of the session; null when nobody listens.
  [[nodiscard]] static KEPMfgPPWordListener* Current() noexcept;
};
