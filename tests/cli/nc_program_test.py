"""NC programs as input, run through the installed rs274 or one that a test puts into its place."""

import concurrent.futures
import json
import os
import re
import signal
import stat
import subprocess
import time

import program

TABLE = (
    "*START_NC_INSTRUCTION NC_TOOL_CHANGE\n"
    "LOADTL/%MFG_TOOL_NUMBER,&MFG_TOOL_POCKET,%MFG_NOMINAL_DIAM,%MFG_TL_SET_X,%MFG_TL_SET_Z\n"
    "PPRINT %MFG_TOOL_NAME\n"
    "*END\n"
    "*START_NC_INSTRUCTION NC_OUTPUT_COMMENT\nPPRINT %MFG_OUTPUT_COMMENT\n*END\n"
)
END = "SPINDL/OFF\nSPINDL/OFF\nREWIND/0\nEND\n"
POWERLESS = ("setpriv", "--bounding-set=-all", "--inh-caps=-all")
ADDED = "  NOTE: the program has no M2 or M30; it was run with M2 as its last line\n"
# A listing as short as one can be.
SHORT = "    1 N..... PROGRAM_END()\n"


def goto(x, y=0, z=0):
    return f"GOTO/{x:11.5f},{y:11.5f},{z:11.5f}\n"


def packed(text):
    """The lines without the blanks and zeros that formats fill numbers with."""
    text = re.sub(r"(\.\d*?)0+(?=,|$)", r"\1", text.replace(", ", ","), flags=re.MULTILINE)
    return re.sub(r"\.(?=,|$)", "", re.sub(r"(?<=[,/]) +", "", text), flags=re.MULTILINE).splitlines()


