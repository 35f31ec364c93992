#pragma once

#include <string_view>

/// What the help texts say beside the list of options. The examples run unchanged in the folder of
/// the files of examples/.
namespace help {

inline constexpr const char* kProgram =
    "Turns tool paths into APT text, with the PP word table of a post-processor.";
inline constexpr const char* kProgramFooter = R"(Examples:
  ppword check mill.pptable
  ppword list mill.pptable commands
  ppword explain mill.pptable NC_GOTO
  ppword post bracket.canon -t mill.pptable -o bracket.apt

Exit status: 0 done; 1 input refused or unreadable; 2 wrong use; 3 output not written; 4 internal
error; 5 output written, but a power failure may undo it, or this could not be printed. For several
files it is the highest.

'ppword COMMAND --help' explains a command.)";

inline constexpr const char* kCheck = "Check whether PP word tables can be loaded";
inline constexpr const char* kCheckFooter = R"(After a refused table it continues with the next one.
An error refuses a table; a warning names what a load would skip:
  no-section       the table has no block
  long-token       a word of more than 1023 characters
  endless-insert   inserts that never end, or produce more than 100000 lines
  unusable-format  a format that prints no number

Each kind of finding has a key; ppword check --explain lists them, ppword check --explain KEY
explains one with an example. --strict=KEY,... refuses only these, --allow=KEY,... none of these.

With --lint every line is checked and all mistakes are reported in one run, each with its key, its
place and what to write instead:
  in the table     lines that are refused; sections without an end; names that are not read, are
                   there twice or are used by nothing; words and codes that do not match up
  in its lines     arithmetic with an unexpected result (2+3*4 is 20), operands and names that lose
                   text, unknown words and parameters, lines that can pass column 72
With --profile, lines that this reader does not take: iso4343, cl, or a file as in docs/profiles.md.

Examples:
  ppword check mill.pptable
  ppword check --lint mill.pptable mill-turn.pptable
  ppword check --strict --format json mill.pptable
  ppword check --lint --strict --allow=wide-line mill.pptable
  ppword check --explain mixed-sequence)";

inline constexpr const char* kExplain =
    "Show step by step how the lines of an NC instruction arise";
inline constexpr const char* kExplainFooter =
    R"help(Prints each line of the instruction after every pass. Below a pass are the references that it
replaced (the parameter type, who answered, the value, the format) and what it computed; a "!"
marks what is lost, cut or moved. Without TABLE and FILE the catalogue of a new document is used.
The table is named with -t or as the first argument, not with both.

With --job the elements that come from a line of a job, a listing or an NC program are explained
with the values that they have there. LINE counts from 1, and so does POINT, among the points of an
element; without it the first is taken. Table, document and the other options are those of 'ppword
post'.

With --map the argument is LINE, from 1: a line of the text that 'ppword post --map' wrote with this
map. Shown are the line of the table and the element that it comes from, and the passes of the line.
A map whose text, tool path, table or document has changed since is refused.

Without --job and --map a parameter has a value only if --set sets it:
  NAME=5            a real number; MFG_XPOINT, MFG_YPOINT, MFG_ZPOINT, MFG_XAXIS, MFG_YAXIS and
                    MFG_ZAXIS set the point and the tool axis
  NAME:int=5        an integer
  NAME:text=RPM     a text
  NAME:design=0.5   a design parameter, for the expressions in "%(" and ")"

Examples:
  ppword explain NC_GOTO --set MFG_XPOINT=10
  ppword explain mill.pptable NC_FEEDRATE
  ppword explain --job bracket.canon:500 -t mill.pptable
  ppword explain --job bracket.ngc:77 --tools bracket.tbl
  ppword explain --map bracket.map 12
  ppword explain --syntax 'GOTO/%A+10,0' --set A=5
  ppword explain --syntax 'SPINDL/(%I/2),&W' --set I:int=7 --set W:text=RPM
  ppword explain mill.pptable --syntax 'GOTO/%MFG_XPOINT*2' --format json)help";

inline constexpr const char* kList = "Show the contents of a PP word table, or of a new document";
inline constexpr const char* kListFooter =
    R"(SECTION is words, syntaxes, commands, sequences, lists or formats.
Without it all are shown. The table is named with -t or as the first argument, not with both.

