"""Outputs that cannot be written, and what is left of them."""

import os
import resource
import subprocess
import unittest

import program
from program import APT, JOB, LACKING_JOB, REPORT, VERIFIED

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
        self.check(done, 0, "", REPORT + VERIFIED + "apt: written\n")
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
        self.check(self.post(JOB), 0, "", REPORT + "  not verified\n/dev/stdout: written\n")
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
        self.check(done, 0, "", REPORT + VERIFIED + "apt: written\n")
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


class WriteProtectedTest(program.ProgramTest):
    REFUSED = "ppword: error: {} cannot be written: it is write-protected; --force replaces it\n"
    OTHER_USER = 4711
    OTHER_GROUP = 4712

    def setUp(self):
        super().setUp()
        self.write("job", JOB)
        self.write("apt", "old\n")

    def set_rights(self, name, mode, user=None, group=None):
        path = os.path.join(self.folder, name)
        if user is not None:
            os.chown(path, user, group)
        os.chmod(path, mode)

    def rights(self, name):
        state = os.stat(os.path.join(self.folder, name))
        return state.st_mode & 0o7777, state.st_uid, state.st_gid


class WriteProtected(WriteProtectedTest):
    def test_file_that_no_one_may_write_is_refused(self):
        self.set_rights("apt", 0o444)
        for prefix in ([], ["--strict"]):
            done = self.run_program("post", *prefix, "job", "-o", "apt")
            self.check(done, 3, "", self.REFUSED.format("apt"))
        self.assertEqual((self.files(), self.read("apt")), (["apt", "job"], "old\n"))

    def test_force_replaces_it_and_its_mode_stays(self):
        self.set_rights("apt", 0o444)
        done = self.run_program("post", "job", "-o", "apt", "--force")
        self.check(done, 0, "", REPORT + VERIFIED + "apt: written\n")
        self.assertEqual((self.read("apt"), self.rights("apt")[0]), (APT, 0o444))

    def test_force_does_not_matter_for_other_files(self):
        for name in ("apt", "new"):
            done = self.run_program("post", "job", "-o", name, "--force")
            self.check(done, 0, "", REPORT + VERIFIED + f"{name}: written\n")
        self.assertEqual((self.read("apt"), self.read("new")), (APT, APT))

    def test_map_that_no_one_may_write_is_refused(self):
        self.write("map", "old\n")
        self.set_rights("map", 0o400)
        command = ("post", "job", "-o", "apt", "--map", "map")
        self.check(self.run_program(*command), 3, "", self.REFUSED.format("map"))
        self.assertEqual((self.read("apt"), self.read("map")), ("old\n", "old\n"))
        self.assertEqual(self.run_program(*command, "--force").returncode, 0)
        self.assertEqual((self.read("apt"), self.rights("map")[0]), (APT, 0o400))

    def test_private_file_is_private_while_it_is_written(self):
        self.set_rights("apt", 0o600)
        with self.begun("post", "-", "-o", "apt") as process:
            mode = self.rights(self.temporary_files()[0])[0]
            self.finish(process)
        self.assertEqual((mode, self.rights("apt")[0]), (0o600, 0o600))
        self.assertEqual(self.read("apt"), self.BEGUN_APT)


