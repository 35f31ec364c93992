"""Mistakes on the command line, help and version."""

import re
import os

import program


class Arguments(program.ProgramTest):
    def check_mistake(self, arguments, message, command="ppword"):
        expected = f"{command}: {message}\nTry '{command} --help'.\n"
        self.check(self.run_program(*arguments), 2, "", expected)

    def test_no_command_names_the_commands(self):
        self.check_mistake(
            [],
            "a command is required: check, explain, list, diff, document, post, verify, view, words, code, word, tables or lsp",
        )

    def test_unknown_command_suggests_the_nearest(self):
        self.check_mistake(["chekc", "t"], "there is no command 'chekc'; did you mean 'check'?")

    def test_capitals_do_not_hide_the_nearest(self):
        self.check_mistake(["CHECK", "t"], "there is no command 'CHECK'; did you mean 'check'?")

    def test_command_like_no_other_suggests_nothing(self):
        self.check_mistake(["translate"], "there is no command 'translate'")

    def test_unknown_option_suggests_the_nearest(self):
        self.check_mistake(
            ["check", "--stritc", "t"],
            "there is no option '--stritc'; did you mean '--strict'?",
            "ppword check",
        )

    def test_unknown_option_with_value_suggests_the_nearest(self):
        self.check_mistake(
            ["post", "--ouput=x", "j"],
            "there is no option '--ouput'; did you mean '--output'?",
            "ppword post",
        )

    def test_unknown_option_of_the_program_is_told(self):
        self.check_mistake(["--versoin"], "there is no option '--versoin'; did you mean '--version'?")

    def test_unknown_option_counts_before_a_missing_argument(self):
        self.check_mistake(
            ["post", "--strickt"],
            "there is no option '--strickt'; did you mean '--strict'?",
            "ppword post",
        )

    def test_missing_arguments_are_named(self):
        self.check_mistake(["check"], "TABLE is required", "ppword check")
        self.check_mistake(["explain"], "INSTRUCTION is required", "ppword explain")
        self.check_mistake(["list"], "TABLE is required", "ppword list")
        self.check_mistake(["post"], "JOB is required", "ppword post")
        self.check_mistake(["diff"], "OLD is required", "ppword diff")
        self.check_mistake(["diff", "t"], "NEW is required", "ppword diff")

    def test_unknown_section_suggests_the_nearest(self):
        self.check_mistake(
            ["list", "t", "comands"],
            "there is no section 'comands'; did you mean 'commands'?",
            "ppword list",
        )

    def test_default_catalogue_takes_no_table(self):
        self.check_mistake(
            ["list", "--default", "t", "words"], "--default takes no table", "ppword list"
        )

    def test_syntax_takes_no_instruction(self):
        self.check_mistake(
            ["explain", "t", "NC_GOTO", "--syntax", "GOTO/1"],
            "--syntax takes no instruction",
            "ppword explain",
        )

    def test_setting_that_is_none_is_told(self):
        self.check_mistake(
            ["explain", "NC_GOTO", "--set", "A=1", "--set", "B=RPM"],
            "--set: 'RPM' is not a number; a text is given as B:text=RPM",
            "ppword explain",
        )

    def test_sequence_that_is_no_number_is_told(self):
        self.check_mistake(
            ["explain", "NC_GOTO", "--sequence", "two"],
            "--sequence: 'two' is not a whole number",
            "ppword explain",
        )

    def test_argument_too_many_is_told(self):
        self.check_mistake(
            ["list", "t", "words", "x"], "'x' is one argument too many", "ppword list"
        )

    def test_unknown_format_is_told(self):
        self.check_mistake(
            ["check", "--format", "xml", "t"], "--format: 'xml' is neither text nor json", "ppword check"
        )

    def test_unknown_unit_is_told(self):
        self.check_mistake(
            ["post", "--units", "cm", "j"], "--units: 'cm' is neither mm nor inch", "ppword post"
        )

    def test_rotary_axis_that_is_none_is_explained(self):
        self.check_mistake(
            ["post", "--rotary", "Q", "j"],
            "--rotary: 'Q' names no rotary axis; write WORD:table:AXIS or WORD:head:AXIS, from the "
            "part to the tool, for example C:table:Z,A:table:X",
            "ppword post",
        )

    def test_control_characters_of_an_argument_are_escaped(self):
        self.check_mistake(["\x1b[2J"], "there is no command '\\x1b[2J'")

    def test_units_of_a_job_are_refused(self):
        self.write("job", program.JOB)
        self.check_mistake(
            ["post", "job", "--units", "mm"],
            "--units, --rotary, --chord, --helices, --origins, --comments, --tools and --machine-units are for listings; a job states its own",
            "ppword post",
        )

    def test_output_that_is_the_job_is_refused(self):
        self.write("job", program.JOB)
        self.check_mistake(
            ["post", "job", "-o", "./job"],
            "the output would replace the input ./job",
            "ppword post",
        )
        self.assertEqual(self.read("job"), program.JOB)

    def test_output_that_is_the_table_is_refused(self):
        self.write("job", program.JOB)
        self.write("table", program.TABLE)
        os.link(os.path.join(self.folder, "table"), os.path.join(self.folder, "other"))
        self.check_mistake(
            ["post", "job", "-t", "table", "-o", "other"],
            "the output would replace the input other",
            "ppword post",
        )

    def test_output_that_is_the_standard_input_is_refused(self):
        self.write("job", program.JOB)
        with open(os.path.join(self.folder, "job"), "rb") as job:
            done = self.run_program("post", "-", "-o", "job", stdin=job)
        self.check(
            done,
            2,
            "",
            "ppword post: the output would replace the input job\nTry 'ppword post --help'.\n",
        )
        self.assertEqual(self.read("job"), program.JOB)

    def test_empty_name_of_a_file_is_told(self):
        self.write("job", program.JOB)
        for argument, arguments in (
            ("TABLE", ["list", ""]),
            ("TABLE", ["explain", "", "NC_GOTO"]),
            ("TABLE", ["words", ""]),
            ("JOB", ["post", ""]),
            ("--table", ["post", "job", "-t", ""]),
            ("--document", ["post", "job", "-d", ""]),
            ("--output", ["post", "job", "-o", ""]),
        ):
            self.check_mistake(
                arguments,
                argument + ": a file name is expected, not an empty text",
                "ppword " + arguments[0],
            )


class Help(program.ProgramTest):
    COMMANDS = (
        [],
        ["check"],
        ["explain"],
        ["list"],
        ["document"],
        ["post"],
        ["words"],
        ["code"],
        ["word"],
        ["tables"],
    )

    def test_version_is_told(self):
        with open(os.path.join(program.SOURCE, "CMakeLists.txt"), encoding="ascii") as file:
            version = re.search(r"VERSION ([\d.]+) LANGUAGES", file.read())[1]
        self.check(self.run_program("--version"), 0, f"ppword {version}\n")

    def test_help_goes_to_the_standard_output(self):
        for command in self.COMMANDS:
            for option in ("-h", "--help"):
                done = self.run_program(*command, option)
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertRegex(done.stdout, r"\nExamples?:\n  ppword ")

    def test_lines_fit_a_terminal(self):
        for command in self.COMMANDS:
            for line in self.run_program(*command, "--help").stdout.splitlines():
                self.assertLessEqual(len(line), 100, line)


if __name__ == "__main__":
    program.main()
