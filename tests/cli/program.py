"""The program under test and what its tests share."""

import os
import subprocess
import tempfile
import time
import unittest

PPWORD = os.environ["PPWORD"]
SOURCE = os.environ["PPWORD_SOURCE_DIR"]
EXAMPLES = os.path.join(SOURCE, "examples")
SANITIZED = os.environ.get("PPWORD_SANITIZED") == "1"

JOB = (
    '{"job":1,"program":"P","units":"mm"}\n'
    '{"nc":"NC_GOTO","points":[[1,2,3],[4,5,6]]}\n'
    '{"end":true}\n'
)
APT = (
    "GOTO/    1.00000,    2.00000,    3.00000\n"
    "GOTO/    4.00000,    5.00000,    6.00000\n"
)
REPORT = "job: 2 elements, 2 lines\n"
VERIFIED = "  verified: 2 statements, 0 of them the table's own\n"
LACKING_JOB = JOB.replace('{"end"', '{"nc":"NC_REAMING"}\n{"end"')
TABLE = "*START_SYNTAXES\nRAPID\n*END\n"


class ProgramTest(unittest.TestCase):
    """Each test runs in an empty folder of its own."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def write(self, name, content):
        data = content if isinstance(content, bytes) else content.encode()
        with open(os.path.join(self.folder, name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(os.path.join(self.folder, name), "rb") as file:
            return file.read().decode("latin-1")

    def files(self):
        return sorted(os.listdir(self.folder))

    def run_program(self, *arguments, prefix=(), **options):
        """The finished process, its texts decoded byte by byte."""
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        return subprocess.run(
            [*prefix, PPWORD, *arguments],
            cwd=self.folder,
            encoding="latin-1",
            timeout=120,
            check=False,
            **options,
        )

    def run_with_fault(self, fault, *arguments, **options):
        """A run in which calls of the system fail; Faults.cpp says how `fault` is written."""
        sanitizer = os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0"
        environment = {
            **os.environ,
            "LD_PRELOAD": os.environ["PPWORD_FAULTS"],
            "ASAN_OPTIONS": sanitizer.lstrip(":"),
            "PPWORD_FAULT": fault,
        }
        return self.run_program(*arguments, env=environment, **options)

    # Longer than what the program reads at once.
    BEGUN_ELEMENTS = 3000
    BEGUN_APT = APT * BEGUN_ELEMENTS

    def temporary_files(self):
        return [name for name in self.files() if name.startswith(".ppword-")]

    def begun(self, *arguments, **options):
        """A process that has begun to write its output and waits for the rest of its job."""
        process = subprocess.Popen(
            [PPWORD, *arguments],
            cwd=self.folder,
            stdin=subprocess.PIPE,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
            **options,
        )
        header, element, _ = JOB.splitlines(keepends=True)
        process.stdin.write((header + element * self.BEGUN_ELEMENTS).encode())
        process.stdin.flush()
        end = time.monotonic() + 60
        while not self.temporary_files() and process.poll() is None and time.monotonic() < end:
            time.sleep(0.01)
        return process

    def finish(self, process):
        """Writes the end of the job of a process that has begun."""
        process.stdin.write(JOB.splitlines(keepends=True)[2].encode())
        process.stdin.close()
        process.wait(60)

    def check(self, done, status, stdout="", stderr=""):
        self.assertEqual((done.stderr or "", done.stdout or ""), (stderr, stdout))
        self.assertEqual(done.returncode, status)


def main():
    unittest.main()