@unittest.skipUnless(os.geteuid() == 0, "only the superuser can act as other users")
class OtherUsers(WriteProtectedTest):
    def setUp(self):
        super().setUp()
        os.chmod(self.folder, 0o777)

    def run_as_other(self, *arguments):
        return self.run_program(
            *arguments, user=self.OTHER_USER, group=self.OTHER_GROUP, extra_groups=[]
        )

    def test_owner_and_group_stay_when_the_superuser_writes(self):
        self.set_rights("apt", 0o640, self.OTHER_USER, self.OTHER_GROUP)
        self.assertEqual(self.run_program("post", "job", "-o", "apt").returncode, 0)
        self.assertEqual(self.read("apt"), APT)
        self.assertEqual(self.rights("apt"), (0o640, self.OTHER_USER, self.OTHER_GROUP))

    def test_file_of_another_user_is_refused(self):
        self.set_rights("apt", 0o644, 0, 0)
        done = self.run_as_other("post", "job", "-o", "apt")
        self.check(done, 3, "", self.REFUSED.format("apt"))
        self.assertEqual((self.read("apt"), self.rights("apt")), ("old\n", (0o644, 0, 0)))

    def test_file_that_its_group_may_write_keeps_its_group(self):
        self.set_rights("apt", 0o664, 0, self.OTHER_GROUP)
        self.assertEqual(self.run_as_other("post", "job", "-o", "apt").returncode, 0)
        self.assertEqual(self.read("apt"), APT)
        self.assertEqual(self.rights("apt"), (0o664, self.OTHER_USER, self.OTHER_GROUP))

    def test_force_replaces_the_file_of_another_user(self):
        self.set_rights("apt", 0o644, 0, 0)
        self.assertEqual(self.run_as_other("post", "job", "-o", "apt", "--force").returncode, 0)
        self.assertEqual(self.rights("apt"), (0o644, self.OTHER_USER, self.OTHER_GROUP))

    def test_own_file_without_writing_is_refused(self):
        self.set_rights("apt", 0o464, self.OTHER_USER, self.OTHER_GROUP)
        done = self.run_as_other("post", "job", "-o", "apt")
        self.check(done, 3, "", self.REFUSED.format("apt"))


class Strict(program.ProgramTest):
    LACKING = (
        "job: 3 elements, 3 lines\n"
        "  WARNING: not evaluated: MFG_TOTAL_DEPTH (in line 3, NC_REAMING), and 1 more\n"
    )

    def test_lacking_text_is_written_without_strict(self):
        self.write("job", LACKING_JOB)
        done = self.run_program("post", "job")
        self.check(done, 0, APT + "CYCLE/REAM,,\n", self.LACKING + "  not verified\nstandard output: written\n")

    def test_lacking_text_makes_no_file(self):
        self.write("job", LACKING_JOB)
        done = self.run_program("post", "--strict", "job", "-o", "apt")
        why = VERIFIED.replace("2", "3") + "apt: not written: 2 pieces of the text would be missing\n"
        self.check(done, 1, "", self.LACKING + why)
        self.assertEqual(self.files(), ["job"])

    def test_lacking_text_does_not_reach_the_standard_output(self):
        self.write("job", LACKING_JOB)
        done = self.run_program("post", "--strict", "job")
        why = "  not verified\nstandard output: not written: 2 pieces of the text would be missing\n"
        self.check(done, 1, "", self.LACKING + why)

    def test_lacking_text_does_not_reach_a_device(self):
        self.write("job", LACKING_JOB)
        for output in ("/dev/stdout", "-"):
            done = self.run_program("post", "--strict", "job", "-o", output)
            self.assertEqual((done.returncode, done.stdout), (1, ""))

    def test_whole_text_is_written(self):
        self.write("job", JOB)
        done = self.run_program("post", "--strict", "job")
        self.check(done, 0, APT, REPORT + "  not verified\nstandard output: written\n")

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

    def test_progress_has_the_share_of_a_file_and_the_time_left(self):
        lines = JOB.splitlines(keepends=True)
        self.write("long", lines[0] + 400_000 * lines[1] + lines[2])
        reader, writer = os.openpty()
        with subprocess.Popen(
            [program.PPWORD, "post", "long", "-o", "/dev/null"], cwd=self.folder, stderr=writer
        ) as process:
            os.close(writer)
            seen = b""
            while b" left" not in seen:
                seen += os.read(reader, 4096)
            process.kill()
        os.close(reader)
        self.assertRegex(
            seen, rb"\r\d\d? %, \d+ elements, \d+ a second, \d+ (s|min|h \d+ min) left"
        )

    def test_long_work_shows_progress_on_a_terminal_only(self):
        reader, writer = os.openpty()
        command = [program.PPWORD, "post", "-", "-o", "/dev/null"]
        with subprocess.Popen(command, stdin=subprocess.PIPE, stderr=writer) as process:
            lines = JOB.splitlines(keepends=True)
            process.stdin.write(lines[0].encode())
            seen = b""
            while b" a second" not in seen:
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
        self.assertRegex(seen, rb"^\r\d+ elements, \d+ a second")
        self.assertEqual(process.returncode, 0)


if __name__ == "__main__":
    program.main()
