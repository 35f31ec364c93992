"""Documents that last: every action, and what is left when one goes wrong."""

import json
import os
import re
import random
import resource
import signal
import sqlite3
import subprocess
import time

import program
from program import PPWORD

TABLE = (
    "*START_FORMAT MFG_ZPOINT\n%.3f\n*END\n"
    "*START_NC_COMMAND NC_TWO\n"
    "*START_SEQUENCE\nFIRST/1\n*END\n"
    "*START_SEQUENCE\nSECOND/%MFG_ZPOINT\n*END\n"
    "*END\n"
)
HELD = "another process holds it; try again later\n"


class DocumentTest(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("table", TABLE)

    def run_document(self, *arguments, **options):
        return self.run_program("document", *arguments, **options)

    def make(self, name="d"):
        self.check(self.run_document("new", name), 0, f"{name}: created with the default catalogue\n")

    def commands(self, name="d"):
        return self.run_document("show", name, "pp-commands").stdout

    def sql(self, statement, name="d"):
        connection = sqlite3.connect(os.path.join(self.folder, name))
        connection.executescript(statement)
        connection.close()


class Actions(DocumentTest):
    def test_new_document_holds_the_default_catalogue(self):
        self.make()
        self.assertEqual(self.files(), ["d", "table"])
        shown = self.run_document("show", "d")
        self.check(shown, 0, self.run_program("list", "--default").stdout)

    def test_new_document_replaces_nothing(self):
        self.check(
            self.run_document("new", "table"),
            3,
            "",
            "ppword: error: table cannot be written: File exists\n",
        )
        self.assertEqual(self.read("table"), TABLE)

    def test_file_names_control_no_terminal(self):
        self.check(
            self.run_document("new", "no/\x1b[31m"),
            3,
            "",
            "ppword: error: no/\\x1b[31m cannot be written: No such file or directory\n",
        )
        self.run_document("new", "\x1b[31m")
        self.check(
            self.run_program("post", "\x1b[31m", "-o", "\x1b[31m"),
            2,
            "",
            "ppword post: the output would replace the input \\x1b[31m\n"
            "Try 'ppword post --help'.\n",
        )

    def test_table_is_loaded(self):
        self.make()
        self.check(self.run_document("load-table", "d", "table"), 0, "d: table loaded\n")
        self.check(
            self.run_document("show", "d", "sequences"),
            0,
            "sequences (2)\n  NC_TWO, sequence 1\n      FIRST/1\n"
            "  NC_TWO, sequence 2\n      SECOND/%MFG_ZPOINT\n",
        )

    def test_table_that_is_refused_changes_nothing(self):
        self.make()
        before = self.read("d")
        self.write("bad", "*END\n")
        done = self.run_document("load-table", "d", "bad")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.startswith("bad:1:1: error ERR_5002: "), done.stderr)
        self.check(
            self.run_document("load-table", "d", "none"),
            1,
            "",
            "none: error ERR_5009: the PP word table cannot be opened: No such file or directory\n",
        )
        self.assertEqual(self.read("d"), before)

    def test_entries_that_are_not_loaded_are_counted(self):
        self.make()
        self.write("odd", "*START_NC_COMMAND NC_LOOP\n*INSERT NC_LOOP\n*END\n")
        self.check(
            self.run_document("load-table", "d", "odd"),
            0,
            "d: table loaded\n",
            "d: warning not-loaded: 1 entry of the table was not loaded\n",
        )

    def test_commands_are_listed_by_name_and_position(self):
        self.make()
        self.check(self.run_document("load-table", "d", "table"), 0, "d: table loaded\n")
        for position, arguments in enumerate((["NC_TWO"], ["NC_GOTO", "7"], ["NC_TWO", "2"])):
            lacking = "d: warning no-sequence: 'NC_GOTO' has no sequence 7; it has 1\n"
            self.check(
                self.run_document("add-command", "d", *arguments),
                0,
                f"d: PP command {position + 1} added\n",
                lacking if arguments == ["NC_GOTO", "7"] else "",
            )
        self.assertEqual(
            self.commands(),
            "PP commands (3)\n  1  NC_TWO, sequence 1\n  2  NC_GOTO, sequence 7\n"
            "  3  NC_TWO, sequence 2\n",
        )
        shown = json.loads(self.run_document("show", "--format", "json", "d").stdout)
        self.assertEqual(
            shown["ppCommands"][2], {"position": 3, "name": "NC_TWO", "sequence": 2}
        )
        self.assertTrue(self.run_document("show", "d").stdout.endswith(self.commands()))

    def test_command_for_no_instruction_is_added_with_a_warning(self):
        self.make()
        for name in ("NC_NONE", "MFG_XPOINT"):
            done = self.run_document("add-command", "d", name)
            self.assertEqual(done.returncode, 0)
            self.assertEqual(
                done.stderr,
                f"d: warning no-instruction: the document has no NC instruction '{name}' for"
                " this command\n",
            )

    def test_several_commands_are_added_in_one_change(self):
        self.make()
        self.run_document("load-table", "d", "table")
        self.check(
            self.run_document("add-command", "d", "NC_TWO", "NC_TWO", "2", "NC_GOTO"),
            0,
            "d: PP commands 1 to 3 added\n",
        )
        done = self.run_document("add-command", "--format", "json", "d", "NC_RAPID", "NC_TWO")
        self.assertEqual(
            json.loads(done.stdout),
            {"file": "d", "saved": True, "done": "PP commands 4 to 5 added"},
        )
        self.assertEqual(
            self.commands(),
            "PP commands (5)\n  1  NC_TWO, sequence 1\n  2  NC_TWO, sequence 2\n"
            "  3  NC_GOTO, sequence 1\n  4  NC_RAPID, sequence 1\n  5  NC_TWO, sequence 1\n",
        )

    def test_commands_are_added_from_a_file(self):
        self.make()
        self.run_document("load-table", "d", "table")
        self.write("names", "NC_TWO\r\n\n  NC_TWO\t2 \n \t\nNC_GOTO")
        self.check(
            self.run_document("add-command", "d", "--from", "names"),
            0,
            "d: PP commands 1 to 3 added\n",
        )
        done = self.run_document("add-command", "d", "--from", "-", stdin=None, input="NC_RAPID\n")
        self.check(done, 0, "d: PP command 4 added\n")
        self.assertEqual(
            self.commands(),
            "PP commands (4)\n  1  NC_TWO, sequence 1\n  2  NC_TWO, sequence 2\n"
            "  3  NC_GOTO, sequence 1\n  4  NC_RAPID, sequence 1\n",
        )

    def test_equal_warnings_of_several_commands_are_one(self):
        self.make()
        self.check(
            self.run_document("add-command", "d", "NC_X", "NC_GOTO", "2", "NC_X", "NC_GOTO", "3"),
            0,
            "d: PP commands 1 to 4 added\n",
            "d: warning no-instruction: the document has no NC instruction 'NC_X' for this command\n"
            "d: warning no-sequence: 'NC_GOTO' has no sequence 2; it has 1\n"
            "d: warning no-sequence: 'NC_GOTO' has no sequence 3; it has 1\n",
        )

    def test_mistake_in_a_file_of_names_adds_nothing(self):
        self.make()
        mistakes = [
            (
                "NC_A\nNC_B 0\n",
                "names:2:6: error: the number of a sequence is a whole number from 1 to 2147483647,"
                " not '0'\n  NC_B 0\n       ^\n",
            ),
            (
                "NC_A NC_B\n",
                "names:1:6: error: the number of a sequence is a whole number from 1 to 2147483647,"
                " not 'NC_B'\n  NC_A NC_B\n       ^\n",
            ),
            (
                "NC_A 1  2 3\n",
                "names:1:9: error: '2' is one word too many: a line is NAME or NAME NUMBER\n"
                "  NC_A 1  2 3\n          ^\n",
            ),
            (
                "NC_A\n\n NC\x01\n",
                "names:3:2: error: the name has a control character\n   NC\\x01\n   ^\n",
            ),
            (
                b"\xef\xbb\xbfNC_A\n",
                "names:1:1: error: the file begins with a byte-order mark; write it as UTF-8 without"
                " one\n  \\xef\\xbb\\xbfNC_A\n  ^~~~~~~~~~~~\n",
            ),
            ("", "names: error: there is no name in it\n"),
            (" \n\r\n", "names: error: there is no name in it\n"),
            ("A" * 1048577, "names:1: error: the line is longer than 1 MiB (1048576 bytes)\n"),
            ("NC_A\n" * 1000001, "names:1000001: error: there are more than 1000000 names\n"),
        ]
        before = self.read("d")
        for text, message in mistakes:
            self.write("names", text)
            self.check(self.run_document("add-command", "d", "--from", "names"), 1, "", message)
            self.assertEqual(self.read("d"), before)
        done = self.run_document("add-command", "d", "--from", "-", stdin=None, input="A\nB C\n")
        self.check(
            done,
            1,
            "",
            "standard input:2:3: error: the number of a sequence is a whole number from 1 to"
            " 2147483647, not 'C'\n",
        )
        self.check(
            self.run_document("add-command", "d", "--from", "none"),
            1,
            "",
            "none: error: cannot be opened: No such file or directory\n",
        )
        self.assertEqual(self.read("d"), before)

    def test_mistake_in_a_file_of_names_is_told_in_json(self):
        self.make()
        self.write("names", "NC_A 1 2\n")
        done = self.run_document("add-command", "d", "--from", "names", "--format", "json")
        self.assertEqual(done.returncode, 1)
        told = json.loads(done.stdout)
        self.assertEqual((told["file"], told["saved"]), ("d", False))
        self.assertEqual(
            told["diagnostics"],
            [
                {
                    "severity": "error",
                    "file": "names",
                    "line": 1,
                    "column": 8,
                    "message": "'2' is one word too many: a line is NAME or NAME NUMBER",
                    "source": "NC_A 1 2",
                    "sourceColumn": 1,
                }
            ],
        )

    def test_command_is_removed_and_later_ones_move_up(self):
        self.make()
        for name in ("NC_GOTO", "NC_RAPID", "NC_FROM"):
            self.run_document("add-command", "d", name)
        self.check(
            self.run_document("remove-command", "d", "2"),
            0,
            "d: PP command 2 removed; the positions of those after it are one less now\n",
        )
        self.assertEqual(
            self.commands(), "PP commands (2)\n  1  NC_GOTO, sequence 1\n  2  NC_FROM, sequence 1\n"
        )
        self.check(self.run_document("remove-command", "d", "2"), 0, "d: PP command 2 removed\n")
        self.check(
            self.run_document("remove-command", "d", "2"),
            1,
            "",
            "d: error: the document has no PP command 2; it has 1\n",
        )
        self.assertEqual(self.commands(), "PP commands (1)\n  1  NC_GOTO, sequence 1\n")
        for position in ("0", "-1", "x", "1.5", "", "99999999999"):
            self.check(
                self.run_document("remove-command", "d", "--", position),
                2,
                "",
                "ppword document: POSITION is a whole number from 1 to 2147483647, not"
                f" '{position}'\nTry 'ppword document --help'.\n",
            )

    def test_each_action_explains_itself(self):
        self.check(
            self.run_document("remove-command", "--help"),
            0,
            "Usage: ppword document remove-command FILE POSITION\n\n"
            "Remove a PP command; later ones move up by one position. Jobs that post one of\n"
            "the later commands by its position must be changed too.\n\n"
            "Example:\n  ppword document remove-command part.ppdoc 1\n",
        )
        listed = self.run_document("--help").stdout
        actions = re.findall(r"^  ([a-z-]+) FILE", listed, re.MULTILINE)
        self.assertEqual(len(actions), 8)
        for action in actions:
            shown = self.run_document(action, "--help").stdout
            self.assertTrue(shown.startswith(f"Usage: ppword document {action} FILE"), shown)
            self.assertEqual(self.run_document(action, "d", "-h").stdout, shown)
        # That of the command for an unknown one.
        self.assertEqual(self.run_document("none", "--help").stdout, listed)

    def test_command_without_values_is_shown(self):
        self.make()
        self.run_document("add-command", "d", "")
        self.assertEqual(self.commands(), "PP commands (1)\n  1  , sequence 1\n")

    def test_control_characters_are_refused(self):
        self.make()
        for action, what in (("set-syntax", "LINE"), ("add-command", "NAME")):
            for text in ("A\nFINI", "A\tB", "\x7f"):
                self.check(
                    self.run_document(action, "d", text),
                    2,
                    "",
                    f"ppword document: {what} has a control character, such as a tab or a line feed\n"
                    "Try 'ppword document --help'.\n",
                )
        self.check(self.run_document("set-syntax", "d", "PPRINT/\u00d8"), 0, "d: user syntax set\n")

    def test_user_syntax_is_set(self):
        self.make()
        self.check(
            self.run_document("set-syntax", "d", "PPRINT/%MFG_XPOINT"), 0, "d: user syntax set\n"
        )
        self.check(self.run_document("set-syntax", "d", "--", "-1"), 0, "d: user syntax set\n")
        shown = self.run_document("show", "d", "commands").stdout
        self.assertTrue(
            shown.endswith("  NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX\n      -1\n"), shown[-90:]
        )

    def test_reset_keeps_commands_and_formats(self):
        self.make()
        self.run_document("load-table", "d", "table")
        self.run_document("add-command", "d", "NC_TWO")
        self.check(
            self.run_document("reset", "d"),
            0,
            "d: NC instructions reset to the default catalogue\n",
        )
        shown = self.run_document("show", "d").stdout
        self.assertNotIn("  NC_TWO\n", shown)
        self.assertIn("  MFG_ZPOINT            %.3f\n", shown)
        self.assertIn("  1  NC_TWO, sequence 1\n", shown)

    def test_upgrade_of_a_present_document_changes_nothing(self):
        self.make()
        before = self.read("d")
        self.check(self.run_document("upgrade", "d"), 0, "d: needs no upgrade\n")
        self.assertEqual(self.read("d"), before)

    def test_changes_are_told_in_json(self):
        done = self.run_document("new", "--format", "json", "d")
        self.assertEqual(
            json.loads(done.stdout),
            {"file": "d", "saved": True, "done": "created with the default catalogue"},
        )

    def test_name_like_a_uri_is_a_name(self):
        for name in ("file:x?mode=memory", ":memory:", "file::memory:?cache=shared", "a%20b#c"):
            self.make(name)
            self.run_document("add-command", name, "NC_GOTO")
            self.assertIn("1  NC_GOTO, sequence 1", self.commands(name))
            self.assertIn(name, self.files())
        self.assertEqual(len(self.files()), 5)


