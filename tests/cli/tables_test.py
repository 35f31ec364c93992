"""Tables that are found in the PPTables folders, and the words of a table."""

import json
import os
import re
import shlex

import program
from program import APT, JOB

NAMED = JOB.replace('"units"', '"resource":{"name":"M","table":"mill"},"units"')
FORMAT = "*START_FORMAT MFG_XPOINT\n%.1f\n*END\n"
POINTS = "GOTO/1.0,    2.00000,    3.00000\nGOTO/4.0,    5.00000,    6.00000\n"
NOT_FOUND = (
    'job:1:55: error ERR_5015: $.resource.table: "mill": the PP word table that the program\'s '
    "resource names is in none of the PPTables folders; put the file there or correct its name, "
    "small and capital letters count; 'ppword tables' shows them\n"
)
WORDS = (
    "*START_MAJOR_WORDS_WITH_PARAMETERS\nGOTO,5005\n*END\n*START_MINOR_WORDS\nON,71\nLEFT,71\n*END\n"
)


def report(table):
    return (
        "job: 2 elements, 2 lines\n"
        + table
        + "  not verified\nstandard output: written\n"
    )


class Tables(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.environment = dict(os.environ, PPWORD_RESOURCE_PATH="a:b")
        self.environment.pop("MFG_PPTABLE_NOLOAD", None)
        for folder in ("a/PPTables", "b/PPTables"):
            os.makedirs(os.path.join(self.folder, folder))

    def run_here(self, *arguments, **settings):
        return self.run_program(*arguments, env={**self.environment, **settings})

    def test_jobs_table_is_found_and_loaded(self):
        self.write("job", NAMED)
        self.write("b/PPTables/mill", FORMAT)
        self.check(self.run_here("post", "job"), 0, POINTS, report("  table: b/PPTables/mill\n"))

    def test_first_folder_wins_and_hides_the_others(self):
        self.write("job", NAMED)
        self.write("a/PPTables/mill", FORMAT)
        self.write("b/PPTables/mill", "*OOPS\n")
        table = "  table: a/PPTables/mill\n  WARNING: it hides b/PPTables/mill\n"
        self.check(self.run_here("post", "job"), 0, POINTS, report(table))

    def test_table_that_is_not_found_is_refused(self):
        self.write("job", NAMED)
        self.write("a/PPTables/Mill", FORMAT)
        done = self.run_here("post", "job")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertEqual(done.stderr.splitlines(keepends=True)[0], NOT_FOUND)
        os.symlink(os.path.join(self.folder, "job"), os.path.join(self.folder, "a/PPTables/mill"))
        done = self.run_here("post", "job")
        self.assertEqual(done.stderr.splitlines(keepends=True)[0], NOT_FOUND)

    def test_name_leads_out_of_no_folder(self):
        self.write("outside", FORMAT)
        for name in ("../../outside", os.path.join(self.folder, "outside"), "..", "./mill"):
            self.write("job", NAMED.replace('"mill"', json.dumps(name)))
            done = self.run_here("post", "job")
            self.assertEqual(done.returncode, 1, name)
            self.assertIn("ERR_5015", done.stderr)

    def test_found_table_that_is_refused_tells_its_place(self):
        self.write("job", NAMED)
        self.write("a/PPTables/mill", "*START_LIST\n*END\n")
        done = self.run_here("post", "job")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.startswith("a/PPTables/mill:1:13: error ERR_5006: "))

    def test_given_table_takes_the_place_of_the_jobs(self):
        self.write("job", NAMED)
        self.write("mine", FORMAT)
        table = "  table: mine, given with -t; the table of the job, mill, is not used\n"
        self.check(self.run_here("post", "job", "-t", "mine"), 0, POINTS, report(table))

    def test_switch_keeps_the_jobs_table_out(self):
        self.write("job", NAMED)
        self.write("a/PPTables/mill", FORMAT)
        table = "  table: none, since MFG_PPTABLE_NOLOAD is set\n"
        done = self.run_here("post", "job", MFG_PPTABLE_NOLOAD="0")
        self.check(done, 0, APT, report(table))
        done = self.run_here("post", "job", MFG_PPTABLE_NOLOAD="")
        self.check(done, 0, POINTS, report("  table: a/PPTables/mill\n"))

    def test_switch_does_not_apply_to_a_given_table(self):
        self.write("job", JOB)
        self.write("mine", FORMAT)
        table = "  table: mine, given with -t; MFG_PPTABLE_NOLOAD does not apply to it\n"
        done = self.run_here("post", "job", "-t", "mine", MFG_PPTABLE_NOLOAD="1")
        self.check(done, 0, POINTS, report(table))

    def test_report_for_programs_holds_the_table(self):
        def table_of(*arguments, **settings):
            done = self.run_here("post", "--format", "json", *arguments, **settings)
            return json.loads(done.stderr)["table"]

        self.write("job", NAMED)
        self.write("plain", JOB)
        self.write("a/PPTables/mill", FORMAT)
        self.write("b/PPTables/mill", FORMAT)
        found = {
            "file": "a/PPTables/mill",
            "given": False,
            "named": "mill",
            "loadingSwitchedOff": False,
            "hidden": ["b/PPTables/mill"],
        }
        self.assertEqual(table_of("job"), found)
        switched_off = {**found, "file": None, "loadingSwitchedOff": True, "hidden": []}
        self.assertEqual(table_of("job", MFG_PPTABLE_NOLOAD="1"), switched_off)
        given = {**found, "file": "b/PPTables/mill", "given": True, "hidden": []}
        self.assertEqual(table_of("job", "-t", "b/PPTables/mill"), given)
        self.assertIsNone(table_of("plain"))

    def test_output_does_not_replace_the_table_found(self):
        self.write("job", NAMED)
        self.write("a/PPTables/mill", FORMAT)
        done = self.run_here("post", "job", "-o", "a/PPTables/mill")
        self.assertEqual(done.returncode, 2)
        self.assertIn("the output would replace the input a/PPTables/mill\n", done.stderr)
        self.assertEqual(self.read("a/PPTables/mill"), FORMAT)

    def test_tables_shows_folders_files_and_what_is_hidden(self):
        self.write("a/PPTables/mill", "")
        self.write("b/PPTables/mill", "")
        self.write("b/PPTables/lathe", "")
        os.symlink("../../a/PPTables/mill", os.path.join(self.folder, "b/PPTables/out"))
        self.check(
            self.run_here("tables"),
            0,
            "a/PPTables\n  mill\nb/PPTables\n  lathe\n  mill  hidden by a/PPTables/mill\n"
            "  out  skipped: the link leads out of the folder\n",
        )
        self.assertEqual(
            json.loads(self.run_here("tables", "--format", "json").stdout)["folders"][1],
            {
                "folder": "b/PPTables",
                "problem": None,
                "files": [
                    {"name": "lathe", "file": "b/PPTables/lathe", "hiddenBy": None},
                    {"name": "mill", "file": "b/PPTables/mill", "hiddenBy": "a/PPTables/mill"},
                ],
                "passedOver": [{"name": "out", "reason": "the link leads out of the folder"}],
            },
        )

    def test_tables_without_folders_says_why(self):
        self.check(
            self.run_here("tables", PPWORD_RESOURCE_PATH=""),
            0,
            "no PPTables folder: the setting PPWORD_RESOURCE_PATH lists no directory\n",
        )
        self.check(
            self.run_here("tables", PPWORD_RESOURCE_PATH="absent"),
            0,
            "no PPTables folder in the directories of the setting PPWORD_RESOURCE_PATH\n",
        )

    def test_folder_that_cannot_be_read_is_told(self):
        self.write("a/file", "")
        os.makedirs(os.path.join(self.folder, "c"))
        os.symlink("../a/file", os.path.join(self.folder, "c/PPTables"))
        done = self.run_here("tables", PPWORD_RESOURCE_PATH="c")
        self.check(done, 1, "c/PPTables: cannot be read: Not a directory\n")

    def test_words_shows_the_list_with_its_fixed_words(self):
        self.write("table", WORDS)
        self.check(
            self.run_here("words", "table"),
            0,
            "words (5)\n"
            "  GOTO    5005    major word with parameters\n"
            "  ON      71      minor word\n"
            "  LEFT    71      minor word\n"
            "  TPRINT  1075    major word with parameters\n"
            "  NOTE    181     minor word\n",
        )
        words = json.loads(self.run_here("words", "--format", "json", "table").stdout)["words"]
        self.assertEqual(words[3], {"word": "TPRINT", "kind": 3, "code": 1075})

    def test_code_tells_kind_and_code_of_words(self):
        self.write("table", WORDS)
        self.check(
            self.run_here("code", "table", "GOTO /1", "GOTO/1", "NOTE"),
            1,
            "GOTO /1  5005  major word with parameters\nNOTE  181  minor word\n",
            'table: error: the word "GOTO/1" is not in the table, or has no code\n',
        )
        done = self.run_here("code", "--format", "json", "table", "ON", "X")
        self.assertEqual(
            json.loads(done.stdout)["words"],
            [{"word": "ON", "kind": 4, "code": 71}, {"word": "X", "kind": None, "code": None}],
        )

    def test_word_tells_the_first_word_of_codes(self):
        self.write("table", WORDS)
        self.check(
            self.run_here("word", "table", "71", "1075", "72"),
            1,
            "71  ON\n1075  TPRINT\n",
            "table: error: no word of the table has the code 72\n",
        )
        done = self.run_here("word", "--format", "json", "table", "181", "9")
        self.assertEqual(
            json.loads(done.stdout)["codes"],
            [{"code": 181, "word": "NOTE"}, {"code": 9, "word": None}],
        )

    def test_answers_without_any_found_are_refused(self):
        self.write("table", WORDS)
        refusals = (
            (["code", "table", "X"], 'the word "X" is not in the table, or has no code'),
            (["word", "table", "72"], "no word of the table has the code 72"),
        )
        for command, reason in refusals:
            self.check(self.run_here(*command), 1, "", f"table: error: {reason}\n")
            done = self.run_here(*command, "--format", "json")
            self.assertEqual((done.returncode, done.stderr), (1, f"table: error: {reason}\n"))

    def test_codes_out_of_step_are_told(self):
        self.write("table", "*START_MAJOR_WORDS_WITH_TEXT\nA,1\nB,x\nC,3\n*END\n")
        warning = (
            "table: warning unpaired-words: a word has no code, or a code no word: the codes "
            "after it are wrong\n"
        )
        self.check(
            self.run_here("code", "table", "B"), 0, "B  3  major word with text\n", warning
        )
        self.check(self.run_here("word", "table", "3"), 0, "3  B\n", warning)

    def test_refused_tables_are_told_for_every_query(self):
        self.write("bad", "*OOPS\n")
        self.write("open", "*END\n*START_MINOR_WORDS\nON,71\n")
        for query in (["words", "{}"], ["code", "{}", "ON"], ["word", "{}", "71"]):
            arguments = [part.format("bad") for part in query]
            done = self.run_here(*arguments)
            self.assertEqual((done.returncode, done.stdout), (1, ""))
            self.assertTrue(done.stderr.startswith("bad:1:1: error ERR_5001: "), done.stderr)
            done = self.run_here(*arguments, "--format", "json")
            self.assertEqual(json.loads(done.stdout)["diagnostics"][0]["key"], "ERR_5001")
            self.check(
                self.run_here(*[part.format("open") for part in query]),
                1,
                "",
                "open: error: the words cannot be read: a section of words has no *END, or a "
                "word has more than 1023 characters\n",
            )

    def test_code_that_is_no_number_is_a_mistake(self):
        self.write("table", WORDS)
        for code in ("x", "1x", "2147483648", ""):
            self.check(
                self.run_here("word", "table", "1", code),
                2,
                "",
                "ppword word: CODE: a code is a whole number from -2147483648 to 2147483647, not "
                f"'{code}'\nTry 'ppword word --help'.\n",
            )

    def manual(self):
        path = os.path.join(program.SOURCE, "docs", "table-location.md")
        with open(path, encoding="utf-8") as file:
            return file.read()

    def test_listing_of_the_manual_is_what_tables_shows(self):
        cam, shop = "home/mia/cam/PPTables", "srv/shop/PPTables"
        for file in (f"{cam}/mill", f"{cam}/trial", f"{shop}/lathe", f"{shop}/mill"):
            os.makedirs(os.path.join(self.folder, os.path.dirname(file)), exist_ok=True)
            self.write(file + ".pptable", "")
        os.symlink("absent", os.path.join(self.folder, shop, "old.pptable"))
        root = os.path.realpath(self.folder)
        path = f"{root}/home/mia/cam:{root}/srv/shop"
        done = self.run_here("tables", PPWORD_RESOURCE_PATH=path)
        shown = done.stdout.replace(root, "").splitlines()
        self.assertEqual(len(shown), 7)
        self.assertIn("".join(f"    {line}\n" for line in shown), self.manual())

    def test_commands_of_the_manual_run(self):
        with open(os.path.join(program.EXAMPLES, "mill.pptable"), "rb") as file:
            self.write("mill.pptable", file.read())
        commands = re.findall(r"^    ppword (.*)$", self.manual(), re.MULTILINE)
        self.assertEqual(len(commands), 3)
        for command in commands:
            done = self.run_here(*shlex.split(command))
            self.assertEqual((done.returncode, done.stderr), (0, ""), command)


if __name__ == "__main__":
    program.main()
