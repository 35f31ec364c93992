"""Outputs that cannot be written, and what is left of them."""

import os
import resource
import subprocess

import program
from program import APT, JOB, LACKING_JOB, REPORT

CLOSED = "ppword: error: standard output cannot be written: Bad file descriptor\n"


def close_descriptor(number):
    return lambda: os.close(number)


class StandardOutput(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)
        self.write("table", program.TABLE)

    COMMANDS = (["post", "job"], ["list", "table"], ["check", "table"], ["--help"], ["--version"])

    def test_full_device_gives_3(self):
        for command in self.COMMANDS:
            with open("/dev/full", "w", encoding="ascii") as full:
                done = self.run_program(*command, stdout=full)
            self.check(
                done,
                3,
                "",
                "ppword: error: standard output cannot be written: No space left on device\n",
            )

    def test_closed_pipe_gives_3_in_silence(self):
        for command in self.COMMANDS:
            reader, writer = os.pipe()
            os.close(reader)
            done = self.run_program(*command, stdout=writer)
            os.close(writer)
            self.check(done, 3)

    def test_closed_descriptor_gives_3(self):
        for command in self.COMMANDS:
            done = self.run_program(*command, stdout=None, preexec_fn=close_descriptor(1))
            self.check(done, 3, "", CLOSED)

    def test_closed_descriptor_does_not_matter_for_a_file(self):
        done = self.run_program(
            "post", "job", "-o", "apt", stdout=None, preexec_fn=close_descriptor(1)
        )
        self.check(done, 0, "", REPORT + "apt: written\n")
        self.assertEqual(self.read("apt"), APT)

    def test_json_to_a_full_device_gives_3(self):
        with open("/dev/full", "w", encoding="ascii") as full:
            done = self.run_program("list", "--format", "json", "table", stdout=full)
        self.assertEqual(done.returncode, 3)


class FileBehindTheStandardOutput(program.ProgramTest):
    def post(self, job, *options):
        """What the file holds behind two lines of others after a run between them."""
        self.write("job", job)
        with open(os.path.join(self.folder, "log"), "wb") as log:
            log.write(b"before\n")
            log.flush()
            done = self.run_program("post", "job", "-o", "/dev/stdout", *options, stdout=log)
            log.seek(0, os.SEEK_END)
            log.write(b"behind\n")
        self.assertEqual(self.files(), ["job", "log"])
        return done

    def test_text_goes_behind_what_stands_there(self):
        self.check(self.post(JOB), 0, "", REPORT + "/dev/stdout: written\n")
        self.assertEqual(self.read("log"), "before\n" + APT + "behind\n")

    def test_lacking_text_does_not_reach_it(self):
        self.assertEqual(self.post(LACKING_JOB, "--strict").returncode, 1)
        self.assertEqual(self.read("log"), "before\nbehind\n")


class StandardError(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)

    def test_closed_messages_stay_out_of_the_output_file(self):
        done = self.run_program(
            "post", "job", "-o", "apt", stderr=None, preexec_fn=close_descriptor(2)
        )
        self.check(done, 0)
        self.assertEqual(self.read("apt"), APT)

    def test_all_descriptors_closed_still_give_the_file(self):
        done = self.run_program(
            "post",
            "job",
            "-o",
            "apt",
            stdin=None,
            stdout=None,
            stderr=None,
            preexec_fn=lambda: os.closerange(0, 3),
        )
        self.check(done, 0)
        self.assertEqual(self.read("apt"), APT)

    def test_full_messages_do_not_matter(self):
        with open("/dev/full", "w", encoding="ascii") as full:
            done = self.run_program("post", "job", stderr=full)
        self.check(done, 0, APT)

    def test_closed_standard_input_cannot_be_read(self):
        done = self.run_program("post", "-", stdin=None, preexec_fn=close_descriptor(0))
        self.check(
            done, 1, "", "standard input: error: cannot be read: Bad file descriptor\n"
        )


class OutputFile(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)

    def test_text_is_written_whole(self):
        done = self.run_program("post", "job", "-o", "apt")
        self.check(done, 0, "", REPORT + "apt: written\n")
        self.assertEqual((self.files(), self.read("apt")), (["apt", "job"], APT))

    def test_device_that_is_full_gives_3(self):
        self.check(
            self.run_program("post", "job", "-o", "/dev/full"),
            3,
            "",
            "ppword: error: /dev/full cannot be written: No space left on device\n",
        )

    def test_absent_folder_gives_3(self):
        self.check(
            self.run_program("post", "job", "-o", "no/apt"),
            3,
            "",
            "ppword: error: no/apt cannot be written: No such file or directory\n",
        )

    def test_folder_in_the_place_gives_3(self):
        os.mkdir(os.path.join(self.folder, "apt"))
        self.check(
            self.run_program("post", "job", "-o", "apt"),
            3,
            "",
            "ppword: error: apt cannot be written: Is a directory\n",
        )

    def test_file_that_grows_too_large_is_not_left(self):
        self.write("apt", "old\n")
        done = self.run_program(
            "post",
            "job",
            "-o",
            "apt",
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (16, 16)),
        )
        self.check(
            done, 3, "", "ppword: error: apt cannot be written: File too large\n"
        )
        self.assertEqual((self.files(), self.read("apt")), (["apt", "job"], "old\n"))

    def test_job_that_is_refused_leaves_the_old_file(self):
        self.write("job", JOB[:-10])
        self.write("apt", "old\n")
        self.assertEqual(self.run_program("post", "job", "-o", "apt").returncode, 1)
        self.assertEqual((self.files(), self.read("apt")), (["apt", "job"], "old\n"))

    def test_table_that_is_refused_makes_no_file(self):
        done = self.run_program("post", "job", "-t", "absent", "-o", "apt")
        self.check(
            done,
            1,
            "",
            "absent: error ERR_5009: the PP word table cannot be opened: No such file or "
            "directory\n",
        )
        self.assertEqual(self.files(), ["job"])