class OlderVersion(DocumentTest):
    WARNING = (
        "d: warning old-version: the document has an older version; upgrade it with"
        " 'ppword document upgrade'\n"
    )

    def setUp(self):
        super().setUp()
        path = os.path.join(program.SOURCE, "tests", "document", "version1.sql")
        with open(path, encoding="utf-8") as file:
            self.sql("BEGIN;" + file.read() + "COMMIT;")

    def test_is_shown_with_a_warning(self):
        self.check(
            self.run_document("show", "d", "pp-commands"),
            0,
            "PP commands (1)\n  1  NC_ONE, sequence 1\n",
            self.WARNING,
        )

    def test_is_posted_with_a_warning(self):
        self.write("job", program.JOB.replace("NC_GOTO", "NC_ONE"))
        done = self.run_program("post", "-d", "d", "job")
        self.assertEqual(done.stdout, "ONE/1\nONE/2\n" * 2)
        self.assertTrue(done.stderr.startswith(self.WARNING), done.stderr)

    def test_is_changed_after_its_upgrade_only(self):
        self.check(
            self.run_document("add-command", "d", "NC_ONE"),
            1,
            "",
            "d: error: the document is of an older version; upgrade it first\n",
        )
        self.check(self.run_document("upgrade", "d"), 0, "d: upgraded\n")
        self.check(self.run_document("add-command", "d", "NC_ONE"), 0, "d: PP command 2 added\n")
        self.assertIn("  NC_GOTO\n", self.run_document("show", "d", "commands").stdout)