The section parameters explains each parameter: what it means, its type and unit, where its value
comes from, its format or words, and the NC instructions that use it. With a TABLE they are those of
a new document that has loaded it.

In JSON a text that is not UTF-8 is {"latin1": TEXT}: each character of TEXT is one byte.

Examples:
  ppword list mill.pptable
  ppword list mill.pptable words
  ppword list --default formats
  ppword list parameters
  ppword list mill.pptable parameters --of NC_DRILLING
  ppword list --format json mill.pptable commands)";

inline constexpr const char* kDiff = "Show what two PP word tables mean differently";
inline constexpr const char* kDiffFooter =
    R"(Compares words with their codes, free syntaxes, formats, lists and the lines of every sequence of
the instructions after their inserts. The order of blocks and words, the blanks between them, text
outside of the blocks, and whether lines are inserted or written out are no difference; upper and
lower case are. Each change is a line with its places. Lines that come from an inserted command are
shown once, with that command; instructions that insert it "change with" it.

Exit status: 0 the tables mean the same, and nothing is written; 1 they differ; 2 wrong use, or a
table that ppword check refuses: all of its errors are reported, and nothing is compared.

Examples:
  ppword diff mill.pptable mill.pptable
  ppword diff --format json mill.pptable mill.pptable)";

inline constexpr const char* kDocument = "Create, change or show a document file";
inline constexpr std::string_view kDocumentFooter =
    R"(A document file stores NC instructions, parameters and PP commands.
ACTION is one of these; 'ppword document ACTION --help' says more about one.
)";
inline constexpr std::string_view kDocumentChanges =
    R"(
A change is stored whole or not at all; after an error, a kill or a power failure the file is
unchanged. Other processes can read it meanwhile; a second change waits, for two seconds at most.

Examples:
)";

inline constexpr const char* kPost = "Write the APT text of a tool path";
inline constexpr const char* kPostFooter =
    R"(JOB is a job (JSON Lines), an NC program, or a listing as 'rs274 -g' prints it.
The PP words are those of a new document, or of a document file; TABLE is loaded over them, for
this run only.
A report goes to standard error: what was written, what could not be evaluated, which calls need no
line.

Without -t the table is the one that the resource of the job names ('ppword tables' shows those that
can be named). With the setting MFG_PPTABLE_NOLOAD the table of the job is not loaded.

A file appears whole or not at all. One that is replaced keeps its permissions and, where the system
allows, its owner and group; one that is write-protected is replaced only with --force. On standard
output the lines appear one after the other; with --strict only at the end, if nothing is missing.

The text of a file is read back before it gets its name, by the reader of 'ppword verify', and is
compared with the tool path. At a difference the file stays as it was, and the exit status is 1.
What could not be compared is named and counted, and refused by --strict. --no-verify turns this
off; other outputs are not verified.

--map writes a record for each line of the text: its element, its NC instruction, and the line of
the table. It needs -o, a JOB that is a file, and appears after the text; then 'ppword explain
--map' explains a line of the text with it.

--profile writes what the reader of the text takes: 72 columns, cards with numbers, CR LF, words of
six letters. iso4343 and cl are shipped; a file has the form of docs/profiles.md.

An NC program is run through the installed rs274 (Debian package linuxcnc-uspace). Its tools are
those of --tools only; G53, G28 and G30 need --machine.

--output-dir posts any number of jobs, each into DIR/NAME.apt; -j N uses N processes. One that fails
does not stop the others; the exit status is the highest.

AXES are the rotary axes from the part to the tool, separated by commas, each WORD:PART:AXIS: the
word A, B or C; what it turns, table or head; about X, Y or Z, with "-" before it if a positive word
turns clockwise.

Examples:
  ppword post bracket.canon
  ppword post bracket.canon -t mill.pptable -o bracket.apt
  ppword post bracket.canon -t mill.pptable -o bracket.apt --map bracket.map
  ppword post bracket.canon -t mill.pptable -v --units inch -o bracket.apt
  ppword post bracket.canon -d part.ppdoc -o bracket.apt
  ppword post drilling.job.jsonl -t mill.pptable -o drilling.apt
  ppword post tilted.canon --rotary C:table:Z,A:table:X -o tilted.apt
  ppword post bracket.ngc -t mill.pptable --tools bracket.tbl -o bracket.apt
  ppword post bracket.ngc --unknown-tools --listing -o bracket.canon
  ppword post bracket.canon drilling.job.jsonl --output-dir texts -j 4)";

