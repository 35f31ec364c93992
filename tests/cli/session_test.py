"""The sessions that docs/syntax.md, docs/lint.md and docs/first-table.md show."""

import os
import re
import shlex
import subprocess

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

    def run_as_shown(self, session):
        """Runs the commands of a session and returns what a terminal would show."""
        shown = ""
        for command in re.findall(r"^\$ ppword (.*)$", session, re.M):
            done = self.run_program(*shlex.split(command), stderr=subprocess.STDOUT)
            self.assertIn(done.returncode, (0, 1), command)
            shown += f"$ ppword {command}\n{done.stdout}"
        return shown

    def test_steps_to_the_first_table_lead_to_the_text(self):
        with open(os.path.join(program.SOURCE, "docs", "first-table.md"), "rb") as file:
            text = file.read().decode("latin-1")
        self.assertEqual(re.findall(r"^## (\d+)\.", text, re.M), [str(i) for i in range(1, 11)])
        table = ""
        sessions = 0
        for prose, kind, block in re.findall(r"(.*?)^```(\w+)\n(.*?)^```$", text, re.M | re.S):
            if "Correct the word" in prose:
                self.assertIn("LAODTL", table)
                table = table.replace("LAODTL", "LOADTL")
            if kind == "json":
                self.write("first.job.jsonl", block)
            elif kind == "text":
                table += block
            elif kind == "console":
                self.write("first.pptable", table)
                self.assertEqual(self.run_as_shown(block), block)
                sessions += 1
            else:
                self.assertEqual(self.read("first.apt"), block)
        self.assertEqual((sessions, kind), (6, "apt"))


if __name__ == "__main__":
    program.main()
