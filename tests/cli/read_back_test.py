"""Texts that are read back before they get their names, and what is said of them."""

import errno
import glob
import json
import os
import shlex
import shutil
import signal
import subprocess

import program
from program import APT, JOB, REPORT, VERIFIED

HEADER = '{"job":1,"program":"P","units":"mm"}\n'
END = '{"end":true}\n'
# A reader takes the dollar for the mark that continues a statement.
DOLLAR = (
    HEADER + '{"nc":"NC_OUTPUT_COMMENT","comment":"PRICE $"}\n{"nc":"NC_RAPID"}\n' + END
)
WHY = "not written: the text, read back, is not what the input says; --no-verify writes it unread\n"
PLACES = (
    "apt:2:1: error difference: PRICE RAPID, where the input has PRICE $: the text differs from "
    "the input; nothing after it was compared\n"
    "job:2: note difference: NC_OUTPUT_COMMENT is here\n"
)
BARE = "  WARNING: comments written as statements: NC_OUTPUT_COMMENT (in line 2)\n"
NONE = "  verified: 0 statements, 0 of them the table's own; the next one differs\n"
COMPUTES = "*START_NC_INSTRUCTION NC_GOTO\nGOTO/%MFG_XPOINT+0,%MFG_YPOINT,%MFG_ZPOINT\n*END\n"


class ReadBackTest(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)
        self.write("apt", "old\n")

    def post(self, *arguments, **options):
        return self.run_program("post", "job", "-o", "apt", *arguments, **options)

    def post_with_fault(self, fault, *arguments):
        return self.run_with_fault(fault, "post", "job", "-o", "apt", *arguments)

    def check_old(self, *others):
        self.assertEqual((self.files(), self.read("apt")), (sorted(["apt", "job", *others]), "old\n"))


class Differences(ReadBackTest):
    def test_difference_leaves_the_old_file(self):
        self.write("job", DOLLAR)
        done = self.post()
        self.check(done, 1, "", PLACES + "job: 2 elements, 2 lines\n" + BARE + NONE + "apt: " + WHY)
        self.check_old()
        os.remove(os.path.join(self.folder, "apt"))
        self.assertEqual(self.post("-q").stderr, done.stderr)
        self.assertEqual(self.files(), ["job"])

    def test_difference_for_programs(self):
        self.write("job", DOLLAR)
        done = self.post("--format", "json")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        report = json.loads(done.stderr)
        self.assertEqual((report["written"], report["elements"]), (False, 2))
        self.assertEqual(
            report["verified"],
            {
                "agrees": False,
                "elements": 1,
                "statements": 0,
                "ownOfTable": 0,
                "notVerified": [],
                "otherPoints": [],
                "leftOut": [],
            },
        )
        self.assertEqual(
            [(each["severity"], each["file"], each["line"]) for each in report["diagnostics"]],
            [("error", "apt", 2), ("note", "job", 2)],
        )
        self.check_old()

    def test_unread_text_is_written(self):
        self.write("job", DOLLAR)
        done = self.post("--no-verify")
        self.check(done, 0, "", "job: 2 elements, 2 lines\n" + BARE + "  not verified\napt: written\n")
        self.assertEqual(self.read("apt"), "PRICE $\nRAPID\n")
        self.assertIsNone(json.loads(self.post("--no-verify", "--format", "json").stderr)["verified"])

    def test_difference_leaves_map_and_document(self):
        self.run_program("document", "new", "d")
        before = self.read("d")
        self.write("job", DOLLAR)
        self.assertEqual(self.post("-d", "d", "--map", "map").returncode, 1)
        self.check_old("d")
        self.assertEqual(self.read("d"), before)

    def test_map_that_is_read_back_is_written(self):
        self.check(self.post("--map", "map"), 0, "", REPORT + VERIFIED + "apt: written\n")
        self.assertEqual((self.files(), self.read("apt")), (["apt", "job", "map"], APT))

    def test_number_that_a_format_does_not_print_is_not_verified(self):
        for format in ("", "Q\n", "100 %% %%\n"):
            self.write("table", f"*START_FORMAT MFG_YPOINT\n{format}*END\n")
            done = self.post("-t", "table")
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertIn("  WARNING: printed without a number: MFG_YPOINT (2 times, ", done.stderr)
            self.assertIn("  WARNING: not verified: NC_GOTO (2 times, first in line 2)\n", done.stderr)
        self.write("table", "*START_FORMAT MFG_YPOINT\n%% %.1f\n*END\n")
        self.write("job", JOB.replace("[1,2,3]", "[1,2.26,3]"))
        self.assertNotIn("not verified", self.post("-t", "table").stderr)

    def test_strict_says_first_what_is_missing(self):
        self.write("job", program.LACKING_JOB.replace('{"nc":"NC_R', DOLLAR.splitlines()[1] + '\n{"nc":"NC_R'))
        done = self.post("--strict")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.endswith("apt: not written: 3 findings are refused\n"), done.stderr)
        self.assertTrue(done.stderr.startswith("apt:4:1: error difference: "), done.stderr)


