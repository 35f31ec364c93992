"""Memory of long jobs, and time of hostile tables."""

import json
import os
import resource
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


if program.SANITIZED:
    # The sanitizers take more memory than any limit leaves.
    del TooLittle


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
