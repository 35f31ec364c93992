"""Signals that end the program, and what killed programs leave."""

import fcntl
import os
import re
import resource
import signal
import socket

import program
from program import APT, JOB, REPORT, VERIFIED

ENDING = (signal.SIGHUP, signal.SIGINT, signal.SIGTERM, signal.SIGQUIT)
HOST = re.sub("[^A-Za-z0-9]", "_", socket.gethostname())


def without_core():
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Signals(program.ProgramTest):
    def test_signal_removes_the_files_that_were_begun(self):
        self.write("job", JOB)
        for number in ENDING:
            self.write("apt", "old\n")
            with self.begun("post", "-", "-o", "apt", preexec_fn=without_core) as process:
                self.assertEqual(len(self.temporary_files()), 1)
                process.send_signal(number)
                self.assertEqual(process.wait(60), -number)
            self.assertEqual((self.files(), self.read("apt")), (["apt", "job"], "old\n"))

    def test_signal_that_is_ignored_ends_nothing(self):
        for number in ENDING:
            ignored = lambda: signal.signal(number, signal.SIG_IGN)  # noqa: B023, E731
            with self.begun("post", "-", "-o", "apt", preexec_fn=ignored) as process:
                process.send_signal(number)
                self.finish(process)
            self.assertEqual(process.returncode, 0)
            self.assertEqual((self.files(), self.read("apt")), (["apt"], self.BEGUN_APT))

    def test_signal_while_a_file_is_synchronised_leaves_nothing(self):
        self.write("job", JOB)
        fault = f"fsync:file:0:{-signal.SIGTERM}"
        for command in (["post", "job", "-o", "out"], ["document", "new", "out"]):
            done = self.run_with_fault(fault, *command)
            self.check(done, -signal.SIGTERM)
            self.assertEqual(self.files(), ["job"])

    def test_signal_between_text_and_map_leaves_whole_files(self):
        self.write("job", JOB)
        fault = f"fsync:file:1:{-signal.SIGINT}"
        done = self.run_with_fault(fault, "post", "job", "-o", "apt", "--map", "map")
        self.check(done, -signal.SIGINT)
        self.assertEqual((self.files(), self.read("apt")), (["apt", "job"], APT))

    def test_signal_after_the_rename_leaves_the_file(self):
        self.write("job", JOB)
        fault = f"fsync:folder:0:{-signal.SIGTERM}"
        self.check(self.run_with_fault(fault, "post", "job", "-o", "apt"), -signal.SIGTERM)
        self.assertEqual((self.files(), self.read("apt")), (["apt", "job"], APT))


class LeftOvers(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)

    def post(self):
        self.check(self.run_program("post", "job", "-o", "apt"), 0, "", REPORT + VERIFIED + "apt: written\n")

    def left_by_kill(self):
        with self.begun("post", "-", "-o", "apt") as process:
            process.kill()
        (name,) = self.temporary_files()
        return name

    def test_file_of_a_killed_process_is_removed_by_the_next(self):
        name = self.left_by_kill()
        self.assertRegex(name, rf"^\.ppword-{HOST}-\d+-0\.tmp$")
        self.post()
        self.assertEqual(self.files(), ["apt", "job"])

    def test_new_document_removes_it_with_its_journal(self):
        name = self.left_by_kill()
        self.write(name + "-journal", "")
        self.assertEqual(self.run_program("document", "new", "d").returncode, 0)
        self.assertEqual(self.files(), ["d", "job"])

    def test_new_document_that_was_killed_is_removed(self):
        fault = f"fsync:file:0:{-signal.SIGKILL}"
        self.check(self.run_with_fault(fault, "document", "new", "d"), -signal.SIGKILL)
        self.assertEqual(len(self.temporary_files()), 2)
        self.post()
        self.assertEqual(self.files(), ["apt", "job"])

    def test_file_of_a_process_that_writes_stays(self):
        with self.begun("post", "-", "-o", "other") as process:
            self.post()
            self.assertEqual(len(self.temporary_files()), 1)
            self.finish(process)
        self.assertEqual(self.files(), ["apt", "job", "other"])
        self.assertEqual(self.read("other"), self.BEGUN_APT)

    def test_file_that_another_program_has_locked_stays(self):
        name = self.left_by_kill()
        with open(os.path.join(self.folder, name), "r+b") as file:
            fcntl.lockf(file, fcntl.LOCK_EX | fcntl.LOCK_NB, 1)
            self.post()
            self.assertEqual(self.temporary_files(), [name])
        self.post()
        self.assertEqual(self.temporary_files(), [])

    def test_names_of_others_stay(self):
        others = [
            ".ppword-another_host-1-0.tmp",
            f".ppword-{HOST}-another-1-0.tmp",
            f".ppword-{HOST}-1-0-1.tmp",
            f".ppword-{HOST}-1-.tmp~",
            f".ppword-{HOST}-x-0.tmp",
            f".ppword-{HOST}-10.tmp",
            ".ppword-1-0.tmp",
        ]
        for name in others:
            self.write(name, "of another\n")
        self.post()
        self.assertEqual(self.temporary_files(), sorted(others))

    def test_what_is_not_a_file_stays(self):
        self.write("precious", "text\n")
        names = [f".ppword-{HOST}-1-{number}.tmp" for number in range(3)]
        os.symlink("precious", os.path.join(self.folder, names[0]))
        os.mkdir(os.path.join(self.folder, names[1]))
        os.mkfifo(os.path.join(self.folder, names[2]))
        self.post()
        self.assertEqual((self.temporary_files(), self.read("precious")), (names, "text\n"))

    def test_file_of_another_user_stays(self):
        if os.geteuid() != 0:
            self.skipTest("only the superuser can create files of other users")
        name = self.left_by_kill()
        os.chown(os.path.join(self.folder, name), 4711, -1)
        self.post()
        self.assertEqual(self.temporary_files(), [name])


if __name__ == "__main__":
    program.main()