class DamagedFiles(ReadBackTest):
    def test_every_byte_is_read_from_the_file(self):
        # A number, a word and the end of a line.
        for byte, found in (
            (10, "apt:1:6: error difference: 1.00001, where the input has 1"),
            (0, "apt:1:1: error difference: FOTO/    1.00000,    2.00000,    3.00000, where "),
            (len(APT) - 1, "apt:2:41: error difference: GOTO/    4.00000,    5.00000,    6.00000"),
        ):
            byte = APT.index("1.00000") + 6 if byte == 10 else byte
            done = self.post_with_fault(f"damage::{byte}:0")
            self.assertEqual(done.returncode, 1)
            self.assertTrue(done.stderr.startswith(found.replace("1:6:", "1:10:")), done.stderr)
            self.check_old()

    def test_place_is_right_in_every_group(self):
        line = "GOTO/    1.00000,    2.00000,    3.00000\n"
        element = '{"nc":"NC_GOTO","points":[[1,2,3]]}\n'
        many = '{"nc":"NC_GOTO","points":[' + ",".join(["[1,2,3]"] * 5000) + "]}\n"
        for job, elements in ((element * 600, 600), (many + element * 2 + many, 4)):
            self.write("job", HEADER + job + END)
            lines = 600 if elements == 600 else 10002
            for number in (1, 255, 256, 257, 511, 512, 513, lines):
                byte = len(line) * (number - 1) + line.index("2.00000")
                done = self.post_with_fault(f"damage::{byte}:0")
                self.assertTrue(
                    done.stderr.startswith(
                        f"apt:{number}:22: error difference: 3.00000, where the input has 2: "
                    ),
                    (number, done.stderr),
                )
                self.assertEqual(done.returncode, 1)
            self.check_old()
            self.assertEqual(self.post().returncode, 0)
            self.assertEqual(self.read("apt"), line * lines)
            self.write("apt", "old\n")

    def test_file_that_cannot_be_read_back_gives_3(self):
        message = "ppword: error: apt cannot be written: it cannot be read back: Input/output error\n"
        self.check(self.post_with_fault(f"pread::0:{errno.EIO}"), 3, "", message)
        self.check_old()
        self.check(
            self.post_with_fault(f"pread::0:{errno.EIO}", "--no-verify"),
            0,
            "",
            REPORT + "  not verified\napt: written\n",
        )

    def test_signal_while_the_text_is_read_back_leaves_the_old_file(self):
        for number in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
            self.check(self.post_with_fault(f"pread::0:{-number}", "--map", "map"), -number)
            self.check_old()

    def test_kill_while_the_text_is_read_back_leaves_the_old_file(self):
        for calls in (0, 1):
            done = self.post_with_fault(f"pread::{calls}:{-signal.SIGKILL}")
            self.check(done, -signal.SIGKILL)
            (left,) = self.temporary_files()
            self.check_old(left)
            # The next run removes it.
            self.assertEqual(self.run_program("post", "job", "-o", "other").returncode, 0)
            os.remove(os.path.join(self.folder, "other"))
            self.check_old()


