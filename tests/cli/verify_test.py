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


JOB = (
    '{"job":1,"program":"P","units":"mm"}\n'
    '{"nc":"NC_RAPID"}\n'
    '{"nc":"NC_GOTO","points":[[1.25,2,3],[4,5.5,-6]]}\n'
    '{"end":true}\n'
)
TEXT = "RAPID\nGOTO/1.25,2,3\nGOTO/4,5.5,-6\n"
READ = "text: 3 statements in 3 lines\n  moves                    2\n  rapid                    1\n"
AGREES = "text: agrees with job: 3 elements, 3 statements verified, 1 of them the table's own\n"
COMPUTES = (
    "*START_NC_INSTRUCTION NC_GOTO\nGOTO/%MFG_XPOINT+0,%MFG_YPOINT,%MFG_ZPOINT\n*END\n"
)
NOT_VERIFIED = (
    "job:3: warning not-verified: NC_GOTO, 2 times: its line computes, or has a word or a value "
    "that the reader does not know; read it yourself, or add the word to a profile\n"
)


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

    def test_text_that_agrees_with_its_input(self):
        self.write("job", JOB)
        self.write("text", TEXT)
        done = self.verify("--strict", "text", "--against", "job")
        self.check(done, 0, READ + AGREES + "text: passes\n")
        with open(os.path.join(self.folder, "job"), encoding="ascii") as job:
            done = self.verify("text", "--against", "-", stdin=job)
        self.assertIn("text: agrees with standard input: 3 elements", done.stdout)
        self.assertEqual(done.returncode, 0)

    def test_first_difference_has_both_places(self):
        self.write("job", JOB)
        self.write("text", TEXT.replace("5.5,-6", "5.5,6"))
        differs = (
            "text: differs from job: 3 elements, 2 statements verified, 1 of them the table's own\n"
        )
        self.check(
            self.verify("text", "--against", "job"),
            1,
            READ + differs + "text: refused, 1 error\n",
            "text:3:12: error difference: 6, where the input has -6: the text differs from the "
            "input; nothing after it was compared\n"
            "  GOTO/4,5.5,6\n"
            "             ^\n"
            "job:3: note difference: NC_GOTO, point 2 is here\n",
        )

    def test_text_that_ends_too_early_or_too_late(self):
        self.write("job", JOB)
        self.write("text", "RAPID\nGOTO/1.25,2,3\n")
        self.assertEqual(
            self.verify("text", "--against", "job").stderr,
            "text:2: error difference: the end of the text, where the input has GOTO/4,5.5,-6: the "
            "text differs from the input; nothing after it was compared\n"
            "job:3: note difference: NC_GOTO, point 2 is here\n",
        )
        self.write("text", TEXT + "RAPID\nGOTO/1,2,3\n")
        self.assertEqual(
            self.verify("text", "--against", "job").stderr,
            "text:4:1: error difference: RAPID, where the input has ended: the text differs from "
            "the input; nothing after it was compared\n"
            "  RAPID\n"
            "  ^\n",
        )

    def test_lines_that_compute_are_counted(self):
        self.write("job", JOB)
        self.write("table", COMPUTES)
        self.write("text", TEXT)
        done = self.verify("text", "--against", "job", "-t", "table")
        own = "text: agrees with job: 3 elements, 1 statement verified, 1 of them the table's own"
        self.check(
            done, 0, READ + own + "; 2 not verified\ntext: passes, 1 warning\n", NOT_VERIFIED
        )
        done = self.verify("--strict", "text", "--against", "job", "-t", "table")
        self.assertEqual((done.returncode, done.stderr), (1, NOT_VERIFIED))
        self.assertIn("text: refused, 1 warning; refused by --strict\n", done.stdout)
        done = self.verify(
            "--strict", "--allow=not-verified", "text", "--against", "job", "-t", "table"
        )
        self.assertEqual(done.returncode, 0)

    def test_what_a_table_leaves_out_is_a_note(self):
        self.write("job", JOB)
        self.write("table", "*START_NC_INSTRUCTION NC_RAPID\n*END\n")
        self.write("text", TEXT.removeprefix("RAPID\n"))
        done = self.verify("--strict", "text", "--against", "job", "-t", "table")
        self.assertEqual(
            (done.returncode, done.stderr),
            (
                0,
                "job:2: note left-out: NC_RAPID, 1 time: the text has no line for it, or not its "
                "values; write a line for it in the table, or none on purpose\n",
            ),
        )
        done = self.verify("--strict=left-out", "text", "--against", "job", "-t", "table")
        self.assertEqual(done.returncode, 1)

    def test_calls_that_have_no_line_are_left_out(self):
        done = self.run_program(
            "post", os.path.join(program.EXAMPLES, "bracket.canon"), "-o", "text"
        )
        self.assertEqual(done.returncode, 0)
        done = self.verify(
            "text", "--against", os.path.join(program.EXAMPLES, "bracket.canon"), "--format", "json"
        )
        against = json.loads(done.stdout)["against"]
        self.assertEqual(
            [(call["name"], call["count"], call["firstLine"]) for call in against["leftOut"]],
            [("FLOOD_OFF", 2, 48), ("FLOOD_ON", 2, 32), ("MIST_OFF", 2, 47)],
        )
        self.assertEqual(
            {name: against[name] for name in ("agrees", "elements", "notVerified")},
            {"agrees": True, "elements": 584, "notVerified": []},
        )

    def test_comparison_for_programs(self):
        self.write("job", JOB)
        self.write("table", COMPUTES)
        self.write("text", TEXT.replace("RAPID", "FROM/0,0,0"))
        done = self.verify("text", "--against", "job", "-t", "table", "--format", "json")
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        report = json.loads(done.stdout)
        self.assertEqual(
            report["against"],
            {
                "file": "job",
                "agrees": False,
                "elements": 1,
                "verified": 0,
                "ownOfTable": 0,
                "notVerified": [],
                "leftOut": [],
            },
        )
        self.assertEqual(
            [(each["file"], each["line"]) for each in report["diagnostics"]],
            [("text", 1), ("job", 2)],
        )

    def test_inputs_that_are_refused(self):
        self.write("text", TEXT)
        self.write("job", JOB.replace("NC_RAPID", "NC_RAPIT"))
        self.check(
            self.verify("text", "--against", "job"),
            1,
            "",
            "job:2: error: this document has no NC instruction NC_RAPIT\n",
        )
        self.write("job", JOB.replace("1.25", "x"))
        self.assertEqual(self.verify("text", "--against", "job").returncode, 1)
        self.check(
            self.verify("text", "--against", "none"),
            1,
            "",
            "none: error: cannot be opened: No such file or directory\n",
        )
        self.write("job", JOB)
        done = self.verify("text", "--against", "job", "-t", "none")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        done = self.verify("text", "--against", "job", "-d", "none", "--format", "json")
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        self.assertEqual(json.loads(done.stdout)["passes"], False)

    def test_options_that_need_an_input(self):
        for mistake, *arguments in (
            ("-t, -d and the options of listings and NC programs need --against", "a", "-t", "b"),
            ("-t, -d and the options of listings and NC programs need --against", "a", "--units",
             "mm"),
            ("only one of the files can be the standard input", "-", "--against", "-"),
            ("only one of the files can be the standard input", "-", "--profile", "-"),
        ):
            self.check(
                self.verify(*arguments),
                2,
                "",
                f"ppword verify: {mistake}\nTry 'ppword verify --help'.\n",
            )
        self.write("job", JOB)
        self.write("text", TEXT)
        self.check(
            self.verify("text", "--against", "job", "--units", "mm"),
            2,
            "",
            "ppword verify: --units, --rotary, --chord, --helices, --origins, --comments, --tools "
            "and --machine-units are for listings; a job states its own\n"
            "Try 'ppword verify --help'.\n",
        )

    def test_profile_maps_words(self):
        self.write("job", JOB)
        self.write("table", COMPUTES.replace("GOTO/%MFG_XPOINT+0", "MOVE/%MFG_XPOINT"))
        self.write("text", TEXT.replace("GOTO", "MOVE"))
        self.write("profile", "# The words of this machine\n\nword MOVE = GOTO  # a move\n")
        against = ["--strict", "text", "--against", "job", "-t", "table"]
        self.assertEqual(self.verify(*against).returncode, 1)
        done = self.verify(*against, "--profile", "profile")
        self.check(done, 0, READ + AGREES + "text: passes\n")
        self.write("text", TEXT.replace("GOTO", "MOVE").replace("1.25", "1.35"))
        done = self.verify(*against, "--profile", "profile")
        self.assertIn("text:2:6: error difference: 1.35, where the input has 1.25", done.stderr)
        self.write("text", "MOVE/1,2\n")
        done = self.verify("text", "--profile", "profile")
        self.assertIn("text:1:1: error goto-count: MOVE has 2", done.stderr)

    def test_profiles_that_are_refused(self):
        self.write("text", TEXT)
        for place, mistake, profile in (
            (
                "2:1",
                "'words' is not 'word', 'columns', 'line-end', 'sequence-numbers', 'characters', "
                "'other-characters' or 'longest-word'",
                "\nwords A = B",
            ),
            ("1:5", "a word is expected after 'word'", "word"),
            ("1:6", "a word is expected after 'word'", "word = GOTO"),
            ("1:8", "'=' is expected after the word 'A'", "word A GOTO"),
            ("1:9", "a word that the reader knows is expected after '='", "word A ="),
            ("1:10", "the reader does not know the word 'GOTTO'", "word A = GOTTO"),
            ("1:10", "'A/B' is not a word of APT", "word A/B=GOTO"),
            ("1:15", "'B' is one word too many", "word A = GOTO B"),
            ("10001:1", "a profile has at most 10000 lines", "\n" * 10000 + "#\n"),
        ):
            self.write("profile", profile)
            done = self.verify("text", "--profile", "profile")
            self.assertEqual((done.returncode, done.stdout), (1, ""))
            self.assertEqual(
                done.stderr.splitlines()[0], f"profile:{place}: error: {mistake}", profile
            )
        done = self.verify("text", "--profile", "none")
        self.check(done, 1, "", "none: error: cannot be opened: No such file or directory\n")

    def test_texts_of_the_examples_have_no_error(self):
        for path in sorted(glob.glob(os.path.join(program.EXAMPLES, "expected", "*.apt"))):
            with self.subTest(path):
                self.assertEqual(self.verify(path).returncode, 0)


if __name__ == "__main__":
    program.main()