class NcProgramTest(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.scratch = os.path.join(self.folder, "scratch")
        os.mkdir(self.scratch)

    def run_program(self, *arguments, **options):
        """With a scratch folder of the test, of which nothing may be left."""
        environment = {**os.environ, "TMPDIR": self.scratch, **options.pop("env", {})}
        done = super().run_program(*arguments, env=environment, **options)
        self.assertEqual(os.listdir(self.scratch), [])
        return done

    def post(self, text, *options, name="part.ngc", **others):
        self.write(name, text)
        return self.run_program("post", name, *options, **others)

    def check_refused(self, text, message, *options, source=None, **others):
        """The message; with the line of the source, which has a caret."""
        if source is not None:
            message += f"\n  {source}\n  ^"
        done = self.post(text, *options, "-o", "text", **others)
        self.check(done, 1, "", message + "\n")
        self.assertNotIn("text", self.files())

    def put_interpreter(self, script):
        """Puts a shell script into the place of rs274; returns the environment for it."""
        folder = os.path.join(self.folder, "bin")
        os.makedirs(folder, exist_ok=True)
        path = os.path.join(folder, "rs274")
        with open(path, "w", encoding="ascii") as file:
            # The listing is the last argument.
            file.write('#!/bin/sh\nfor listing; do :; done\n' + script + "\n")
        os.chmod(path, 0o755)
        return {"PATH": folder + ":/usr/bin:/bin"}


class Programs(NcProgramTest):
    def test_program_becomes_text(self):
        done = self.post("G21 F100\nG0 X1\nG1 X2 (a)\nM2\n", "--comments", "none")
        text = "RAPID\n" + goto(1) + "FEDRAT/  100.0000,MMPM\n" + goto(2) + END
        report = (
            "part.ngc: 6 elements, 8 lines\n"
            "  moves: STRAIGHT_TRAVERSE 1, STRAIGHT_FEED 1\n"
            "  positions in millimetres\n"
            "  not verified\nstandard output: written\n"
        )
        self.check(done, 0, text, report)

    def test_examples_are_written_as_their_listings(self):
        table = os.path.join(program.EXAMPLES, "mill.pptable")
        for name, options in (("bracket", []), ("tilted", ["--rotary", "C:table:Z,A:table:X"])):
            path = os.path.join(program.EXAMPLES, name)
            listed = self.run_program("post", path + ".canon", "-t", table, *options)
            posted = self.run_program("post", path + ".ngc", "-t", table, "--unknown-tools", *options)
            self.assertEqual((posted.returncode, posted.stdout), (0, listed.stdout), posted.stderr)

    def test_program_in_inches(self):
        done = self.post("G20 F10\nG1 X1.5\nG1 Z-.25\nM30\n", "-o", "text")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(self.read("text").splitlines()[1:3], (goto(1.5) + goto(1.5, 0, -0.25)).splitlines())
        self.assertIn("\n  positions in inches\n", done.stderr)

    def test_program_comes_from_the_standard_input(self):
        done = self.run_program("post", "-", stdin=None, input="G21\nG0 X1\nM2\n")
        self.assertEqual(done.stdout, "RAPID\n" + goto(1) + END)
        self.assertTrue(done.stderr.startswith("standard input: "))

    def test_names_of_files_are_names_only(self):
        for name in ("-x.ngc", "a b.ngc", "$(touch x).ngc", "'\";.ngc", "\n.ngc"):
            self.write(name, "G21\nG0 X1\nM2\n")
            done = self.run_program("post", "-o", "text", "--", name)
            self.assertEqual(done.returncode, 0, done.stderr)
        self.assertNotIn("x", self.files())

    def test_missing_end_is_added(self):
        for text in ("G21\nG0 X1\n", "G21\nG0 X1", "%\nG21\nG0 X1\n"):
            done = self.post(text)
            self.assertEqual(done.stdout, "RAPID\n" + goto(1) + END)
            self.assertIn(ADDED, done.stderr)
        self.assertNotIn("NOTE", self.post("%\nG21\nG0 X1\n%\n").stderr)
        report = json.loads(self.post("G21\nG0 X1\n", "--format", "json").stderr)
        self.assertEqual((report["endAdded"], report["machineCoordinates"]), (True, []))

    def test_listing_names_lines_of_the_program(self):
        self.write("part.ngc", "G21\n\n(a)\nN7 G0 X1\n/N8 G0 X2\nM2\n")
        done = self.run_program("post", "--listing", "part.ngc")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(
            re.findall(r"^ +\d+ (N\S+?) *([A-Z]+_TRAVERSE|COMMENT|PROGRAM_END)", done.stdout, re.MULTILINE),
            [("N3", "COMMENT"), ("N4", "STRAIGHT_TRAVERSE"), ("N5", "STRAIGHT_TRAVERSE"), ("N6", "PROGRAM_END")],
        )
        self.run_program("post", "--listing", "part.ngc", "-o", "part.canon")
        self.assertEqual(self.read("part.canon"), done.stdout)
        self.assertEqual(self.run_program("post", "part.canon").returncode, 0)

    def test_listing_of_a_refused_program_is_not_written(self):
        self.check_refused("G21\nG1 X[\n", "part.ngc:2:1: error: No characters found in reading real value",
                           "--listing", source="G1 X[")

    def test_explained_line_is_that_of_the_program(self):
        self.write("part.ngc", "(text)\nG21 F100\no100 repeat [3]\nG91 G1 X1\no100 endrepeat\nG90 G0 X7\nM2\n")
        done = self.run_program("explain", "--job", "part.ngc:4")
        self.assertEqual(re.findall(r"^part.ngc:\d+: (\w+)$", done.stdout, re.MULTILINE), ["NC_FEEDRATE"] + ["NC_GOTO"] * 3)
        done = self.run_program("explain", "--job", "part.ngc:6")
        self.assertIn("    %MFG_XPOINT: ", done.stdout)
        self.assertIn("«GOTO/    7.00000,    0.00000,    0.00000»", done.stdout.encode("latin-1").decode())
        self.check(self.run_program("explain", "--job", "part.ngc:5"), 1, "",
                   "part.ngc:5: error: no element comes from this line; the nearest are line 4 before it and "
                   "line 6 after it\n")

    def test_only_a_hundred_elements_of_a_loop_are_explained(self):
        self.write("part.ngc", "G21 F9\no1 repeat [150]\nG91 G1 X1\no1 endrepeat\nM2\n")
        done = self.run_program("explain", "--job", "part.ngc:3")
        self.assertEqual(done.stdout.count("part.ngc:3: "), 100)

    def test_line_of_a_subroutine_that_runs_later_is_explained(self):
        self.write("part.ngc", "o1 sub\nG0 X5\no1 endsub\nG21\nG0 X1\no1 call\nM2\n")
        done = self.run_program("explain", "--job", "part.ngc:2")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(re.findall(r"^part.ngc:2: (\w+)$", done.stdout, re.MULTILINE), ["NC_RAPID", "NC_GOTO"])

    def test_map_names_lines_of_the_program(self):
        self.write("part.ngc", "(text)\nG21\nG0 X1\no<inner> call\nM2\n")
        self.write("inner.ngc", "o<inner> sub\nG0 X2\no<inner> endsub\n")
        done = self.run_program("post", "part.ngc", "-o", "text", "--map", "map", "--comments", "none")
        self.assertEqual(done.returncode, 0, done.stderr)
        records = [json.loads(line)["element"] for line in self.read("map").splitlines()[1:]]
        self.assertEqual(
            [(each["file"], each["line"]) for each in records[:4]],
            [("part.ngc", 3)] * 2 + [("inner.ngc", 2)] * 2,
        )
        for line, place in (("2", "part.ngc:3:1: note: "), ("4", "inner.ngc:2:1: note: ")):
            shown = self.run_program("explain", "--map", "map", line)
            self.assertEqual(shown.returncode, 0, shown.stderr + shown.stdout)
            self.assertIn(place, shown.stdout)

    def test_six_work_offsets_are_refused(self):
        offsets = "".join(f"G10 L2 P{n} X{n}\nG5{n + 3} G0 X1\n" for n in range(1, 7))
        self.check_refused(
            "G21\n" + offsets + "M2\n",
            "part.ngc:5:1: error: this move uses another coordinate system than the moves before it "
            "(SET_G5X_OFFSET in line 5); write NC_ORIGIN in a table, or "
            "convert the moves with --origins convert",
            source="G55 G0 X1",
        )

    def test_offsets_of_called_files_are_named(self):
        self.write("shift.ngc", "o<shift> sub\nG92 X5\no<shift> endsub\n")
        self.check_refused(
            "G21\nG0 X1\no<shift> call\nG0 X2\nM2\n",
            "part.ngc:4:1: error: this move uses another coordinate system than the moves before it "
            "(SET_G92_OFFSET in line 2 of shift.ngc); write NC_ORIGIN in a table, or "
            "convert the moves with --origins convert",
            source="G0 X2",
        )

    def test_counts_name_the_lines_of_called_files(self):
        self.write("inner.ngc", "o<inner> sub\nG0 X2\nG64 M49\nG33 K1 Z1\no<inner> endsub\n")
        done = self.post("G21 S100 M3\no<inner> call\nM2\n", "-v")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("\n    START_SPEED_FEED_SYNC  1  first in line 4 of inner.ngc\n", done.stderr)
        self.assertIn("\n    NC_RAPID          1  first in line 2 of inner.ngc\n", done.stderr)
        report = json.loads(self.post("G21 S100 M3\no<inner> call\nM2\n", "--format", "json").stderr)
        self.assertIn({"name": "NC_RAPID", "count": 1, "firstLine": 2, "firstFile": "inner.ngc"}, report["instructions"])
        self.assertIn({"name": "START_SPEED_FEED_SYNC", "fate": "lost", "count": 1, "firstLine": 4,
                       "firstFile": "inner.ngc"}, report["calls"])

    def test_twenty_programs_at_once(self):
        for number in range(20):
            self.write(f"{number}.ngc", f"G21\nT{number} M6\nG0 X{number}\nM2\n")
            self.write(f"{number}.tbl", f"T{number} P1 D{number} ;tool {number}\n")
        self.write("table", TABLE)

        def run(number):
            return super(NcProgramTest, self).run_program(
                "post", f"{number}.ngc", "-t", "table", "--tools", f"{number}.tbl"
            )

        with concurrent.futures.ThreadPoolExecutor(4) as pool:
            for number, done in enumerate(pool.map(run, range(1, 20)), 1):
                self.assertEqual(done.returncode, 0, done.stderr)
                self.assertIn(f"PPRINT tool {number}\n", done.stdout)
                self.assertIn(goto(number), done.stdout)


class Refusals(NcProgramTest):
    def test_error_of_the_interpreter_names_the_line(self):
        self.check_refused("(a)\n\nG21\nN99 G1 X[\nM2\n",
                           "part.ngc:4:1: error: No characters found in reading real value", source="N99 G1 X[")

    def test_unclosed_comment(self):
        self.check_refused("G21\n(a\n", "part.ngc:2:1: error: Unclosed comment found", source="(a")

    def test_block_that_is_too_long(self):
        block = "G1 X1 (" + "a" * 300 + ")"
        self.write("part.ngc", "G21\n" + block + "\nM2\n")
        done = self.run_program("post", "part.ngc")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.startswith("part.ngc:2:1: error: Command too long\n"), done.stderr)

    def test_bytes_that_are_not_text(self):
        done = self.post(b"G21\n" + b"\n" * 9000 + b"G1 \0X1\n")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.startswith(
            "part.ngc:9002:4: error: the byte 0x00 is not text; this is not an NC program\n"), done.stderr)

    def test_subroutine_that_is_nowhere(self):
        self.check_refused(
            "G21\nG0 X1\no<Inner> call [3]\nG0 X2\nM2\n",
            "part.ngc:3:1: error: o<inner> is neither in the program nor in a file inner.ngc of its folder, "
            "or its end is missing",
            source="o<Inner> call [3]",
        )

    def test_error_in_a_called_file(self):
        self.write("inner.ngc", "o<inner> sub\n\nN5 G1 X[\no<inner> endsub\n")
        self.check_refused("G21\no<inner> call\nM2\n",
                           "inner.ngc:3:1: error: No characters found in reading real value", source="N5 G1 X[")

    def test_called_files_are_those_of_the_folder_of_the_program(self):
        os.mkdir(os.path.join(self.folder, "nc"))
        self.write("inner.ngc", "o<inner> sub\nG0 X9\no<inner> endsub\n")
        self.write("nc/inner.ngc", "o<inner> sub\nG0 X2\no<inner> endsub\n")
        self.write("nc/part.ngc", "G21\no<inner> call\nM2\n")
        self.assertIn(goto(2), self.run_program("post", "nc/part.ngc").stdout)
        self.write("nc/7.ngc", "o7 sub\nG0 X3\no7 endsub\n")
        self.write("nc/part.ngc", "G21\n#1=7\no#1 call\nM2\n")
        self.assertIn(goto(3), self.run_program("post", "nc/part.ngc").stdout)
        self.write("nc/part.ngc", "G21\nG0\no<../inner> call\nM2\n")
        self.assertEqual(self.run_program("post", "nc/part.ngc").returncode, 1)

    def test_nothing_of_the_folder_is_run(self):
        self.write("M101", "#!/bin/sh\ntouch ran\n")
        os.chmod(os.path.join(self.folder, "M101"), 0o755)
        self.check_refused("G21\nM101\nM2\n", "part.ngc:2:1: error: Unknown m code used: M101", source="M101")
        self.assertNotIn("ran", self.files())

    def test_missing_interpreter(self):
        self.check_refused(
            "G21\nM2\n",
            "part.ngc: error: an NC program is run through rs274, which is not installed; install the Debian "
            "package linuxcnc-uspace",
            env={"PATH": "/absent:relative:."},
        )

    def test_interpreter_beside_the_program_is_not_run(self):
        self.write("rs274", "#!/bin/sh\ntouch ran\n")
        os.chmod(os.path.join(self.folder, "rs274"), stat.S_IRWXU)
        self.assertEqual(self.post("G21\nM2\n", env={"PATH": ".::"}).returncode, 1)
        self.assertNotIn("ran", self.files())

    def test_interpreter_that_cannot_be_started(self):
        environment = self.put_interpreter("")
        self.write("bin/rs274", b"\x7fELF nothing")
        self.check_refused("G21\nM2\n", "part.ngc: error: rs274 cannot be started: Exec format error", env=environment)

    def test_endless_program(self):
        began = time.monotonic()
        self.check_refused(
            "o100 while [1]\nG0 X1\no100 endwhile\nM2\n",
            "part.ngc: error: rs274 did not end within 1 seconds; it may be an endless loop, or --timeout "
            "SECONDS may be too short",
            "--timeout", "1",
        )
        self.assertGreater(time.monotonic() - began, 1)

    def test_interpreter_that_hangs_with_a_child(self):
        environment = self.put_interpreter("sleep 1000 & sleep 1000")
        self.check_refused(
            "G21\nM2\n",
            "part.ngc: error: rs274 did not end within 1 seconds; it may be an endless loop, or --timeout "
            "SECONDS may be too short",
            "--timeout", "1", env=environment,
        )

    def test_interpreter_that_is_killed(self):
        self.check_refused("G21\nM2\n", "part.ngc: error: rs274 was ended by the signal 11 (Segmentation fault)",
                           env=self.put_interpreter("kill -SEGV $$"))

    def test_listing_that_is_too_long(self):
        # One byte after the limit; the file has holes.
        environment = self.put_interpreter('exec dd if=/dev/zero of="$listing" bs=1 count=1 seek=1073741824 2>/dev/null')
        self.check_refused("G21\nM2\n", "part.ngc: error: the listing is longer than 1 GiB (1073741824 bytes)",
                           env=environment)

    def test_interpreter_that_fails_without_a_message(self):
        self.check_refused("G21\nM2\n", "part.ngc: error: rs274 ended with the status 7 and without a message",
                           env=self.put_interpreter("exit 7"))

    def test_interpreter_that_floods_its_errors(self):
        environment = self.put_interpreter("head -c 10000000 /dev/zero >&2; echo >&2; echo executing >&2; "
                                           "echo sorry >&2; exit 1")
        self.check_refused("G21\nM2\n", "part.ngc: error: sorry", env=environment)

    def test_interpreter_that_writes_nothing(self):
        self.check_refused("G21\nM2\n", "part.ngc: error: rs274 wrote no listing", env=self.put_interpreter("exit 0"))

    def test_interpreter_that_writes_something_else(self):
        self.check_refused(
            "G21\nM2\n",
            "part.ngc: error: not a call of a canonical listing (running number, block number, call); to keep "
            "the output of (print,...) out of the listing, use: rs274 -g PROGRAM LISTING",
            env=self.put_interpreter('echo something else > "$listing"'),
        )
        self.check_refused(
            "G21\nM2\n",
            "part.ngc: error: the listing ends without PROGRAM_END or FINISH; it is cut short, or rs274 "
            "stopped at an error in the program",
            env=self.put_interpreter(': > "$listing"'),
        )

    def test_interpreter_has_a_clean_environment(self):
        environment = self.put_interpreter(
            f'env > {self.folder}/seen; printf "{SHORT[:-1]}\\n" > "$listing"'
        )
        self.assertEqual(self.post("G21\nM2\n", env={**environment, "SECRET": "x"}).returncode, 0)
        seen = self.read("seen")
        self.assertNotIn("SECRET", seen)
        self.assertIn("HOME=" + self.scratch, seen)

    def test_signal_removes_the_scratch_folder(self):
        environment = self.put_interpreter(f"touch {self.folder}/running; sleep 1000")
        self.write("part.ngc", "G21\nM2\n")
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            child = subprocess.Popen(
                [program.PPWORD, "post", "part.ngc", "-o", "text"], cwd=self.folder,
                env={**os.environ, "TMPDIR": self.scratch, **environment},
            )
            while "running" not in self.files():
                time.sleep(0.01)
            child.send_signal(number)
            self.assertEqual(child.wait(60), -number)
            self.assertEqual(os.listdir(self.scratch), [])
            self.assertNotIn("text", self.files())
            os.remove(os.path.join(self.folder, "running"))

    def test_signal_that_is_ignored_does_not_end_the_run(self):
        script = f'kill -HUP $PPID; printf "{SHORT[:-1]}\\n" > "$listing"'
        done = self.post(
            "G21\nM2\n",
            env=self.put_interpreter(script),
            preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN),
        )
        self.assertEqual((done.returncode, self.files().count("text")), (0, 0))

    def test_scratch_folder_that_cannot_be_created(self):
        folder = os.path.join(self.folder, "locked")
        os.mkdir(folder, 0o500)
        self.write("part.ngc", "G21\nM2\n")
        done = program.ProgramTest.run_program(
            self, "post", "part.ngc", prefix=POWERLESS, env={**os.environ, "TMPDIR": folder}
        )
        self.check(done, 3, "", "ppword: error: scratch folder cannot be written: Permission denied\n")


