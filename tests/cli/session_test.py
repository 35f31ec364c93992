"""The sessions that docs/syntax.md shows."""

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


if __name__ == "__main__":
    program.main()