class Strict(program.ProgramTest):
    LACKING = (
        "job: 3 elements, 3 lines\n"
        "  WARNING: not evaluated: MFG_TOTAL_DEPTH (in line 3, NC_REAMING), and 1 more\n"
    )

    def test_lacking_text_is_written_without_strict(self):
        self.write("job", LACKING_JOB)
        done = self.run_program("post", "job")
        self.check(done, 0, APT + "CYCLE/REAM,,\n", self.LACKING + "standard output: written\n")

    def test_lacking_text_makes_no_file(self):
        self.write("job", LACKING_JOB)
        done = self.run_program("post", "--strict", "job", "-o", "apt")
        why = "apt: not written: 2 pieces of the text would be missing\n"
        self.check(done, 1, "", self.LACKING + why)
        self.assertEqual(self.files(), ["job"])

    def test_lacking_text_does_not_reach_the_standard_output(self):
        self.write("job", LACKING_JOB)
        done = self.run_program("post", "--strict", "job")
        why = "standard output: not written: 2 pieces of the text would be missing\n"
        self.check(done, 1, "", self.LACKING + why)

    def test_lacking_text_does_not_reach_a_device(self):
        self.write("job", LACKING_JOB)
        for output in ("/dev/stdout", "-"):
            done = self.run_program("post", "--strict", "job", "-o", output)
            self.assertEqual((done.returncode, done.stdout), (1, ""))

    def test_whole_text_is_written(self):
        self.write("job", JOB)
        done = self.run_program("post", "--strict", "job")
        self.check(done, 0, APT, REPORT + "standard output: written\n")

    def test_whole_text_to_a_full_device_gives_3(self):
        self.write("job", JOB)
        with open("/dev/full", "w", encoding="ascii") as full:
            done = self.run_program("post", "--strict", "job", stdout=full)
        self.check(
            done,
            3,
            "",
            "ppword: error: standard output cannot be written: No space left on device\n",
        )

    def test_text_that_cannot_be_held_gives_3(self):
        self.write("job", JOB)
        done = self.run_program(
            "post",
            "--strict",
            "job",
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (16, 16)),
        )
        self.check(
            done, 3, "", "ppword: error: temporary file cannot be written: File too large\n"
        )


class Terminal(program.ProgramTest):
    def seen_on_terminal(self, **environment):
        self.write("bad", "*ENDE\n*STAR\n")
        reader, writer = os.openpty()
        self.run_program(
            "check", "bad", stderr=writer, env={**os.environ, "TERM": "xterm", **environment}
        )
        os.close(writer)
        text = os.read(reader, 65536).decode("latin-1").replace("\r\n", "\n")
        os.close(reader)
        return text

    def test_findings_are_coloured_on_a_terminal(self):
        coloured = self.seen_on_terminal(NO_COLOR="")
        self.assertIn("\x1b[1mbad:2:1:\x1b[m \x1b[1;31merror ERR_5001:\x1b[m ", coloured)
        self.assertIn("  *STAR\n  \x1b[1;32m^~~~~\x1b[m\n", coloured)

    def test_findings_are_plain_without_colours(self):
        for environment in ({"NO_COLOR": "1"}, {"NO_COLOR": "", "TERM": "dumb"}):
            text = self.seen_on_terminal(**environment)
            self.assertNotIn("\x1b", text)
            self.assertEqual(text, self.run_program("check", "bad").stderr)

    def test_long_work_shows_progress_on_a_terminal_only(self):
        reader, writer = os.openpty()
        command = [program.PPWORD, "post", "-", "-o", "/dev/null"]
        with subprocess.Popen(command, stdin=subprocess.PIPE, stderr=writer) as process:
            lines = JOB.splitlines(keepends=True)
            process.stdin.write(lines[0].encode())
            seen = b""
            while b" elements read" not in seen:
                process.stdin.write(1000 * lines[1].encode())
                process.stdin.flush()
                os.set_blocking(reader, False)
                try:
                    seen += os.read(reader, 4096)
                except BlockingIOError:
                    continue
            process.stdin.write(lines[2].encode())
            process.stdin.close()
            process.wait(60)
        os.close(writer)
        os.close(reader)
        self.assertRegex(seen, rb"^\r\d+ elements read")
        self.assertEqual(process.returncode, 0)


if __name__ == "__main__":
    program.main()