class Jobs(DocumentTest):
    JOB = (
        '{"job":1,"program":"P","units":"mm"%s}\n'
        '{"ppCommand":2,"points":[[1,2,3]]}\n{"ppCommand":1}\n{"nc":"NC_TWO","sequence":2}\n'
        '{"end":true}\n'
    )
    APT = "SECOND/3.000\nFIRST/1\nSECOND/3.000\n"

    def setUp(self):
        super().setUp()
        os.mkdir(os.path.join(self.folder, "jobs"))
        self.make("jobs/d")
        self.run_document("load-table", "jobs/d", "table")
        self.run_document("add-command", "jobs/d", "NC_TWO")
        self.run_document("add-command", "jobs/d", "NC_TWO", "2")

    def test_commands_are_posted_like_their_instructions(self):
        self.write("job", self.JOB % "")
        done = self.run_program("post", "job", "-d", "jobs/d")
        self.check(
            done,
            0,
            self.APT,
            "job: 3 elements, 3 lines\n  not verified\nstandard output: written\n",
        )

    def test_header_names_the_document_from_the_folder_of_the_job(self):
        before = self.read("jobs/d")
        self.write("jobs/job", self.JOB % ',"document":"d"')
        self.write("more", "*START_NC_COMMAND NC_TWO\n*START_SEQUENCE\nOTHER/1\n*END\n*END\n")
        self.assertEqual(self.run_program("post", "jobs/job").stdout, self.APT)
        absolute = os.path.join(self.folder, "jobs", "d")
        self.write("job", self.JOB % f',"document":"{absolute}"')
        self.assertEqual(self.run_program("post", "job").stdout, self.APT)
        self.write("rapid", self.JOB % ',"document":"jobs/d"')
        with open(os.path.join(self.folder, "rapid"), "rb") as job:
            self.assertEqual(self.run_program("post", "-", stdin=job).stdout, self.APT)
        # The table leaves the second sequence without lines.
        self.assertEqual(self.run_program("post", "jobs/job", "-t", "more").stdout, "OTHER/1\n")
        self.assertEqual(self.read("jobs/d"), before)

    def test_option_holds_before_the_header(self):
        self.make("d")
        self.write("jobs/job", self.JOB % ',"document":"d"')
        self.check(
            self.run_program("post", "jobs/job", "-d", "d"),
            1,
            "",
            "jobs/job:2: error: PP command 2 is not in this document, which has 0\n",
        )

    def test_document_of_the_header_is_needed_and_not_replaced(self):
        self.write("job", self.JOB % ',"document":"none"')
        self.check(
            self.run_program("post", "job"),
            1,
            "",
            "none: error: cannot be opened: No such file or directory\n",
        )
        self.write("jobs/job", self.JOB % ',"document":"d"')
        self.check(
            self.run_program("post", "jobs/job", "-o", "jobs/d"),
            2,
            "",
            "ppword post: the output would replace the input jobs/d\n"
            "Try 'ppword post --help'.\n",
        )


