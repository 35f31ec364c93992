#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "Manufacturing/KEPMfgParameterValue.h"
#include "System/KEPPlatform.h"

class KEPBaseUnknown;

/// What the module reports of its work: what answered a reference, what was computed and dropped,
/// what a table load did. Every function does nothing until a listener overrides it. Texts are
/// valid only during the call.
class KEP_PLATFORM KEPMfgPPWordListener {
 public:
  /// The passes that a syntax line goes through, in their order. Groups and references are three
  /// passes each, one for every prefix of a reference.
  enum class Pass {
    /// The line as it is written.
    Written,
    MaskEscapes,
    /// Only with the setting MFG_PPWORD_CLEAN_PARENTHESIS.
    CleanParentheses,
    RewriteDivisions,
    MaskSigns,
    WordGroups,
    Words,
    ExpressionGroups,
    Expressions,
    NumberGroups,
    Numbers,
    RestoreSigns,
    Evaluate,
    UnmaskEscapes
  };
  /// What reports call a pass, and the prefix of the references that it looks up; empty where it
  /// looks up none.
  struct PassEntry {
    Pass pass;
    std::string_view name;
    std::string_view prefix;
  };
  static constexpr std::array<PassEntry, 14> kPasses{{
      {Pass::Written, "syntax", ""},
      {Pass::MaskEscapes, "mask escapes", ""},
      {Pass::CleanParentheses, "clean parentheses", ""},
      {Pass::RewriteDivisions, "rewrite divisions", ""},
      {Pass::MaskSigns, "mask signs", ""},
      {Pass::WordGroups, "groups &", "&"},
      {Pass::Words, "references &", "&"},
      {Pass::ExpressionGroups, "groups %(", "%("},
      {Pass::Expressions, "references %(", "%("},
      {Pass::NumberGroups, "groups %", "%"},
      {Pass::Numbers, "references %", "%"},
      {Pass::RestoreSigns, "restore signs", ""},
      {Pass::Evaluate, "evaluate", ""},
      {Pass::UnmaskEscapes, "unmask escapes", ""},
  }};
  [[nodiscard]] static constexpr const PassEntry& EntryOf(Pass pass) {
    return kPasses[static_cast<std::size_t>(pass)];
  }

  /// Where the text of a parameter reference came from. The last value means that the reference
  /// could not be evaluated.
  enum class Source { Evaluation, FormattedParameter, Parameter, NotEvaluated };
  /// Why a reference has no value.
  enum class Lack {
    /// Its type has no format, or one that cannot print the number.
    Format,
    /// The list of its type has no such entry.
    Entry,
    Activity,
    /// The activity, its tool, the assembly and the tool insert have no parameter of the name.
    Parameter,
    /// It is not an expression of the document's design parameters.
    DesignParameter,
    /// Neither the feed rate nor the operation says linear or angular; the same of the spindle.
    FeedUnit,
    SpindleUnit,
    /// The sequential motion does not exist or says nothing about its spindle speed.
    MotionSpindle,
    Tool,
    /// Of the tool.
    Hand,
    /// Neither the operation nor its sequential motion says how a dwell is measured.
    DwellMode,
    /// The activity has no tool path with a type.
    ToolPathType,
    /// The pitch of the helix is too small.
    Pitch,
    /// The assembly or its insert does not state a length: 0 takes its place, and the reference has
    /// a value.
    Dimension
  };
  /// What became of an operation in a syntax line.
  enum class Operation {
    /// Its result took its place.
    Computed,
    /// It stays as it is: an operand is not a number, or there is no result.
    Kept,
    /// It is deleted together with the operand that it had: the other operand is missing, or a "-"
    /// was in front of something that is not a number. A sign alone is deleted together with the
    /// comma that held its place.
    Deleted
  };
  /// The part of a table that an entry belongs to.
  enum class Section { Command, Sequence, MultiList, Format };
  /// What became of an entry of a table.
  enum class Outcome {
    /// Created: its type, for a sequence its attribute, was missing.
    Created,
    /// Its type, for a sequence its attribute, existed already.
    Replaced,
    /// Left out on purpose.
    NeverLoaded,
    /// Skipped: there is no readable name after its keyword.
    NameUnreadable,
    /// Its content cannot be read. A command or sequence is skipped; a list or format type is
    /// created, or loses its value.
    ContentUnreadable,
    /// Its type exists and does not declare the attribute, or declares it with another kind; that
    /// attribute was not changed.
    NotDeclared
  };

  KEPMfgPPWordListener() = default;
  KEPMfgPPWordListener(const KEPMfgPPWordListener&) = delete;
  KEPMfgPPWordListener& operator=(const KEPMfgPPWordListener&) = delete;
  virtual ~KEPMfgPPWordListener();

  /// A syntax line after a pass; with Pass::Written the line as it is written.
  virtual void LineAfterPass(Pass /*pass*/, std::string_view /*line*/) {}

  /// A reference of a syntax line is looked up: the parameter type of that name, and the evaluation
  /// of the type; each null when there is none. For an operand between parentheses the type is not
  /// looked up, and no replacement follows.
  virtual void ReferenceLookedUp(std::string_view /*name*/, const KEPBaseUnknown* /*type*/,
                                 const KEPBaseUnknown* /*evaluation*/) {}

  /// The value found for the reference that was looked up last, and the format of its type; null
  /// when the value is printed without a format.
  virtual void ValueFound(const KEPMfgParameterValue& /*value*/,
                          const KEPUnicodeString* /*format*/) {}

  /// A reference of a syntax line with its name as it was looked up, and the text that replaced it.
  /// If the reference could not be evaluated, the text is that of the setting
  /// MFG_UNEVALUATED_PPPARAMETER.
  virtual void ReferenceReplaced(std::string_view /*name*/, Source /*source*/,
                                 std::string_view /*text*/) {}

  /// Characters of a syntax line that the output drops: the end of a name that was cut off.
  virtual void TextDropped(std::string_view /*name*/, std::string_view /*text*/) {}

  /// An operation in a syntax line, as it is written there, and its result, which is empty unless
  /// it was computed. A long left operand of a kept operation is shortened to "..." and its end.
  virtual void OperationEnded(Operation /*outcome*/, std::string_view /*operation*/,
                              std::string_view /*result*/) {}

  /// An entry of a table: its section, number (from 1; for a sequence its own), name (empty when it
  /// cannot be read) and outcome.
  virtual void TableEntry(Section /*section*/, int /*number*/, std::string_view /*name*/,
                          Outcome /*outcome*/) {}

  /// Why the reference that was looked up last has no value, or an empty text as its value. Not
  /// called for a value that its type's format cannot print.
  virtual void ValueLacking(Lack /*why*/) {}
  /// Reports a lack to the listener of the session, if there is one. Returns false, for the caller
  /// to return.
  static bool ReportLack(Lack why) {
    if (auto* const listener = Current()) listener->ValueLacking(why);
    return false;
  }

  /// False when LineAfterPass does nothing: the lines are not reported then, which is quicker.
  [[nodiscard]] virtual bool ReceivesLines() const { return true; }

  /// The number of the reference that was looked up last is printed in this format of the running
  /// generation, not in that of its type.
  virtual void GenerationFormatUsed(const KEPUnicodeString& /*format*/) {}

  /// The listener of the session; null when there is none.
  [[nodiscard]] static KEPMfgPPWordListener* Current() noexcept;
};
