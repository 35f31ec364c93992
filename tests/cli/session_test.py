"""The sessions that docs/syntax.md and docs/lint.md show."""

import os
import re
import shlex

import program


class Session(program.ProgramTest):
    def test_sessions_of_the_manual_run(self):
        with open(os.path.join(program.SOURCE, "docs", "syntax.md"), "rb") as file:
            text = file.read().decode("latin-1")
        sessions = re.findall(r"^```console\n\$ ppword ([^\n]*)\n(.*?)^```$", text, re.M | re.S)
        self.assertEqual(len(sessions), 1)
        for command, shown in sessions:
            self.check(self.run_program(*shlex.split(command)), 0, shown)

    def test_session_of_the_lint_runs(self):
        with open(os.path.join(program.SOURCE, "docs", "lint.md"), encoding="ascii") as file:
            blocks = dict(re.findall(r"^```(\w+)\n(.*?)^```$", file.read(), re.M | re.S))
        self.write("arm.pptable", blocks["pptable"])
        command, shown = re.match(r"\$ ppword ([^\n]*)\n(.*)", blocks["console"], re.S).groups()
        findings, _, verdict = shown.rstrip("\n").rpartition("\n")
        done = self.run_program(*shlex.split(command))
        self.check(done, 0, verdict + "\n", findings + "\n")


if __name__ == "__main__":
    program.main()