class NotVerified(ReadBackTest):
    def test_lines_that_compute_are_named_and_refused_by_strict(self):
        self.write("table", COMPUTES)
        said = (
            "job: 2 elements, 2 lines\n"
            "  table: table, given with -t\n"
            "  WARNING: not verified: NC_GOTO (2 times, first in line 2)\n"
            "  verified: 0 statements, 0 of them the table's own\n"
        )
        for refusing in ("--strict", "--strict=not-verified"):
            done = self.post("-t", "table", refusing)
            self.check(done, 1, "", said + "apt: not written: 2 findings are refused\n")
            self.check_old("table")
        for accepting in (["--strict", "--allow=not-verified"], ["--strict=other-point"], []):
            self.check(self.post("-t", "table", *accepting), 0, "", said + "apt: written\n")

    def test_word_that_no_reader_knows_is_not_verified(self):
        self.write("table", COMPUTES.replace("GOTO/%MFG_XPOINT+0", "MOVE/%MFG_XPOINT"))
        self.assertIn("  WARNING: not verified: NC_GOTO (2 times, ", self.post("-t", "table").stderr)

    def test_statement_that_may_have_swallowed_the_next_is_not_verified(self):
        self.write("table", "*START_NC_INSTRUCTION NC_RAPID\nTOOLNO/3,\nRAPID\n*END\n")
        self.write("job", HEADER + '{"nc":"NC_RAPID"}\n' + END)
        done = self.post("-t", "table")
        self.assertEqual(self.read("apt"), "TOOLNO/3,$\nRAPID\n")
        self.assertIn("  WARNING: not verified: NC_RAPID (in line 2)\n", done.stderr)
        self.assertEqual(done.returncode, 0)

    def test_words_of_texts_are_those_of_the_table(self):
        self.write(
            "table",
            "*START_MAJOR_WORDS_WITH_TEXT\nNOTE, 181\n*END\n"
            "*START_NC_INSTRUCTION NC_OUTPUT_COMMENT\nNOTE/%MFG_OUTPUT_COMMENT\n*END\n",
        )
        self.write("job", DOLLAR)
        done = self.post("-t", "table", "--strict")
        self.assertEqual((done.returncode, self.read("apt")), (0, "NOTE/PRICE $\nRAPID\n"), done.stderr)

    def test_other_outputs_are_not_verified(self):
        said = REPORT + "  not verified\nstandard output: written\n"
        for strict in ((), ("--strict",), ("--strict", "--allow=not-verified")):
            self.check(self.run_program("post", "job", *strict), 0, APT, said)
        self.check(
            self.run_program("post", "job", "--strict=not-verified"),
            1,
            "",
            said.replace("written", "not written: 1 finding is refused"),
        )
        done = self.run_program("post", "job", "-o", "/dev/null")
        self.check(done, 0, "", REPORT + "  not verified\n/dev/null: written\n")
        done = self.post("--no-verify", "--strict=not-verified")
        self.check(
            done, 1, "", REPORT + "  not verified\napt: not written: 1 finding is refused\n"
        )
        self.check_old()

    def test_what_a_table_leaves_out_is_a_note(self):
        self.write("table", "*START_NC_INSTRUCTION NC_RAPID\n*END\n")
        self.write("job", JOB.replace('{"nc"', '{"nc":"NC_RAPID"}\n{"nc":"NC_RAPID"}\n{"nc"'))
        done = self.post("-t", "table", "--strict")
        self.check(
            done,
            0,
            "",
            "job: 4 elements, 2 lines\n"
            "  table: table, given with -t\n"
            "  NOTE: built-in lines, the table has none: NC_GOTO (2 times, first in line 4)\n"
            "  NOTE: left out by the table: NC_RAPID (2 times, first in line 2)\n"
            "  verified: 2 statements, 0 of them the table's own\n"
            "apt: written\n",
        )

    def test_other_point_is_named_and_refused_by_strict(self):
        table = os.path.join(program.EXAMPLES, "cldata.pptable")
        arc = '"circle":{"center":[0,0,0],"normal":[0,0,1],"radius":1,"point":[1,0,0]}'
        self.write(
            "job",
            JOB.replace('{"end"', '{"nc":"NC_CIRCLE1","axis":[0,0,1],' + arc + '}\n{"end"'),
        )
        done = self.post("-t", table)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("  WARNING: another point than stated: NC_CIRCLE1 (in line 3)\n", done.stderr)
        for refusing in ("--strict", "--strict=other-point"):
            self.assertEqual(self.post("-t", table, refusing).returncode, 1)


