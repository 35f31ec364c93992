"""Which passes an explanation shows."""

import json
import os

import program

PASSES = [
    "syntax",
    "mask escapes",
    "clean parentheses",
    "rewrite divisions",
    "mask signs",
    "groups &",
    "references &",
    "groups %(",
    "references %(",
    "groups %",
    "references %",
    "restore signs",
    "evaluate",
    "unmask escapes",
]


class Passes(program.ProgramTest):
    def explain(self, *options, cleaning="1"):
        environment = {**os.environ, "MFG_PPWORD_CLEAN_PARENTHESIS": cleaning}
        done = self.run_program("explain", "--syntax", "GOTO/1", *options, env=environment)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def test_value_for_a_name_that_no_line_has_is_refused_with_the_nearest(self):
        self.check(
            self.run_program("explain", "NC_GOTO", "--set", "MFG_XPONT=10"),
            1,
            "",
            "ppword explain: --set: no reference of these lines has the name 'MFG_XPONT'; did you "
            "mean 'MFG_XPOINT'?\n",
        )

    def test_file_in_place_of_an_instruction_is_a_mistake(self):
        self.write("vmc3.pptable", "*START_NC_COMMAND NC_A\nSTOP\n*END\n")
        self.check(
            self.run_program("explain", "vmc3.pptable"),
            2,
            "",
            "ppword explain: 'vmc3.pptable' is a file; write an NC instruction after it\n"
            "Try 'ppword explain --help'.\n",
        )

    def test_instruction_without_its_prefix_is_suggested(self):
        self.check(
            self.run_program("explain", "GOTO"),
            1,
            "",
            "ppword explain: there is no NC instruction 'GOTO'; did you mean 'NC_GOTO'?\n",
        )

    def test_feed_rate_sets_the_motion_buffer(self):
        done = self.run_program("explain", "NC_FEEDRATE", "--set", "MFG_FEED_VALUE=812.5")
        self.assertIn("«FEDRAT/  812.5000,", done.stdout)

    def test_options_may_precede_the_instruction(self):
        self.assertEqual(
            self.run_program("explain", "--set", "MFG_XPOINT=10", "NC_GOTO").stdout,
            self.run_program("explain", "NC_GOTO", "--set", "MFG_XPOINT=10").stdout,
        )
        self.assertEqual(
            self.run_program("explain", "--set", "MFG_XPOINT=10", "NC_GOTO").returncode, 0
        )

    def test_json_names_every_pass_in_its_order(self):
        passes = json.loads(self.explain("--format", "json"))["lines"][0]["passes"]
        self.assertEqual([each["pass"] for each in passes], PASSES)

    def test_text_names_every_pass_in_its_order(self):
        # The line as it is written has no name.
        text = "«GOTO/1»\n"
        for name in PASSES[1:]:
            text += f"  {name:<18} unchanged\n"
        text += f"  {'output':<18} «GOTO/1»\n"
        self.assertEqual(self.explain(), text.encode().decode("latin-1"))

    def test_parentheses_are_cleaned_only_by_the_setting(self):
        passes = json.loads(self.explain("--format", "json", cleaning=""))["lines"][0]["passes"]
        self.assertEqual(
            [each["pass"] for each in passes],
            [name for name in PASSES if name != "clean parentheses"],
        )


if __name__ == "__main__":
    program.main()
