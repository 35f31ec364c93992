"""The kinds of findings: what they mean, and which of them a run refuses."""

import json
import os
import subprocess
import unittest

import program

TABLE = "*START_NC_COMMAND NC_COOLANT\nSTOP\n*START_SEQUENCE\nSTOP,1\n*END\n*END\n"
JOB = '{"job":1,"program":"P","units":"mm"}\n{"nc":"NC_TOOL_CHANGE"}\n{"end":true}\n'


class Kinds(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("table", TABLE)
        self.write("job", JOB)

    def status(self, *arguments):
        return self.run_program(*arguments).returncode

    def refused(self, mistake, *arguments):
        name = "ppword " + arguments[0]
        self.check(
            self.run_program(*arguments), 2, "", f"{name}: {mistake}\nTry '{name} --help'.\n"
        )

    def test_kinds_that_a_check_refuses_are_chosen(self):
        self.assertEqual(self.status("check", "--lint", "table"), 0)
        for refusing in (
            ["--strict"],
            ["--strict=mixed-sequence"],
            ["--strict=wide-line,missing-slash"],
            ["--strict=wide-line", "--strict=missing-slash"],
            ["--strict", "--allow=missing-slash"],
            ["--strict=mixed-sequence,missing-slash", "--allow", "missing-slash"],
        ):
            self.assertEqual(self.status("check", "--lint", *refusing, "table"), 1, refusing)
        for accepting in (
            ["--strict=wide-line"],
            ["--strict", "--allow=missing-slash,mixed-sequence"],
            ["--strict", "--allow=missing-slash", "--allow=mixed-sequence"],
            ["--strict=mixed-sequence", "--allow=mixed-sequence"],
            ["--allow=wide-line"],
        ):
            self.assertEqual(self.status("check", "--lint", *accepting, "table"), 0, accepting)

    def test_note_is_refused_only_by_its_key(self):
        self.write("notes", "*START_MINOR_WORDS\nFLOOD,89\n*END\n")
        self.assertEqual(self.status("check", "--lint", "--strict", "notes"), 0)
        done = self.run_program("check", "--lint", "--strict=unused-words", "notes")
        self.assertEqual(done.stdout, "notes: passes, 1 note; refused by --strict\n")
        self.assertEqual(done.returncode, 1)

    def test_kinds_that_post_refuses_are_chosen(self):
        for refusing in (["--strict"], ["--strict=unevaluated"]):
            done = self.run_program("post", *refusing, "job", "-o", "apt")
            self.assertEqual(done.returncode, 1)
            self.assertIn("apt: not written: 4 pieces of the text would be missing\n", done.stderr)
            self.assertNotIn("apt", self.files())
        for accepting in (["--strict=cut-off"], ["--strict", "--allow=unevaluated"]):
            self.assertEqual(self.status("post", *accepting, "job"), 0, accepting)

    def test_wide_lines_are_refused_by_their_key(self):
        self.write("wide", JOB.replace("NC_TOOL_CHANGE", "NC_GOTO"))
        self.write("table", "*START_NC_COMMAND NC_GOTO\n" + 80 * "A" + "\n*END\n")
        self.assertEqual(self.status("post", "--strict", "wide", "-t", "table"), 0)
        done = self.run_program("post", "--strict=wide-line", "wide", "-t", "table")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("not written: 1 finding is refused\n", done.stderr)

    def test_values_that_nothing_stated_or_no_machine_means_are_refused(self):
        self.write("go", JOB.replace("NC_TOOL_CHANGE", "NC_GOTO"))
        done = self.run_program("post", "go")
        self.assertEqual(done.returncode, 0)
        self.assertIn(
            "  WARNING: printed, but never stated: MFG_XPOINT (in line 2), and 2 more\n",
            done.stderr,
        )
        self.assertEqual(self.status("post", "--strict", "go"), 1)
        self.assertEqual(self.status("post", "--strict=never-given", "go"), 1)
        self.assertEqual(self.status("post", "--strict", "--allow=never-given", "go"), 0)
        axis = '"NC_GOTO_VARIABLE_AXIS","axis":[0,0,2],"points":[[1,2,3]]'
        self.write("tilt", JOB.replace('"NC_TOOL_CHANGE"', axis))
        done = self.run_program("post", "--strict", "tilt")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("  not verified\nstandard output: not written: 1 finding is refused\n", done.stderr)
        self.assertIn(
            "  WARNING: values that no machine can mean: axis (in line 2)\n",
            done.stderr,
        )
        self.assertEqual(self.status("post", "--strict", "--allow=impossible-value", "tilt"), 0)

    def test_unknown_key_is_a_mistake_with_the_nearest(self):
        lists = "('ppword check --explain' lists all)"
        nearest = f"there is no kind 'wide-lime' {lists}; did you mean 'wide-line'?"
        self.refused(nearest, "check", "--strict=wide-lime", "table")
        self.refused(nearest, "check", "--allow", "wide-lime", "table")
        self.refused(nearest, "check", "--explain", "wide-lime")
        self.refused(nearest, "post", "--strict=wide-line,wide-lime", "job")
        self.refused(f"there is no kind '' {lists}", "check", "--strict=wide-line,", "table")
        self.refused("TABLE is required", "check", "--lint")
        self.refused("'wide-line' is found only with --lint", "check", "--strict=wide-line", "table")
        self.assertEqual(self.status("check", "--strict=no-section", "table"), 0)
        always = "'ERR_5001' is an error, which is always refused"
        self.refused(always, "check", "--explain", "ERR_5001")

    def test_kind_is_explained_with_both_sides(self):
        self.check(
            self.run_program("check", "--explain", "missing-slash", "lost-move"),
            0,
            "missing-slash (warning of ppword check)\n"
            "  the major word has no / after it; put a / between the word and the rest\n"
            "\n"
            "  The arguments of a major word follow a /. Readers of APT take the line for\n"
            "  something else.\n"
            "\n"
            "  Reported:\n"
            "    FEDRAT,0.1\n"
            "  Not reported:\n"
            "    FEDRAT/0.1\n"
            "\n"
            "lost-move (warning of ppword post)\n"
            "  a move of the listing is not in the text; see docs/listing-format.md for\n"
            "  what becomes of each call\n"
            "\n"
            "  The machine would stay where it is.\n",
            "",
        )

    def test_all_kinds_are_listed(self):
        lines = self.run_program("check", "--explain").stdout.splitlines()
        kinds = json.loads(self.run_program("check", "--explain", "--format", "json").stdout)["kinds"]
        self.assertEqual(len(lines), len(kinds))
        for line, kind in zip(lines, kinds):
            self.assertEqual(line.split()[0], kind["key"])
            self.assertTrue(line.endswith(kind["fault"]))
            self.assertIn(kind["command"], ("check", "post", "verify"))
            self.assertIn(kind["severity"], ("error", "warning", "note"))
            if kind["command"] != "verify":
                self.assertNotEqual(kind["severity"], "error")
                self.assertEqual("reported" in kind, kind["command"] == "check")


@unittest.skipIf(program.SANITIZED, "the sanitizers need memory of their own")
class LintMemory(program.ProgramTest):
    SIZE = 2_000_000

    def peak(self, table):
        """The most kilobytes that a lint of the table has in memory."""
        self.write("table", table)
        server = subprocess.Popen(
            [program.PPWORD, "check", "--lint", "table"],
            cwd=self.folder,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        _, status, usage = os.wait4(server.pid, 0)
        server.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(server.returncode, 0)
        return usage.ru_maxrss

    def check_share(self, opening, block, closing=""):
        empty = self.peak("*START_SYNTAXES\nRAPID\n*END\n")
        count = self.SIZE // len(block % 1)
        table = opening + "".join(block % i for i in range(count)) + closing
        share = (self.peak(table) - empty) * 1024 / len(table)
        self.assertLess(share, 8)

    def test_of_short_lines(self):
        self.check_share("", "*START_NC_COMMAND NC_C%d\n" + 5 * "SPINDL/OFF\nRAPID\n" + "*END\n")

    def test_of_words(self):
        self.check_share("*START_MINOR_WORDS\n", "WORD%d,%%d\n".replace("%%d", "7"), "*END\n")

    def test_of_inserts(self):
        part = "*START_NC_COMMAND NC_A\nRAPID\n*END\n"
        self.check_share(part, "*START_NC_COMMAND NC_B%d\n*INSERT NC_A\n*INSERT NC_A\n*END\n")

    def test_of_one_body(self):
        self.check_share("*START_NC_COMMAND NC_A\n", "GOTO/%d\n", "*END\n")


if __name__ == "__main__":
    program.main()