class Inputs(ReadBackTest):
    def test_examples_agree_with_every_table(self):
        tables = [[], *(["-t", table] for table in sorted(glob.glob(f"{program.EXAMPLES}/*.pptable")))]
        inputs = [[path] for path in sorted(glob.glob(f"{program.EXAMPLES}/*.jsonl"))]
        inputs += [
            [f"{program.EXAMPLES}/bracket.canon"],
            [f"{program.EXAMPLES}/tilted.canon", "--rotary", "C:table:Z,A:table:X"],
        ]
        for job in inputs:
            for table in tables:
                with self.subTest(job=job, table=table):
                    done = self.run_program("post", *job, *table, "-o", "apt", "--format", "json")
                    self.assertEqual(done.returncode, 0, done.stderr)
                    self.assertTrue(json.loads(done.stderr)["verified"]["agrees"])

    def test_golden_runs_agree(self):
        """Those without a file as output too."""
        agreeing = 0
        for case in sorted(glob.glob(os.path.join(program.SOURCE, "tests", "golden", "post-*"))):
            with open(os.path.join(case, "cmd"), encoding="ascii") as file:
                cmd = file.read().replace("--strict", "").replace("--format json", "")
            words = shlex.split(cmd)
            folder = os.path.join(self.folder, os.path.basename(case))
            shutil.copytree(case, folder)
            if "-o" in words:
                del words[words.index("-o") : words.index("-o") + 2]
            command = [program.PPWORD, *words, "-o", "read-back", "--format", "json"]
            done = subprocess.run(command, cwd=folder, capture_output=True, check=False)
            report = json.loads(done.stderr)
            if "verified" not in report:
                self.assertNotIn("difference", done.stderr.decode(), case)
                continue
            self.assertEqual((report["verified"]["agrees"], done.returncode), (True, 0), case)
            agreeing += 1
        self.assertEqual(agreeing, 13)

    def test_job_of_a_pipe_is_read_once(self):
        done = self.run_program("post", "-", "-o", "apt", input=JOB, stdin=None)
        said = REPORT.replace("job:", "standard input:") + VERIFIED
        self.check(done, 0, "", said + "apt: written\n")

    def test_coolant_of_a_listing_is_left_out(self):
        done = self.run_program(
            "post", f"{program.EXAMPLES}/bracket.canon", "-o", "apt", "--format", "json"
        )
        verified = json.loads(done.stderr)["verified"]
        self.assertEqual(
            [(call["name"], call["count"], call["firstLine"]) for call in verified["leftOut"]],
            [("FLOOD_OFF", 2, 48), ("FLOOD_ON", 2, 32), ("MIST_OFF", 2, 47)],
        )
        self.assertEqual((verified["elements"], verified["notVerified"]), (584, []))

    def test_nc_program_is_run_once(self):
        interpreter = shutil.which("rs274")
        if not interpreter:
            self.skipTest("rs274 is not installed")
        self.write("rs274", f'#!/bin/sh\necho run >> "{self.folder}/runs"\nexec {interpreter} "$@"\n')
        os.chmod(os.path.join(self.folder, "rs274"), 0o755)
        path = {**os.environ, "PATH": self.folder + ":" + os.environ["PATH"]}
        self.write("part.ngc", "G21\nG0 X1\nG1 F100 X2\nM2\n")
        done = self.run_program("post", "part.ngc", "-o", "apt", env=path)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("  verified: ", done.stderr)
        self.assertEqual(self.read("runs"), "run\n")

    def test_first_line_of_80_columns_is_no_card(self):
        self.write("table", "*START_NC_INSTRUCTION NC_OUTPUT_COMMENT\nPPRINT %MFG_OUTPUT_COMMENT\n*END\n")
        comment = "X" * 60 + "     " + "00000010"
        self.assertEqual(len("PPRINT " + comment), 80)
        self.write("job", HEADER + '{"nc":"NC_OUTPUT_COMMENT","comment":"%s"}\n' % comment + END)
        self.assertEqual(self.post("-t", "table").returncode, 0)
        self.assertEqual(self.read("apt"), f"PPRINT {comment}\n")