class Options(NcProgramTest):
    def test_options_for_programs_are_refused_elsewhere(self):
        self.write("job", program.JOB)
        self.write("part.canon", SHORT)
        usage = "Try 'ppword post --help'.\n"
        both = (
            "ppword post: --units, --rotary, --chord, --helices, --origins, --comments, --tools and --machine-units are for "
            "listings; a job states its own\n"
        )
        alone = "ppword post: --machine, --unknown-tools and --timeout are for NC programs\n"
        self.check(self.run_program("post", "job", "--tools", "x"), 2, "", both + usage)
        for options in (["--machine", "x"], ["--unknown-tools"], ["--timeout", "5"]):
            for name in ("job", "part.canon"):
                self.check(self.run_program("post", name, *options), 2, "", alone + usage)
        for name in ("job", "part.canon"):
            self.check(self.run_program("post", name, "--listing"), 2, "",
                       "ppword post: --listing is for NC programs\n" + usage)
        self.check(self.run_program("post", "part.ngc", "--listing", "-t", "x"), 2, "",
                   "ppword post: --listing takes no -t, -d, --map, --profile or -v: it writes no text\n" + usage)

    def test_values_of_options(self):
        self.write("part.ngc", "G21\nM2\n")
        for option, value, reason in (
            ("--timeout", "0", "'0' is not a whole number of seconds from 1 to 86400"),
            ("--timeout", "1.5", "'1.5' is not a whole number of seconds from 1 to 86400"),
            ("--timeout", "86401", "'86401' is not a whole number of seconds from 1 to 86400"),
            ("--machine-units", "cm", "'cm' is neither mm nor inch"),
            ("--tools", "", "a file name is expected, not an empty text"),
            ("--machine", "", "a file name is expected, not an empty text"),
        ):
            done = self.run_program("post", "part.ngc", option, value)
            self.check(done, 2, "", f"ppword post: {option}: {reason}\nTry 'ppword post --help'.\n")

    def test_output_does_not_replace_what_is_read(self):
        self.write("part.ngc", "G21\nM2\n")
        self.write("tools", "T1\n")
        for option in ("--tools", "--machine"):
            done = self.run_program("post", "part.ngc", option, "tools", "-o", "tools")
            self.check(done, 2, "", "ppword post: the output would replace the input tools\n"
                       "Try 'ppword post --help'.\n")