class Refusals(DocumentTest):
    def test_no_document_gives_1(self):
        for action in (["show"], ["reset"], ["set-syntax"], ["upgrade"]):
            line = ["x"] if action == ["set-syntax"] else []
            self.check(
                self.run_document(*action, "table", *line),
                1,
                "",
                "table: error: this file is not a document\n",
            )
            self.check(
                self.run_document(*action, "none", *line),
                1,
                "",
                "none: error: cannot be opened: No such file or directory\n",
            )
        self.assertEqual(self.files(), ["table"])
        self.assertEqual(self.read("table"), TABLE)

    def test_no_document_is_told_in_json(self):
        done = self.run_document("show", "--format", "json", "table")
        self.assertEqual(
            json.loads(done.stdout),
            {
                "file": "table",
                "saved": False,
                "diagnostics": [
                    {"severity": "error", "file": "table", "message": "this file is not a document"}
                ],
            },
        )
        self.assertEqual(done.returncode, 1)

    def test_newer_document_gives_1(self):
        self.make()
        self.sql("PRAGMA user_version=9")
        self.check(
            self.run_document("show", "d"),
            1,
            "",
            "d: error: the document is of version 9; this program reads no newer version than 2\n",
        )

    def test_post_with_no_document_gives_1(self):
        self.write("job", program.JOB)
        self.check(
            self.run_program("post", "job", "-d", "table"),
            1,
            "",
            "table: error: this file is not a document\n",
        )

    def test_post_does_not_replace_its_document(self):
        self.make()
        self.write("job", program.JOB)
        self.check(
            self.run_program("post", "job", "-d", "d", "-o", "d"),
            2,
            "",
            "ppword post: the output would replace the input d\nTry 'ppword post --help'.\n",
        )

    def test_mistakes_are_told(self):
        mistakes = [
            (["shwo", "d"], "there is no action 'shwo'; did you mean 'show'?"),
            (["show"], "FILE is required"),
            ([], "ACTION is required"),
            (["show", ""], "FILE is required"),
            (["new", "d", "x"], "'x' is one argument too many"),
            (["load-table", "d"], "load-table needs TABLE"),
            (["set-syntax", "d"], "set-syntax needs LINE"),
            (["add-command", "d"], "add-command needs NAME"),
            (
                ["add-command", "d", "NC_GOTO", "0"],
                "NUMBER is a whole number from 1 to 2147483647, not '0'",
            ),
            (
                ["add-command", "d", "NC_GOTO", "2147483648"],
                "NUMBER is a whole number from 1 to 2147483647, not '2147483648'",
            ),
            (
                ["add-command", "d", "NC_GOTO", "NC_GOTO", ""],
                "NUMBER is a whole number from 1 to 2147483647, not ''",
            ),
            (
                ["add-command", "d", "NC_GOTO", "1.5"],
                "NUMBER is a whole number from 1 to 2147483647, not '1.5'",
            ),
            (
                ["add-command", "d", "--", "NC_GOTO", "-1"],
                "NUMBER is a whole number from 1 to 2147483647, not '-1'",
            ),
            (["add-command", "d", "NC_GOTO", "1", "2"], "'2' is one argument too many"),
            (
                ["add-command", "d", "NC_GOTO", "--from", "table"],
                "'NC_GOTO' is one argument too many with --from",
            ),
            (["reset", "d", "--from", "table"], "--from is for add-command"),
            (["show", "d", "format"], "there is no section 'format'; did you mean 'formats'?"),
        ]
        for arguments, message in mistakes:
            self.check(
                self.run_document(*arguments),
                2,
                "",
                f"ppword document: {message}\nTry 'ppword document --help'.\n",
            )