class ManyJobs(ReadBackTest):
    def test_job_that_differs_does_not_stop_the_others(self):
        self.write("one.jsonl", JOB)
        self.write("two.jsonl", DOLLAR)
        self.write("three.jsonl", JOB)
        os.mkdir(os.path.join(self.folder, "out"))
        self.write("out/two.apt", "old\n")
        for processes in ("1", "3"):
            done = self.run_program(
                *("post", "one.jsonl", "two.jsonl", "three.jsonl", "--output-dir", "out"),
                *("-j", processes, "--format", "jsonl"),
            )
            self.assertEqual((done.returncode, done.stderr), (1, ""))
            *records, totals = map(json.loads, done.stdout.splitlines())
            found = {record["file"]: record for record in records}
            self.assertEqual(
                [(found[f"{name}.jsonl"]["status"], found[f"{name}.jsonl"]["verified"]["agrees"])
                 for name in ("one", "two", "three")],
                [(0, True), (1, False), (0, True)],
            )
            self.assertEqual(found["one.jsonl"]["verified"]["statements"], 2)
            self.assertEqual(found["two.jsonl"]["diagnostics"][0]["line"], 2)
            self.assertEqual((totals["status"], totals["totals"]["written"]), (1, 2))
            self.assertEqual(self.read("out/two.apt"), "old\n")
            self.assertEqual(self.read("out/one.apt"), APT)
            self.assertEqual(
                sorted(os.listdir(os.path.join(self.folder, "out"))),
                ["one.apt", "three.apt", "two.apt"],
            )

    def test_each_job_is_read_back_with_its_own_table(self):
        os.mkdir(os.path.join(self.folder, "PPTables"))
        names = []
        for number in range(6):
            table = f"t{number}.pptable"
            self.write(
                f"PPTables/{table}",
                f"*START_NC_INSTRUCTION NC_GOTO\nGOTO/{number},%MFG_XPOINT,1\n*END\n",
            )
            resource = ',"resource":{"name":"M","table":"%s"}}\n' % table
            for job in ("a", "b"):
                names.append(f"{job}{number}.jsonl")
                self.write(names[-1], JOB.replace("}\n", resource, 1))
        environment = {**os.environ, "PPWORD_RESOURCE_PATH": self.folder}
        done = self.run_program("post", *names, "--output-dir", "out", env=environment)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stderr.count("  verified: 2 statements, 0 of them"), 12)

    def test_unread_jobs_are_written(self):
        self.write("one.jsonl", DOLLAR)
        done = self.run_program("post", "one.jsonl", "--output-dir", "out", "--no-verify")
        self.assertEqual(done.returncode, 0)
        self.assertIn("  not verified\nout/one.apt: written\n", done.stderr)


if __name__ == "__main__":
    program.main()
