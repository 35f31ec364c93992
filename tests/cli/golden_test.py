"""Runs the folders of tests/golden.

Each holds the command in `cmd` (the arguments, as a shell would split them), what it reads, and what
must come out: `stdout` and `stderr` (absent: nothing), `status` (absent: 0), and under `written/` the
files that it makes. The run may leave nothing else.
"""

import os
import shlex
import shutil

import program

GOLDEN = os.path.join(program.SOURCE, "tests", "golden")
EXPECTATIONS = ("cmd", "stdout", "stderr", "status", "written")


def content(path, default=""):
    if not os.path.exists(path):
        return default
    with open(path, "rb") as file:
        return file.read().decode("latin-1")


class Golden(program.ProgramTest):
    def run_case(self, case):
        folder = os.path.join(GOLDEN, case)
        inputs = [name for name in os.listdir(folder) if name not in EXPECTATIONS]
        for name in inputs:
            shutil.copy(os.path.join(folder, name), self.folder)
        done = self.run_program(*shlex.split(content(os.path.join(folder, "cmd"))))
        self.check(
            done,
            int(content(os.path.join(folder, "status"), "0")),
            content(os.path.join(folder, "stdout")),
            content(os.path.join(folder, "stderr")),
        )
        written = os.path.join(folder, "written")
        expected = os.listdir(written) if os.path.isdir(written) else []
        self.assertEqual(self.files(), sorted([*inputs, *expected]))
        for name in expected:
            self.assertEqual(self.read(name), content(os.path.join(written, name)))


def add_case(case):
    setattr(Golden, "test_" + case.replace("-", "_"), lambda self: self.run_case(case))


for name in sorted(os.listdir(GOLDEN)):
    add_case(name)

if __name__ == "__main__":
    program.main()
