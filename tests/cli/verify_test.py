"""ppword verify reads a text back."""

import glob
import json
import os

import program

CLEAN = "PARTNO PLATE\nRAPID\nGOTO/1,2,3\nFOO/1\nFINI\n"
SEEN = (
    "text: 5 statements in 5 lines\n"
    "  moves                    1\n"
    "  rapid                    1\n"
    "  stops                    1\n"
    "  comments                 1\n"
    "  unknown                  1  FOO\n"
)
EMPTY = (
    "text:1:7: error empty-argument: an argument is empty; write a value, or no comma\n"
    "  GOTO/1,,3\n"
    "        ^\n"
)
COUNT = (
    "text:1:1: error goto-count: GOTO has 2: neither 3 nor 6 numbers; write the point, or the "
    "point and the tool axis\n"
    "  GOTO/1,,3\n"
    "  ^~~~\n"
)
ZERO = (
    "text:1:6: warning minus-zero: -0.0: a zero with a minus sign; write it without sign\n"
    "  GOTO/-0.0,2,3\n"
    "       ^~~~\n"
)
MOVE = "text: 1 statement in 1 line\n  moves                    1\n"


class Verify(program.ProgramTest):
    def verify(self, *arguments, **options):
        return self.run_program("verify", *arguments, **options)

    def test_clean_text_is_counted(self):
        self.write("text", CLEAN)
        self.check(self.verify("text"), 0, SEEN + "text: passes\n")
        self.check(self.verify("--strict", "text"), 0, SEEN + "text: passes\n")

    def test_errors_refuse_a_text(self):
        self.write("text", "GOTO/1,,3\n")
        self.check(self.verify("text"), 1, MOVE + "text: refused, 2 errors\n", EMPTY + COUNT)
        done = self.verify("--allow=empty-argument,goto-count", "text")
        self.check(done, 0, MOVE + "text: passes, 2 errors\n", EMPTY + COUNT)

    def test_warnings_refuse_a_text_where_they_are_strict(self):
        self.write("text", "GOTO/-0.0,2,3\n")
        self.check(self.verify("text"), 0, MOVE + "text: passes, 1 warning\n", ZERO)
        refused = MOVE + "text: refused, 1 warning; refused by --strict\n"
        self.check(self.verify("--strict", "text"), 1, refused, ZERO)
        self.check(self.verify("--strict=minus-zero", "text"), 1, refused, ZERO)
        self.assertEqual(self.verify("--strict=exponent", "text").returncode, 0)
        self.assertEqual(self.verify("--strict", "--allow=minus-zero", "text").returncode, 0)

    def test_ten_findings_of_a_kind_are_shown(self):
        self.write("text", "FEDRAT/-0\n" * 12)
        done = self.verify("text")
        self.assertEqual(done.stderr.count("minus-zero"), 10)
        self.assertIn("  minus-zero: 2 more\ntext: passes, 12 warnings\n", done.stdout)

    def test_text_without_a_statement_is_refused(self):
        self.write("text", "\n\n")
        self.check(
            self.verify("text"),
            1,
            "text: 0 statements in 2 lines\ntext: refused, 1 error\n",
            "text: error no-statement: the text has no statement; is it cut off?\n",
        )

    def test_report_for_programs(self):
        self.write("text", "FOO/-0.0\nGOTO/1,2,3\n")
        done = self.verify("--strict", "--format", "json", "text")
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        self.assertEqual(
            json.loads(done.stdout),
            {
                "file": "text",
                "passes": False,
                "lines": 2,
                "statements": 2,
                "sequenceNumbers": False,
                "events": {"moves": 1, "unknown": 1},
                "unknownWords": [{"word": "FOO", "count": 1}],
                "counts": {"minus-zero": 1},
                "diagnostics": [
                    {
                        "severity": "warning",
                        "key": "minus-zero",
                        "file": "text",
                        "line": 1,
                        "column": 5,
                        "message": "-0.0: a zero with a minus sign; write it without sign",
                        "source": "FOO/-0.0",
                        "sourceColumn": 1,
                    }
                ],
            },
        )

    def test_text_that_cannot_be_read(self):
        missing = "text: error: cannot be opened: No such file or directory\n"
        self.check(self.verify("text"), 1, "", missing)
        os.mkdir(os.path.join(self.folder, "text"))
        self.check(self.verify("text"), 1, "", "text: error: cannot be read: Is a directory\n")
        done = self.verify("--format", "json", "text")
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        self.assertEqual(json.loads(done.stdout)["passes"], False)

    def test_report_that_cannot_be_written(self):
        self.write("text", CLEAN)
        with open("/dev/full", "w", encoding="ascii") as full:
            done = self.verify("text", stdout=full)
        self.check(
            done, 3, "", "ppword: error: standard output cannot be written: No space left on device\n"
        )

    def test_standard_input_is_read(self):
        self.write("text", CLEAN)
        with open(os.path.join(self.folder, "text"), encoding="ascii") as text:
            done = self.verify("-", stdin=text)
        self.assertEqual(done.returncode, 0)
        self.assertIn("standard input: passes\n", done.stdout)

    def test_numbered_cards_are_read(self):
        self.write("text", "".join(f"{line:<72}{n * 10:08}\r\n" for n, line in
                                   enumerate(CLEAN.splitlines())))
        head, rest = SEEN.split("\n", 1)
        seen = f"{head}, numbers in columns 73 to 80\n{rest}"
        self.check(self.verify("text"), 0, seen + "text: passes\n")

    def test_control_characters_do_not_reach_the_terminal(self):
        self.write("text", "FOO\x1b[31m/1\n")
        done = self.verify("text")
        self.assertNotIn("\x1b", done.stdout + done.stderr)

    def test_mistakes_in_the_arguments(self):
        for mistake, *arguments in (
            ("TEXT is required",),
            ("'b' is one argument too many", "a", "b"),
            ("there is no kind 'minus-zer' ('ppword check --explain' lists all); did you mean "
             "'minus-zero'?", "--strict=minus-zer", "a"),
        ):
            self.check(
                self.verify(*arguments),
                2,
                "",
                f"ppword verify: {mistake}\nTry 'ppword verify --help'.\n",
            )

    def test_kinds_are_explained(self):
        done = self.run_program("check", "--explain", "minus-zero")
        self.check(
            done,
            0,
            "minus-zero (warning of ppword verify)\n"
            "  a zero with a minus sign; write it without sign\n\n"
            "  Some readers take it for the direction of an axis, others refuse it.\n\n"
            "  Reported:\n    GOTO/-0.000,2,3\n  Not reported:\n    GOTO/0.000,2,3\n",
        )

    def test_texts_of_the_examples_have_no_error(self):
        for path in sorted(glob.glob(os.path.join(program.EXAMPLES, "expected", "*.apt"))):
            with self.subTest(path):
                self.assertEqual(self.verify(path).returncode, 0)


if __name__ == "__main__":
    program.main()
