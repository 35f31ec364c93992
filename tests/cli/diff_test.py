"""ppword diff: what two tables mean differently."""

import json

import program

OLD = "*START_FORMAT MFG_A\n%f\n*END\n"
NEW = "*START_FORMAT MFG_A\n%e\n*END\n"


class Diff(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("old", OLD)
        self.write("new", NEW)

    def test_same_tables_say_nothing(self):
        self.check(self.run_program("diff", "old", "old"), 0)
        self.write("moved", "text\n\n" + OLD.replace("\n", "\r\n"))
        self.check(self.run_program("diff", "old", "moved"), 0)

    def test_same_tables_are_the_same_in_json(self):
        done = self.run_program("diff", "--format", "json", "old", "old")
        self.assertEqual(done.returncode, 0)
        self.assertEqual(
            json.loads(done.stdout), {"old": "old", "new": "old", "same": True, "changes": []}
        )

    def test_different_tables_end_with_1(self):
        self.check(
            self.run_program("diff", "old", "new"),
            1,
            'formats:\n  MFG_A: "%f" is now "%e" (old:1, new:1)\n',
        )

    def test_what_one_table_cannot_read(self):
        self.write("endless", "*START_NC_COMMAND NC_A\n*INSERT NC_A\n*END\n")
        self.write("sound", "*START_NC_COMMAND NC_A\nA\n*END\n")
        self.check(
            self.run_program("diff", "sound", "endless"),
            1,
            "instructions:\n  NC_A: its lines cannot be read in one table (endless:1)\n",
        )
        self.write("list", "*START_LIST MFG_A\nA\n" + 1100 * "x" + "\n*END\n")
        self.write("sound", "*START_LIST MFG_A\nA\n*END\n")
        self.check(
            self.run_program("diff", "sound", "list"),
            1,
            "words:\n  the section cannot be read in one table (list)\n"
            "syntaxes:\n  the section cannot be read in one table (list)\n"
            'lists:\n  MFG_A: "A" is now unreadable (sound:1, list:1)\n',
        )

    def test_text_cannot_control_a_terminal(self):
        self.write("new", NEW.replace("%e", "\x1b[31m"))
        self.check(
            self.run_program("diff", "old", "new"),
            1,
            'formats:\n  MFG_A: "%f" is now "\\x1b[31m" (old:1, new:1)\n',
        )

    def test_refused_tables_end_with_2(self):
        error = "absent: error ERR_5009: the PP word table cannot be opened: No such file or directory\n"
        self.check(self.run_program("diff", "old", "absent"), 2, "", error)
        self.check(self.run_program("diff", "absent", "absent"), 2, "", error + error)
        self.write("broken", "*COMMENT\n*START_SYNTAXES\n")
        done = self.run_program("diff", "--format", "json", "broken", "absent")
        self.assertEqual((done.returncode, done.stderr), (2, ""))
        found = json.loads(done.stdout)["diagnostics"]
        self.assertEqual(
            [(each["file"], each.get("line"), each["key"]) for each in found],
            [("broken", 1, "ERR_5001"), ("broken", 2, "ERR_5003"), ("absent", None, "ERR_5009")],
        )


if __name__ == "__main__":
    program.main()
