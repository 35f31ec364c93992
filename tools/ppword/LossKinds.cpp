#include "tools/ppword/LossKinds.h"

namespace {

constexpr Kind kLossKinds[] = {
    {kUnevaluated, "post", "warning", "a parameter cannot be evaluated",
     "correct its name, or state its value in the job",
     "Nothing, or the text of MFG_UNEVALUATED_PPPARAMETER, is in its place in the line.", "", ""},
    {kWithoutNumber, "post", "warning", "a format prints no digit of a number",
     "write a format such as %10.4f", "The line has an empty argument, or text without the number.",
     "", ""},
    {kCutOff, "post", "warning", "the end of a parameter's name is cut off",
     "put a comma directly after the name",
     "What is after a ) or $ in a name is dropped, or replaced by ).", "", ""},
    {kCutText, "post", "warning", "the end of a text is cut off",
     "state at most 79 characters for the parameter",
     "A text that an activity, a tool or an assembly states is printed with 79 characters at most.",
     "", ""},
    {kDeleted, "post", "warning", "an operation is deleted", "write both operands",
     "An operand was missing, or a sign lost its place: a value of the line is not in the text.",
     "", ""},
    {kNeverGiven, "post", "warning", "a value is printed that nothing has stated",
     "state it in the job: points, axis, circle, helix, feedrate, spindle",
     "The motion buffers begin with zeros: a move without a point goes to 0,0,0.", "", ""},
    {kRoundedToZero, "post", "warning",
     "a feed rate, a speed, a radius or a pitch that is not 0 is printed as 0",
     "write a format with more decimals in the table",
     "The machine would stop, or refuse the line.", "", ""},
    {kMissingDimension, "post", "warning", "a dimension of the tool is not stated and taken as 0",
     "state it in the job: MFG_TL_SET_X, Y and Z of the assembly, the nose radius of its insert",
     "The text has a tool setting or a nose radius that is a guess.", "", ""},
    {kImpossible, "post", "warning", "a value is stated that no machine can mean",
     "correct it in the job",
     "A tool axis whose length differs from 1 by more than 0.0001, a negative feed rate or speed, "
     "a circle or helix of radius 0, a number of 1e15 or more.",
     "", ""},
    {kMisspelt, "post", "warning", "a parameter of a job has an unknown name",
     "correct the name; a parameter that a user added belongs under customParameters",
     "No reference asks for the parameter, and it is one mistake away from a known one.", "", ""},
    {kReplaced, "post", "warning", "a character that the consumer does not take is replaced",
     "write another character in the job or in the table, or choose another --profile",
     "The text has the character of other-characters, or a capital for a small letter, in its "
     "place.",
     "", ""},
    {kBareComment, "post", "warning", "a comment is written as a statement",
     "leave the comments of a listing out with --comments none, or use a table with the lines "
     "*START_NC_INSTRUCTION NC_OUTPUT_COMMENT, "
     "PPRINT %MFG_OUTPUT_COMMENT and *END",
     "The line does not begin with PPRINT, REMARK, $$ or a word with text of the table, so that a "
     "reader takes the text for a statement: (FROM/0,0,5) would be a motion.",
     "", ""},
    {kLostCall, "post", "warning", "a call of the listing is only partly in the text",
     "see docs/listing-format.md for what becomes of each call",
     "The table has no word for what the call says, coolant for example.", "", ""},
    {kLostMove, "post", "warning", "a move of the listing is not in the text",
     "see docs/listing-format.md for what becomes of each call",
     "The machine would stay where it is.", "", ""},
    {kUnknownCall, "post", "warning", "a call of the listing is unknown", "correct the listing",
     "It may be a move.", "", ""},
    {kMachineCoordinates, "post", "warning",
     "an NC program moves in machine coordinates that are unknown",
     "name the machine's parameters with --machine FILE",
     "G53, G28 and G30 move to places of the machine. Without its offsets these are taken as 0: a "
     "retract to the top of the machine becomes a traverse to the zero of the part.",
     "", ""},
    {kTableEntry, "post", "warning", "an entry of the table is not loaded",
     "ppword check --lint TABLE says why",
     "The built-in entry of that name, or none, is used in its place.", "", ""},
    {kBuiltIn, "post", "note", "an instruction that the table does not have is used",
     "write its lines in the table",
     "Its built-in lines are in the text. The machine may have other words for it.", "", ""},
    {kChords, "post", "note", "an arc of the listing is written as chords",
     "load a table with lines for circles and helices, or choose their --chord",
     "The text has straight moves that differ from the arc by the length of --chord at most.", "",
     ""},
};

}  // namespace

std::span<const Kind> lossKinds() { return kLossKinds; }
