#include "inspect/lint/LintRules.h"

namespace host {
namespace {

constexpr LintRule kRules[] = {
    {"no-precedence", "computed from left to right, so the sum comes before the product",
     "put the product first, as in 3*4+2"},
    {"operator-in-expression", "an operator cuts the expression in %( and ) apart",
     "move the computation into a design parameter of the document"},
    {"exponent-operand", "a number with an exponent is not computed",
     "write it with all its digits, 100000 for 1e5"},
    {"large-divisor", "the divisor is so large that its reciprocal gets an exponent",
     "divide by 10000 at most, and by the rest with a second product, as in %A/10000*0.1"},
    {"short-reciprocal", "the division is a product with six digits of the reciprocal",
     "write the product with more digits, as in %A*0.333333333 for %A/3"},
    {"division-in-name", "the division becomes part of the parameter's name",
     "put two parameters in parentheses, (%A/%B); divide by a number that is not 0"},
    {"division-kept", "this division is not computed",
     "work it out by hand, or put it in parentheses"},
    {"parentheses-kept", "the parentheses stay around the number",
     "leave them out, and put first what is computed first"},
    {"empty-operand", "the operator has nothing to work on and is deleted with its neighbour",
     "write both operands; parentheses are not operands"},
    {"minus-before-word", "the minus is deleted together with the word after it",
     "write a minus only before a number"},
    {"minus-before-reference", "a negative value gets a second minus", "write 0-%NAME"},
    {"double-minus", "both minus signs stay", "leave both out"},
    {"sign-in-comment", "the sign ends the parameter's name, blanks before it included",
     "put a comma directly after the name, or the sign before the parameter"},
    {"blank-in-name", "the name goes on to the next comma, blanks and words included",
     "put a comma directly after the name, or leave out the commas after it"},
    {"text-behind-parenthesis", "every character after the ) of the name is replaced by )",
     "put a comma directly after the )"},
    {"dollar-behind-name", "the name is cut at the $",
     "put a comma before the $, or leave it out: continuation marks are set automatically"},
    {"unknown-parameter", "neither the document nor the table knows this parameter",
     "correct the name, unless every job states it for its activities"},
    {"wide-line", "the line can pass column 72, where readers of APT cut it",
     "break it after a comma, or use narrower formats"},
    {"split-line", "a blank ends the line: this becomes a line of its own",
     "leave out the blanks, or put the two on lines of their own"},
    {"unclosed-section", "the section has no *END of its own", "add *END at its end"},
    {"surplus-end", "this *END closes nothing", "remove it"},
    {"unread-name", "the name is not the word directly after the keyword",
     "put the name, NC_ or MFG_ first, directly after the keyword"},
    {"unread-section", "only the first section of its kind is read", "join the two sections"},
    {"unknown-insert", "the table has no such command, so the lines of this one cannot be read",
     "correct the name, or define the command in this table"},
    {"duplicate-name", "the name is there twice; the reader of the table mixes the two up",
     "remove or rename one"},
    {"missing-code", "the word has no code, so all pairs after it are shifted",
     "write its code after the word"},
    {"shifted-pair", "there is a number in the place of a word, so all pairs after it are shifted",
     "write one code for each word"},
    {"code-not-number", "the code is not a number and is left out, so later words get wrong codes",
     "write a whole number"},
    {"code-cut",
     "the code ends at its last digit, or is too large and read as the nearest that fits",
     "write a whole number of at most 32 bits"},
    {"duplicate-word", "the word is there twice", "remove one"},
    {"duplicate-code", "the code has a word already, which is the one that is found for it",
     "write a different code for each word"},
};

static_assert(std::size(kRules) == static_cast<std::size_t>(LintKey::DuplicateCode) + 1);

}  // namespace

std::span<const LintRule> lintRules() { return kRules; }

}  // namespace host