class MachineCoordinates(NcProgramTest):
    TEXT = "G21\n(G53)\nG0 X1\nG53 G0 Z0\nG 53 G0 Z1 ; G30\ng28\nM2\n"

    def test_machine_coordinates_are_warned_of(self):
        done = self.post(self.TEXT, "-o", "text")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn(
            "\n  WARNING: machine positions unknown: G53 (2 times, first in line 4), and 1 more\n",
            done.stderr,
        )
        report = json.loads(self.post(self.TEXT, "-o", "text", "--format", "json").stderr)
        self.assertEqual(
            report["machineCoordinates"],
            [{"name": "G53", "count": 2, "file": "part.ngc", "firstLine": 4},
             {"name": "G28", "count": 1, "file": "part.ngc", "firstLine": 6}],
        )

    def test_strict_refuses_them(self):
        done = self.post(self.TEXT, "--strict", "--comments", "none", "-o", "text")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.endswith("text: not written: 3 findings are refused\n"), done.stderr)
        self.assertNotIn("text", self.files())
        self.assertEqual(self.post(self.TEXT, "--strict", "--comments", "none", "--allow", "machine-coordinates").returncode, 0)
        self.assertEqual(self.post(self.TEXT, "--strict=machine-coordinates").returncode, 1)

    def test_called_files_have_them_too(self):
        self.write("inner.ngc", "o<inner> sub\n\nG30\no<inner> endsub\n")
        done = self.post("G21\no<inner> call\nM2\n")
        self.assertIn("  WARNING: machine positions unknown: G30 (in line 3 of inner.ngc)\n", done.stderr)

    def test_listing_warns_and_refuses(self):
        message = "G28 moves in machine coordinates, which are unknown without --machine\n"
        done = self.post("G21\nG28\nM2\n", "--listing", "-o", "text")
        self.check(done, 0, "", "part.ngc:2: warning machine-coordinates: " + message)
        os.remove(os.path.join(self.folder, "text"))
        done = self.post("G21\nG28\nM2\n", "--listing", "--strict", "-o", "text")
        self.check(done, 1, "", "part.ngc:2: error machine-coordinates: " + message)
        self.assertNotIn("text", self.files())
        done = self.post("G21\nG28\nM2\n", "--listing", "-o", "text", "--format", "json")
        self.assertEqual(
            json.loads(done.stderr),
            {"file": "part.ngc", "output": "text", "written": True,
             "machineCoordinates": [{"name": "G28", "count": 1, "file": "part.ngc", "firstLine": 2}]},
        )

    def test_machine_names_the_places(self):
        # A table of 300 mm above the part, and a change position.
        self.write("machine", "5161\t10\n5162\t20\n5163\t30\n5220\t1\n5221\t100\n5222\t0\n5223\t-300\n")
        done = self.post("G21\nG0 X1 Z1\nG53 G0 Z0\nG28\nM2\n", "--machine", "machine", "--strict")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn(goto(1, 0, 300), done.stdout)
        self.assertIn(goto(-90, 20, 330), done.stdout)
        self.assertEqual(self.read("machine")[:8], "5161\t10\n")
        done = self.post("G21\nG0 X1 Z1\nG53 G0 Z0\nM2\n", "--machine", "machine", "--machine-units", "inch")
        self.assertIn(goto(1, 0, 7620), done.stdout)

    def test_wrong_machine_file(self):
        self.write("machine", "5161 1\nfoo\n")
        self.check_refused(
            "G21\nM2\n",
            "machine:2:1: error: not a parameter of a machine: a number from 1 to 5602 and its value",
            "--machine", "machine", source="foo",
        )
        self.check_refused("G21\nM2\n", "absent: error: cannot be opened: No such file or directory",
                           "--machine", "absent")


