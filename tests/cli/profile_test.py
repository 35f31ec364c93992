"""Profiles: texts as their readers take them, and the mistakes of profiles."""

import json
import os
import re
import subprocess

import program

JOB = (
    '{"job":1,"program":"P","units":"mm"}\n'
    '{"nc":"NC_X","axis":[0,0,1],"points":[[1,2,3]]}\n'
    '{"end":true}\n'
)
WIDE = "*START_NC_INSTRUCTION NC_X\nLONGER/" + ",".join(["%MFG_XPOINT"] * 8) + "\n*END\n"
POINT = "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT"
TEXT = "*START_NC_INSTRUCTION NC_X\nPPRINT " + "A, B" * 20 + "\n*END\n"


class Profiles(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)
        self.write("wide", WIDE)
        self.write("text", TEXT)

    def test_manual_has_the_shipped_profiles_and_what_they_write(self):
        with open(os.path.join(program.SOURCE, "docs", "profiles.md"), encoding="utf-8") as file:
            manual = file.read()
        shipped = re.findall(r"```profile\n(.*?)```", manual, re.S)
        self.assertEqual(len(shipped), 2)
        for name, text in zip(("iso4343", "cl"), shipped):
            self.write("mine", text)
            for table in ("wide", "text"):
                mine, theirs = (
                    self.run_program("post", "job", "-t", table, "--profile", profile)
                    for profile in ("./mine", name)
                )
                self.assertEqual(mine.stdout, theirs.stdout)
                self.assertEqual(mine.returncode, theirs.returncode)
        begin = re.search(r"begins:\n\n```text\n(.*?)```", manual, re.S).group(1)
        done = subprocess.run(
            [program.PPWORD, "post", os.path.join(program.EXAMPLES, "drilling.job.jsonl"), "-t",
             os.path.join(program.EXAMPLES, "mill.pptable"), "--profile", "cl"],
            capture_output=True,
            check=True,
        )
        self.assertTrue(done.stdout.decode().replace("\r\n", "\n").startswith(begin))

    def test_every_line_of_a_card_has_its_number_and_80_columns(self):
        self.run_program("post", "job", "-t", "wide", "--profile", "cl", "-o", "apt")
        lines = self.read("apt").split("\r\n")
        self.assertEqual(lines.pop(), "")
        self.assertEqual([line[72:] for line in lines], ["00000010", "00000020"])
        self.assertEqual({len(line) for line in lines}, {80})
        whole = "".join(line[:72].rstrip().removesuffix("$") for line in lines)
        plain = self.run_program("post", "job", "-t", "wide").stdout
        self.assertEqual(whole + "\n", plain)

    def test_line_that_does_not_fit_is_refused_and_an_older_file_stays(self):
        self.write("apt", "OLD\n")
        done = self.run_program("post", "job", "-t", "text", "--profile", "iso4343", "-o", "apt")
        self.assertEqual(
            (done.returncode, done.stdout, done.stderr.splitlines()[0]),
            (
                1,
                "",
                'job:2: error: NC_X cannot be written: the text "PPRINT A, BA, BA, BA, BA, BA, BA, '
                'BA, BA..." does not fit into 72 columns',
            ),
        )
        self.assertEqual(self.read("apt"), "OLD\n")
        self.assertEqual(self.files(), ["apt", "job", "text", "wide"])

    def test_replaced_characters_are_refused_when_strict(self):
        self.write("table", "*START_NC_INSTRUCTION NC_X\nPPRINT 12°\n*END\n")
        arguments = ["job", "-t", "table", "--profile", "cl", "-o", "apt"]
        done = self.run_program("post", "--format", "json", *arguments)
        self.assertEqual(done.returncode, 0)
        self.assertEqual(
            json.loads(done.stderr)["losses"][0],
            {"key": "replaced-character", "count": 1, "missing": True,
             "first": {"name": "\u00c2\u00b0", "line": 1}},
        )
        for strict in ("--strict", "--strict=replaced-character"):
            self.assertEqual(self.run_program("post", strict, *arguments).returncode, 1)

    def test_many_jobs_have_a_profile(self):
        self.write("other", JOB)
        done = self.run_program(
            "post", "job", "other", "-t", "wide", "--profile", "cl", "--output-dir", ".", "-j", "2"
        )
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(self.read("job.apt"), self.read("other.apt"))
        self.assertIn("00000020\r\n", self.read("job.apt"))

    def test_map_explains_a_continued_line(self):
        self.run_program(
            "post", "job", "-t", "wide", "--profile", "cl", "-o", "apt", "--map", "map"
        )
        for line in ("1", "2"):
            done = self.run_program("explain", "--map", "map", line)
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertIn("wide:2", done.stdout)

    def test_text_is_verified_with_its_profile(self):
        for profile in ("cl", "iso4343"):
            table = "*START_NC_INSTRUCTION NC_X\n" + POINT + "\nPPRINT 1\u00b0\n*END\n"
            if profile == "iso4343":
                table = table.replace("\u00b0", "")
            self.write("table", table)
            arguments = ["job", "-t", "table", "--profile", profile, "-o", "apt"]
            done = self.run_program("post", *arguments)
            self.assertIn("  verified: 2 statements", done.stderr)
            done = self.run_program(
                "verify", "--strict", "apt", "--profile", profile, "--against", "job", "-t", "table"
            )
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertTrue(done.stdout.endswith("apt: passes\n"), done.stdout)

    def test_numbers_of_lines_are_in_the_same_columns_after_other_characters(self):
        self.write("table", "*START_NC_INSTRUCTION NC_X\nPPRINT 1\u00b0 \u20ac\n" + POINT + "\n*END\n")
        self.write("mine", "columns = 72\nsequence-numbers = 10\n")
        done = self.run_program("post", "job", "-t", "table", "--profile", "mine", "-o", "apt")
        self.assertIn("  verified: 2 statements", done.stderr)
        self.assertEqual(
            self.read("apt").encode("latin-1").decode(),
            "PPRINT 1\u00b0 \u20ac" + 61 * " " + "00000010\nGOTO/    1.00000,    2.00000,    3.00000" + 32 * " " + "00000020\n",
        )
        done = self.run_program(
            "verify", "--strict", "apt", "--profile", "mine", "--against", "job", "-t", "table"
        )
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_words_of_a_profile_are_known_when_the_text_is_read_back(self):
        self.write("table", "*START_NC_INSTRUCTION NC_X\nMOVE/%MFG_XPOINT,2,3\n*END\n")
        self.write("mine", "word MOVE = GOTO\n")
        arguments = ["post", "--strict", "job", "-t", "table", "-o", "apt"]
        self.assertEqual(self.run_program(*arguments).returncode, 1)
        done = self.run_program(*arguments, "--profile", "mine")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.write("mine", "word MOVE = GOTTO\n")
        done = self.run_program(*arguments, "--profile", "mine")
        self.assertEqual(done.returncode, 1)
        self.assertIn("mine:1:13: error: the reader does not know the word 'GOTTO'", done.stderr)

    def test_lines_that_the_reader_does_not_take_are_found(self):
        hint = ": the reader of --profile does not take the line; write the text with 'ppword post --profile'"
        card = "RAPID" + " " * 67
        for profile, text, findings in (
            ("line-end = crlf", "RAPID\r\nRAPID\nRAPID\n", ["2:6: the line ends with LF"]),
            ("line-end = lf", "RAPID\nRAPID\r\n", ["2:6: the line ends with CR LF"]),
            ("columns = 80", "PPRINT " + 74 * "A", ["1:81: more than 80 columns"]),
            ("columns = 72", "PPRINT " + 66 * "A" + "\n", ["1:73: more than 72 columns"]),
            ("longest-word = 6", "PPRINT GOODBYE\nHELICAL/1\n", ["2:1: a word of more than 6 letters"]),
            ("characters = capitals", "PPRINT A\nPPRINT b\n", ["2:8: 'b'"]),
            (
                "columns = 72\nsequence-numbers = 10",
                card + "00000010\n" + card + "00000030\n" + card + "00000040\nRAPID\n",
                [
                    "2:73: the number 00000030, where 00000020 is due",
                    "4:73: no number of eight digits in columns 73 to 80",
                ],
            ),
        ):
            self.write("mine", profile)
            self.write("text", text)
            done = self.run_program("verify", "text", "--profile", "./mine")
            shown = [line for line in done.stderr.splitlines() if line.startswith("text:")]
            places = [line.replace(": ", ": error unfit-line: ", 1) for line in findings]
            self.assertEqual(shown, ["text:" + place + hint for place in places], profile)
            self.assertEqual(done.returncode, 1)

    def test_mistakes_are_refused_with_their_place(self):
        self.write("bad", "columns = 72\nspeed = 9\n")
        message = (
            "bad:2:1: error: 'speed' is not 'word', 'columns', 'line-end', 'sequence-numbers', "
            "'characters', 'other-characters' or 'longest-word'"
        )
        self.write("small", "characters = capitals\nother-characters = a\n")
        small = (
            "small:2:20: error: 'a' is not among characters = capitals; write a capital, a digit "
            "or one of + - * / , . ( ) = $ '"
        )
        missing = "none: error: cannot be opened: No such file or directory"
        for profile, expected in (("bad", message), ("small", small), ("none", missing)):
            for command in (
                ("post", "job", "-t", "wide", "-o", "apt"),
                ("check", "--lint", "wide"),
            ):
                done = self.run_program(*command, "--profile", profile)
                self.assertEqual((done.returncode, done.stdout), (1, ""))
                self.assertEqual(done.stderr.splitlines()[0], expected)
                self.assertNotIn("apt", self.files())
        for mistake, *command in (
            ("ppword check: --profile needs --lint", "check", "wide", "--profile", "cl"),
            ("ppword post: --profile needs a name or a file", "post", "job", "--profile", "-"),
            ("ppword post: the output would replace the input bad", "post", "job", "--profile",
             "bad", "-o", "bad"),
        ):
            done = self.run_program(*command)
            self.assertEqual((done.returncode, done.stderr.splitlines()[0]), (2, mistake))


if __name__ == "__main__":
    program.main()