class Trouble(DocumentTest):
    def setUp(self):
        super().setUp()
        self.make()

    def test_lock_of_another_process_is_told(self):
        connection = sqlite3.connect(os.path.join(self.folder, "d"), isolation_level=None)
        connection.execute("BEGIN IMMEDIATE")
        self.assertEqual(self.run_document("show", "d").returncode, 0)
        self.check(
            self.run_document("reset", "d"),
            3,
            "",
            "ppword: error: d cannot be written: " + HELD,
        )
        connection.execute("COMMIT")
        connection.execute("BEGIN EXCLUSIVE")
        self.check(self.run_document("show", "d"), 1, "", "d: error: cannot be read: " + HELD)
        connection.close()
        self.assertEqual(self.run_document("reset", "d").returncode, 0)

    def test_changes_at_the_same_time_are_all_made(self):
        processes = [
            subprocess.Popen(
                [PPWORD, "document", "add-command", "d", "NC_GOTO", str(number)],
                cwd=self.folder,
                stdout=subprocess.DEVNULL,
                stderr=subprocess.PIPE,
            )
            for number in range(1, 5)
        ]
        for number, process in enumerate(processes, 1):
            warning = f"d: warning no-sequence: 'NC_GOTO' has no sequence {number}; it has 1\n"
            warning = "" if number == 1 else warning
            self.assertEqual((process.communicate()[1].decode(), process.returncode), (warning, 0))
        sequences = sorted(line.split()[-1] for line in self.commands().splitlines()[1:])
        self.assertEqual(sequences, ["1", "2", "3", "4"])

    def test_file_that_may_not_grow_is_told_and_kept(self):
        shown = self.run_document("show", "d").stdout
        for most in (0, 5000, 30000):
            self.check(
                self.run_document(
                    "add-command",
                    "d",
                    "NC_GOTO",
                    preexec_fn=lambda most=most: resource.setrlimit(
                        resource.RLIMIT_FSIZE, (most, most)
                    ),
                ),
                3,
                "",
                "ppword: error: d cannot be written: File too large\n",
            )
            self.assertEqual(self.run_document("show", "d").stdout, shown)
            self.check(
                self.run_document(
                    "new",
                    "e",
                    preexec_fn=lambda most=most: resource.setrlimit(
                        resource.RLIMIT_FSIZE, (most, most)
                    ),
                ),
                3,
                "",
                "ppword: error: e cannot be written: File too large\n",
            )
        self.assertEqual(self.files(), ["d", "table"])

    def test_killed_program_leaves_the_old_or_the_new_state(self):
        count = 0
        for _ in range(15):
            process = subprocess.Popen(
                [PPWORD, "document", "add-command", "d", "NC_GOTO"],
                cwd=self.folder,
                stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL,
            )
            time.sleep(random.uniform(0.0, 0.15))
            process.send_signal(signal.SIGKILL)
            process.wait()
            shown = self.run_document("show", "d", "pp-commands")
            self.assertEqual((shown.stderr, shown.returncode), ("", 0))
            now = len(shown.stdout.splitlines()) - 1
            self.assertIn(now, (count, count + 1))
            count = now

    def test_full_standard_output_does_not_undo_a_change(self):
        with open("/dev/full", "w", encoding="ascii") as full:
            done = self.run_document("add-command", "d", "NC_GOTO", stdout=full)
        self.assertEqual(done.returncode, 5)
        self.assertIn("1  NC_GOTO", self.commands())

    def test_special_files_are_no_documents(self):
        for place in ("/dev/full", "/dev/null", "."):
            self.check(
                self.run_document("reset", place),
                1,
                "",
                f"{place}: error: not a regular file, so not a document\n",
            )


if __name__ == "__main__":
    program.main()