class Tools(NcProgramTest):
    def test_tool_that_is_in_no_table(self):
        self.check_refused(
            "G21\n\nT3 M6\nM2\n",
            "part.ngc:3:1: error: tool 3 is not in the tool table; name a table with --tools FILE, or take it "
            "with length and diameter 0 with --unknown-tools",
            source="T3 M6",
        )
        self.write("t.tbl", "T1 P1\n")
        self.check_refused(
            "G21\nT3 M6\nM2\n",
            "part.ngc:2:1: error: tool 3 is not in t.tbl; add it, or take it with length and diameter 0 with "
            "--unknown-tools",
            "--tools", "t.tbl", source="T3 M6",
        )

    def test_unknown_tools_have_no_length(self):
        text = "G21\n#1=77\nT3 M6 G43\nT#1 M6 G43 H5\nG0 X1\nM2\n"
        self.write("table", "*START_NC_INSTRUCTION NC_TOOL_CHANGE\nLOADTL/%MFG_TOOL_NUMBER\n*END\n")
        done = self.post(text, "--unknown-tools", "-t", "table", "--strict")
        self.assertEqual(packed(done.stdout)[1:5], ["LOADTL/3", "LOADTL/77", "RAPID", "GOTO/1,0,0"], done.stderr)
        done = self.post(text, "--unknown-tools", "--listing")
        self.assertEqual(len(re.findall(r"USE_TOOL_LENGTH_OFFSET\(0.0000 0.0000 0.0000,", done.stdout)), 2)

    def test_table_states_name_diameter_lengths_and_pocket(self):
        self.write("table", TABLE)
        self.write("t.tbl", "T17 P4 X1 Z57 D6 ;6 mm end mill\nT2 P9 D3.5\n")
        text = "G21\nT17 M6\nG0 X1\nT2 M6\nT0 M6\nM2\n"
        for name, content in (("part.ngc", text), ("part.canon", None)):
            if content is None:
                self.run_program("post", "part.ngc", "--listing", "--tools", "t.tbl", "-o", name)
            else:
                self.write(name, content)
            done = self.run_program("post", name, "-t", "table", "--tools", "t.tbl")
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertEqual(packed(done.stdout)[1:3], ["LOADTL/17,4,6,1,57", "PPRINT 6 mm end mill"])
            self.assertIn("LOADTL/2,9,3.5,0,0", packed(done.stdout))

    def test_lengths_are_in_the_unit_of_the_text(self):
        self.write("table", TABLE)
        self.write("t.tbl", "T1 P1 Z50.8 D25.4 ;a\n")
        program_text = "G20\nT1 M6\nG0 X1\nM2\n"

        def first(*options):
            return packed(self.post(program_text, "-t", "table", "--tools", "t.tbl", *options).stdout)[1]

        self.assertEqual(first(), "LOADTL/1,1,1,0,2")
        self.assertEqual(first("--units", "mm"), "LOADTL/1,1,25.4,0,50.8")
        self.write("t.tbl", "T1 P1 Z2 D1 ;a\n")
        self.assertEqual(first("--machine-units", "inch"), "LOADTL/1,1,1,0,2")
        self.assertEqual(first("--machine-units", "inch", "--units", "mm"), "LOADTL/1,1,25.4,0,50.8")

    def test_lengths_before_the_first_move_have_its_unit(self):
        self.write("table", TABLE)
        self.write("t.tbl", "T1 P1 Z50.8 D25.4 ;a\n")
        done = self.post("G21\nT1 M6\nG20\nG0 X1\nM2\n", "-t", "table", "--tools", "t.tbl")
        self.assertEqual(packed(done.stdout)[1], "LOADTL/1,1,1,0,2")

    def test_compensated_contour_has_the_diameter_of_the_table(self):
        text = "{} F100\nT1 M6\nG0 X0 Y0\nG41 D1 G1 X{} Y0\nX{}\nG40 X{}\nM2\n"
        self.write("t.tbl", "T1 P1 D10\n")
        done = self.post(text.format("G21", 20, 40, 60), "--tools", "t.tbl")
        self.assertIn(goto(20, 5), done.stdout)
        done = self.post(text.format("G20", 2, 4, 6), "--tools", "t.tbl")
        self.assertIn("GOTO/    2.00000,    0.19690,", done.stdout)

    def test_hundred_tools(self):
        self.write("table", TABLE)
        self.write("t.tbl", "".join(f"T{n * 7} P{n} Z{n} D{n / 2} ;tool {n}\n" for n in range(1, 101)))
        text = "G21\n" + "".join(f"T{n * 7} M6\nG0 X{n}\n" for n in range(100, 0, -1)) + "M2\n"
        done = self.post(text, "-t", "table", "--tools", "t.tbl")
        self.assertEqual(done.returncode, 0, done.stderr)
        expected = []
        for n in range(100, 0, -1):
            expected += [f"LOADTL/{n * 7},{n},{n / 2:g},0,{n}", f"PPRINT tool {n}", "RAPID", f"GOTO/{n},0,0"]
        self.assertEqual(packed(done.stdout)[1:401], expected)

    def test_hundred_unknown_tools(self):
        text = "G21\n" + "".join(f"T{n * 7} M6\nG0 X{n}\n" for n in range(1, 101)) + "M2\n"
        self.assertEqual(self.post(text, "--unknown-tools").returncode, 0)

    def test_wrong_table(self):
        self.write("t.tbl", "T1 P1\nT2 Zx\n")
        self.check(
            self.post("G21\nM2\n", "--tools", "t.tbl"), 1, "",
            "t.tbl:2:4: error: the word has no number after its letter\n  T2 Zx\n     ^\n",
        )
        self.check(
            self.post("G21\nM2\n", "--listing", "--tools", "absent"), 1, "",
            "absent: error: cannot be opened: No such file or directory\n",
        )


if __name__ == "__main__":
    program.main()
