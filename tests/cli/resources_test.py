"""Memory of long jobs, and time of hostile tables."""

import json
import os
import resource
import shutil
import subprocess
import sys

import program

MEBIBYTE = 1 << 20
LIMIT = 32 * MEBIBYTE
POINTS = 500


# A process of its own: a child begins with the peak of its parent.
MEASURE = """
import os, sys
pid = os.fork()
if pid == 0:
    os.execv(sys.argv[1], sys.argv[1:])
_, status, usage = os.wait4(pid, 0)
print(usage.ru_maxrss)
sys.exit(os.waitstatus_to_exitcode(status))
"""


class Memory(program.ProgramTest):
    def peak(self, lines, *options):
        """Most memory that a job of so many lines took, in bytes."""
        points = [[i, i / 7, -1] for i in range(POINTS)]
        line = json.dumps({"nc": "NC_GOTO", "points": points}) + "\n"
        self.write("job", '{"job":1,"program":"P","units":"mm"}\n' + line * lines + '{"end":true}\n')
        command = [program.PPWORD, "post", "job", "-o", "apt", *options]
        done = subprocess.run(
            [sys.executable, "-c", MEASURE, *command],
            cwd=self.folder,
            env={**os.environ, "ASAN_OPTIONS": "quarantine_size_mb=1:detect_leaks=0"},
            capture_output=True,
            check=True,
        )
        self.assertEqual(self.read("apt").count("\n"), lines * POINTS)
        return int(done.stdout) * 1024

    def test_length_of_a_job_does_not_matter(self):
        for options in ([], ["--strict"]):
            short = self.peak(40, *options)
            long = self.peak(400 if program.SANITIZED else 2000, *options)
            self.assertLess(long - short, 4 * MEBIBYTE)
            if not program.SANITIZED:
                self.assertLess(long, LIMIT)


class TooLittle(program.ProgramTest):
    def test_memory_that_is_not_there_gives_4(self):
        self.write("job", program.JOB)
        done = self.run_program(
            "post",
            "job",
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_DATA, (MEBIBYTE, MEBIBYTE)),
        )
        self.check(done, 4, "", "ppword: error: there is not enough memory\n")


class NoneLeft(program.ProgramTest):
    """Every allocation fails after the first ones, of which there are more and more."""

    MESSAGE = "ppword: error: there is not enough memory\n"
    # A number that has no divisor with the steps of what grows.
    STEP = 41
    MOST = 40_000

    def run_with(self, allocations, *arguments, **settings):
        environment = {
            **os.environ,
            "LD_PRELOAD": os.environ["PPWORD_LACK_OF_MEMORY"],
            "PPWORD_ALLOCATIONS": str(allocations),
            "TMPDIR": self.folder,
            **settings,
        }
        return self.run_program(*arguments, env=environment)

    def begin(self):
        for name in self.files():
            os.remove(os.path.join(self.folder, name))
        self.write("job", program.JOB)
        self.write("table", program.TABLE)
        self.write("apt", "old\n")
        self.write("d", self.document)
        self.write("program.ngc", "G21\nG0 X1\nM2\n")

    def check_all(self, *arguments, results=("apt",)):
        """Returns what the files of the results held after each of the runs."""
        self.run_program("document", "new", "d")
        with open(os.path.join(self.folder, "d"), "rb") as file:
            self.document = file.read()
        self.begin()
        whole = self.run_program(*arguments)
        files = self.files()
        self.assertEqual(whole.returncode, 0, whole.stderr)
        held = set()
        for allocations in range(0, self.MOST, self.STEP):
            self.begin()
            before = self.files()
            done = self.run_with(allocations, *arguments)
            held.add(tuple(self.read(name) if name in self.files() else "" for name in results))
            if done.returncode == 0:
                self.check(done, 0, whole.stdout, whole.stderr)
                return held
            self.assertEqual(done.returncode, 4, (allocations, done.stderr))
            self.assertTrue(done.stderr.endswith(self.MESSAGE), (allocations, done.stderr))
            self.assertIn(self.files(), (before, files), allocations)
        return self.fail("no run was done")

    def test_libraries_are_loaded_or_not(self):
        statuses = []
        for allocations in range(0, 2_000, 7):
            done = self.run_with(2_000, "--version", PPWORD_EARLY_ALLOCATIONS=str(allocations))
            statuses.append(done.returncode)
            if done.returncode == 0:
                break
            self.check(done, 4, "", self.MESSAGE)
        self.assertGreater(len(statuses), 10)
        self.assertEqual(statuses[-1], 0)

    def test_text_is_whole_or_not_written(self):
        held = self.check_all("post", "job", "-t", "table", "-o", "apt")
        self.assertLessEqual(held, {("old\n",), (program.APT,)})

    def test_report_for_programs(self):
        self.check_all("post", "job", "-t", "table", "-o", "apt", "--format", "json")

    def test_table_is_checked_or_not(self):
        self.check_all("check", "--lint", "table", "--format", "json")

    def test_document_is_new_or_not(self):
        self.check_all("document", "new", "d2")

    def test_document_is_changed_or_not(self):
        self.check_all("document", "add-command", "d", "NC_GOTO")
        self.assertEqual(self.run_program("document", "show", "d").returncode, 0)

    def test_nc_program_leaves_no_folder(self):
        if not shutil.which("rs274"):
            self.skipTest("rs274 is not installed")
        self.check_all("post", "program.ngc", "-o", "apt")


if program.SANITIZED:
    # The sanitizers take more memory than any limit leaves.
    del TooLittle
    del NoneLeft


class Time(program.ProgramTest):
    def test_inserts_without_end_and_doubling_do_not_hang(self):
        table = "*START_NC_COMMAND NC_0\nX\n*END\n"
        for i in range(1, 40):
            table += f"*START_NC_COMMAND NC_{i}\n*INSERT NC_{i - 1}\n*INSERT NC_{i - 1}\n*END\n"
        table += "*START_NC_COMMAND NC_40\n*INSERT NC_41\n*END\n"
        table += "*START_NC_COMMAND NC_41\n*INSERT NC_40\n*END\n"
        self.write("table", table)
        self.write("job", program.JOB)
        self.assertEqual(self.run_program("check", "table").returncode, 0)
        self.assertEqual(self.run_program("list", "table", "formats").returncode, 0)
        self.assertEqual(self.run_program("post", "job", "-t", "table").returncode, 0)

    def test_large_tables_are_checked_at_once(self):
        self.write("starts", "*START_SYNTAXES\n" * 500_000)
        done = self.run_program("check", "starts")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.startswith("starts:1:1: error ERR_5003: "), done.stderr)
        self.write("words", ("x" * 1024 + "\n") * 5_000)
        done = self.run_program("check", "words")
        self.assertEqual(done.returncode, 0)
        ending = "words: warning more-warnings: 4951 more warnings are not shown\n"
        self.assertTrue(done.stderr.endswith(ending), done.stderr[-200:])


if __name__ == "__main__":
    program.main()