inline constexpr const char* kVerify = "Read an APT text back";
inline constexpr const char* kVerifyFooter =
    R"(Reads the text statement by statement as a reader of APT does, with rules of its own, which are not
those of 'ppword post'. The report counts moves, tool axes, circles, feed rates and so on, and words
that the reader does not know. Findings are what a reader would stumble over: columns beyond 72, a
statement that is not continued, empty arguments, left-over references, points with a wrong number
of coordinates and more; 'ppword check --explain KEY' explains each.

With --against each statement must be what the input and the table say, in order: words and texts
character by character, numbers to half a unit of the last digit printed. The first difference is
shown with both places. Table, document and the other options are those of 'ppword post'. Counted,
and refused by --strict, are statements that were not verified: their line computes, or has a word
or a value that the reader does not know. What has no line in the table is named.

--profile says what the reader takes, iso4343, cl or a file, and reports the lines that it does not.
The file may have words of the table in terms of the reader's, such as
  word MOVE = GOTO

Lines end with LF or CR LF. Columns 73 to 80 of cards are read as numbers of the lines when the
first line has one there.

Exit status: 0 no errors; 1 errors, or a text that cannot be read; 2 wrong use; 3 report not
written.

Examples:
  ppword verify expected/drilling.apt
  ppword verify --strict --format json expected/rim.apt
  ppword verify expected/drilling.apt --against drilling.job.jsonl
  ppword verify expected/five-axis.apt --against five-axis.job.jsonl -t mill-turn.pptable)";

inline constexpr const char* kView = "Write a page that shows a tool path";
inline constexpr const char* kViewFooter =
    R"(Writes one HTML file that a browser shows without a network: the tool path in three dimensions,
beside it the text that 'ppword post' writes. A click on a line shows its motion, the line of the
table that it comes from and what every pass did; a click on a motion shows its line. What 'ppword
post' warns of is marked where it is. The key ? in the page lists all keys.

Table, document and the other options are those of 'ppword post', and so is the report on standard
error. A page has at most 500000 elements and lines.

Examples:
  ppword view bracket.canon -t mill.pptable -o bracket.html
  ppword view five-axis.job.jsonl -t mill-turn.pptable -o five-axis.html)";

inline constexpr const char* kWords = "Show the PP words of a table with their kinds and codes";
inline constexpr const char* kWordsFooter =
    R"(TPRINT (1075) and NOTE (181) are added at the end if the table does not have them.
The table is named with -t or as the argument, not with both.

Example:
  ppword words mill.pptable)";

inline constexpr const char* kCode = "Show the CL-file codes of words";
inline constexpr const char* kCodeFooter = R"(A word ends before its first blank.
With -t the table is not the first argument: all arguments are words.

Examples:
  ppword code mill.pptable GOTO TPRINT
  ppword code -t mill.pptable GOTO
  ppword code --format json mill.pptable 'GOTO /1,2')";

inline constexpr const char* kWord = "Show the words of CL-file codes";
inline constexpr const char* kWordFooter =
    R"(If several words have the same code, the first one is shown.
With -t the table is not the first argument: all arguments are codes.

Example:
  ppword word mill.pptable 1075 181)";

inline constexpr const char* kTables = "Show the tables of the PPTables folders";
inline constexpr const char* kTablesFooter =
    R"(PPWORD_RESOURCE_PATH lists directories, separated by ":"; the folder PPTables in each is
searched, in this order. A job names its table by its file name; the first file with that name is
used and hides those in later folders. Links that lead out of their folder are skipped.

Examples:
  ppword tables
  ppword tables --format json)";

inline constexpr const char* kLsp = "Serve editors: findings, completion and more while one types";
inline constexpr const char* kLspFooter =
    R"(A language server (Language Server Protocol 3.17) on the standard input and output. An editor
starts it; docs/editor.md says how. It needs no table and no option.

Exit status: 0 after shutdown and exit; 1 after any other end; 3 output not written.)";

}  // namespace help
