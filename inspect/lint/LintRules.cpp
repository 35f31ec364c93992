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
     "give both operands; parentheses are no operands"},
    {"minus-before-word", "the minus is deleted together with the word behind it",
     "write a minus only before a number"},
    {"minus-before-reference", "a negative value gets a second minus", "write 0-%NAME"},
    {"double-minus", "both minus signs stay", "leave both out"},
    {"sign-in-comment", "the sign ends the parameter's name, blanks before it included",
     "put a comma right behind the name, or the sign before the parameter"},
    {"blank-in-name", "the name goes on to the next comma, blanks and words included",
     "put a comma right behind the name, or leave out the commas behind it"},
    {"text-behind-parenthesis", "behind the name and its ) each character becomes a )",
     "put a comma right behind the )"},
    {"dollar-behind-name", "the name's end from the $ on is lost",
     "put a comma before the $, or leave it out: it is set by itself"},
    {"unknown-parameter", "nothing of the document or the table answers for this parameter",
     "correct the name, unless every job states it for its activities"},
    {"wide-line", "the line can pass column 72, where readers of APT cut it",
     "break it behind a comma, or use narrower formats"},
    {"split-line", "a blank ends the line: this becomes a line of its own",
     "leave out the blanks, or put the two on lines of their own"},
    {"unclosed-section", "the section has no *END of its own", "add *END at its end"},
    {"surplus-end", "this *END closes nothing", "remove it"},
    {"unread-name", "the name is not the word right behind the keyword",
     "put the name, NC_ or MFG_ first, right behind the keyword"},
    {"unread-section", "only the first section of its kind is read", "join the two sections"},
    {"unknown-insert", "the table has no such command, so the lines of this one cannot be read",
     "correct the name, or give the command in this table"},
    {"duplicate-name", "the name stands twice; the table's reader mixes the two up",
     "remove or rename one"},
    {"missing-code", "the word has no code, so all pairs behind it are shifted",
     "write its code behind the word"},
    {"shifted-pair", "a number stands where a word belongs, so all pairs behind it are shifted",
     "give each word one code"},
    {"code-not-number", "the code is no number and is left out, so later words get wrong codes",
     "write a whole number"},
    {"code-cut", "the code ends at its last digit", "write a whole number"},
    {"duplicate-word", "the word stands twice", "remove one"},
    {"duplicate-code", "the code has a word already, which is the one that is found for it",
     "give each word a code of its own"},
};

static_assert(std::size(kRules) == static_cast<std::size_t>(LintKey::DuplicateCode) + 1);

}  // namespace

std::span<const LintRule> lintRules() { return kRules; }

}  // namespace host
