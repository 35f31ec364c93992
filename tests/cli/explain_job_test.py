"""Explaining what comes from a line of a tool path, and how commands name their table."""

import json
import os

import program

HEADER = '{"job":1,"program":"P","units":"mm"}\n'
JOB = (
    HEADER
    + '{"activity":"A","kind":"machining","parameters":{"DEPTH":{"real":2.5}}}\n'
    + '{"nc":"NC_FEEDRATE","feedrate":{"value":300,"type":"linear"}}\n'
    + '{"nc":"NC_GOTO","points":[[1,2,3],[4,5,6],[7,8,9]]}\n'
    + '{"activity":"B","kind":"machining"}\n'
    + '{"nc":"NC_TEXT","comment":"END"}\n'
    + '{"end":true}\n'
)
TABLE = """*START_NC_COMMAND NC_TEXT
PPRINT/%MFG_OUTPUT_COMMENT,%DEPTH
*END
*START_NC_INSTRUCTION NC_GOTO
*START_SEQUENCE
GOTO/%MFG_XPOINT,%DEPTH
*END
*START_SEQUENCE
GODLTA/%MFG_XPOINT
*END
*END
"""
LISTING = (
    "1 N..... USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
    "2 N..... SET_FEED_RATE(300.0000)\n"
    "3 N..... STRAIGHT_FEED(10.0000, -2.5000, 50.0000, 0.0000, 0.0000, 0.0000)\n"
    "4 N..... PROGRAM_END()\n"
)


class Place(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)
        self.write("table", TABLE)
        self.write("listing", LISTING)

    def explain(self, *arguments):
        done = self.run_program("explain", "--format", "json", *arguments)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return json.loads(done.stdout)

    def outputs(self, *arguments):
        """Instruction, sequence, point, points and lines of each element."""
        return [
            [
                element["instruction"],
                element["sequence"],
                element["point"],
                element["points"],
                [line["output"] for line in element["lines"]],
            ]
            for element in self.explain(*arguments)["elements"]
        ]

    def refused(self, message, *arguments):
        self.check(self.run_program("explain", *arguments), 1, "", message + "\n")

    def mistaken(self, message, *arguments, command="explain"):
        text = f"ppword {command}: {message}\nTry 'ppword {command} --help'.\n"
        self.check(self.run_program(command, *arguments), 2, "", text)


class Elements(Place):
    def test_values_are_those_of_the_line(self):
        self.assertEqual(
            self.outputs("--job", "job:4", "-t", "table"),
            [["NC_GOTO", 1, 1, 3, ["GOTO/    1.00000,    2.500000"]]],
        )

    def test_point_is_counted_from_one(self):
        for point, text in ((1, "1.00000"), (3, "7.00000")):
            self.assertEqual(
                self.outputs("--job", f"job:4:{point}", "table"),
                [["NC_GOTO", 1, point, 3, [f"GOTO/    {text},    2.500000"]]],
            )

    def test_activity_is_that_of_the_line(self):
        self.assertEqual(
            self.outputs("--job", "job:6", "-t", "table"),
            [["NC_TEXT", 1, 1, 0, ["PPRINT/END,"]]],
        )

    def test_sequence_is_that_of_the_element(self):
        self.write("job", HEADER + '{"nc":"NC_GOTO","sequence":2,"points":[[1,2,3]]}\n{"end":true}\n')
        done = self.run_program("explain", "--job", "job:2", "-t", "table")
        self.assertTrue(done.stdout.startswith("job:2: NC_GOTO, sequence 2\n"), done.stdout)
        self.assertIn("«GODLTA/    1.00000»".encode().decode("latin-1"), done.stdout)

    def test_all_elements_of_a_line_are_explained(self):
        elements = self.outputs("--job", "listing:3")
        self.assertEqual([element[0] for element in elements], ["NC_FEEDRATE", "NC_GOTO"])
        self.assertEqual(elements[1][4], ["GOTO/   10.00000,   -2.50000,   50.00000"])

    def test_texts_of_several_elements_have_titles(self):
        text = self.run_program("explain", "--job", "listing:3").stdout
        titles = [line for line in text.splitlines() if line.startswith("listing:3:")]
        self.assertEqual(titles, ["listing:3: NC_FEEDRATE", "listing:3: NC_GOTO"])

    def test_units_are_those_of_post(self):
        self.assertEqual(
            self.outputs("--job", "listing:3", "--units", "inch")[1][4],
            ["GOTO/    0.39370,   -0.09843,    1.96850"],
        )

    def test_rotary_axes_are_those_of_post(self):
        elements = self.outputs("--job", "listing:3", "--rotary", "A:table:X")
        self.assertEqual(elements[-1][0], "NC_GOTO_VARIABLE_AXIS")

    def test_command_is_explained_by_its_instruction(self):
        for arguments in (("new", "d"), ("add-command", "d", "NC_GOTO", "1")):
            self.assertEqual(self.run_program("document", *arguments).returncode, 0)
        self.write("job", HEADER + '{"ppCommand":1,"points":[[1,2,3]]}\n{"end":true}\n')
        self.assertEqual(
            self.outputs("--job", "job:2", "-d", "d", "-t", "table"),
            [["NC_GOTO", 1, 1, 1, ["GOTO/    1.00000,"]]],
        )

    def test_document_of_the_header_is_used(self):
        for arguments in (("new", "d"), ("load-table", "d", "table")):
            self.assertEqual(self.run_program("document", *arguments).returncode, 0)
        self.write("job", JOB.replace('"units"', '"document":"d","units"'))
        self.assertEqual(self.outputs("--job", "job:6")[0][4], ["PPRINT/END,"])

    def test_table_of_the_header_is_used(self):
        os.makedirs(os.path.join(self.folder, "PPTables"))
        self.write("PPTables/mill", TABLE)
        self.write("job", JOB.replace('"units"', '"resource":{"name":"M","table":"mill"},"units"'))
        environment = {**os.environ, "PPWORD_RESOURCE_PATH": self.folder}
        done = self.run_program("explain", "--job", "job:4", env=environment)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("    2.500000", done.stdout)

    def test_lines_are_those_that_post_writes(self):
        for name in ("bracket.canon", "drilling.job.jsonl", "turning.job.jsonl", "helix.job.jsonl"):
            path = os.path.join(program.EXAMPLES, name)
            table = os.path.join(program.EXAMPLES, "mill-turn.pptable")
            posted = self.run_program("post", path, "-t", table).stdout.splitlines()
            with open(path, encoding="latin-1") as file:
                count = len(file.readlines())
            shown = []
            for line in range(1, min(count, 40) + 1):
                done = self.run_program("explain", "--format", "json", "--job", f"{path}:{line}", "-t", table)
                for element in json.loads(done.stdout).get("elements", []):
                    # The lines of one point each.
                    if element["points"] <= 1:
                        shown += [each["output"] for each in element["lines"]]
            remaining = iter(posted)
            self.assertTrue(shown)
            for line in shown:
                self.assertIn(line, remaining, name)

    def test_what_is_after_the_line_does_not_matter(self):
        self.write("job", JOB.replace('{"activity":"B"', "{broken"))
        self.assertEqual(self.outputs("--job", "job:4", "table")[0][0], "NC_GOTO")

    def test_standard_input_is_read(self):
        with open(os.path.join(self.folder, "job"), encoding="latin-1") as file:
            done = self.run_program("explain", "--job", "-:4", "table", stdin=file)
        self.assertTrue(done.stdout.startswith("standard input:4: NC_GOTO, point 1 of 3\n"), done.stdout)

    def test_name_with_a_colon_and_a_number_needs_the_point(self):
        self.write("job:4", JOB)
        self.assertEqual(self.outputs("--job", "job:4:6:1", "table")[0][0], "NC_TEXT")

    def test_format_is_the_one_of_the_header_that_printed_the_number(self):
        formats = '"units":"mm","pointFormat":"%.3f","axisFormat":"%.1f"}'
        self.write("own", JOB.replace('"units":"mm"}', formats, 1))
        syntax = "X/%MFG_XPOINT,%MFG_XAXIS,%MFG_FEED_VALUE,%DEPTH"
        self.write("mixed", f"*START_NC_INSTRUCTION NC_GOTO\n{syntax}\n*END\n")

        def printed(job):
            element = self.explain("--job", f"{job}:4", "mixed")["elements"][0]
            passes = element["lines"][0]["passes"]
            return [
                (each["reference"], each["format"], each["text"])
                for made in passes
                for each in made["references"]
            ]

        plain, own = printed("job"), printed("own")
        self.assertEqual(
            own[:2], [("%MFG_XPOINT", "%.3f", "1.000"), ("%MFG_XAXIS", "%.1f", "0.0")]
        )
        self.assertEqual(
            plain[:1] + own[2:],
            [
                ("%MFG_XPOINT", "%11.5f", "    1.00000"),
                ("%MFG_FEED_VALUE", "%10.4f", "  300.0000"),
                ("%DEPTH", None, "    2.500000"),
            ],
        )


class Refusals(Place):
    def test_line_without_an_element_names_the_nearest(self):
        self.refused(
            "job:5: error: no element comes from this line; the nearest are line 4 before it and "
            "line 6 after it",
            "--job",
            "job:5",
            "table",
        )

    def test_line_before_the_first_element_names_it(self):
        self.refused(
            "job:1: error: no element comes from this line; the nearest is line 3 after it",
            "--job",
            "job:1",
            "table",
        )

    def test_line_after_the_last_element_names_it(self):
        self.refused(
            "job:90: error: no element comes from this line; the nearest is line 6 before it",
            "--job",
            "job:90",
            "table",
        )

    def test_tool_path_without_elements_is_told(self):
        self.write("job", HEADER + '{"end":true}\n')
        self.refused(
            "job:2: error: no element comes from this line, nor from another one", "--job", "job:2"
        )

    def test_point_too_many_is_told_with_their_number(self):
        message = "job:{}: error: there is no point {}; the element of this line has {}"
        self.refused(message.format(4, 4, "3 points"), "--job", "job:4:4", "table")
        self.refused(message.format(3, 2, "no points"), "--job", "job:3:2", "table")

    def test_point_too_many_of_one(self):
        self.write("job", HEADER + '{"nc":"NC_GOTO","points":[[1,2,3]]}\n{"end":true}\n')
        self.refused(
            "job:2: error: there is no point 2; the element of this line has 1 point",
            "--job",
            "job:2:2",
        )

    def test_refusal_is_json_where_asked_for(self):
        done = self.run_program("explain", "--format", "json", "--job", "job:5")
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        (found,) = json.loads(done.stdout)["diagnostics"]
        self.assertEqual((found["file"], found["line"]), ("job", 5))

    def test_errors_before_the_line_are_those_of_post(self):
        wrong = {
            "broken": JOB.replace('"comment":"END"', '"comment":5'),
            "unknown": JOB.replace("NC_FEEDRATE", "NC_FEDRATE"),
            "sequence": JOB.replace('"points"', '"sequence":3,"points"'),
            "neither": "GOTO/1,2,3\n",
            "empty": "",
        }
        for name, job in wrong.items():
            self.write(name, job)
            posted = self.run_program("post", name, "-t", "table")
            self.assertEqual(posted.returncode, 1)
            self.assertTrue(posted.stderr.startswith(name + ":"), posted.stderr)
            self.check(
                self.run_program("explain", "--job", f"{name}:7", "-t", "table"), 1, "", posted.stderr
            )

    def test_unreadable_files_are_told(self):
        self.refused("absent: error: cannot be opened: No such file or directory", "--job", "absent:1")
        self.refused("d: error: cannot be opened: No such file or directory", "-d", "d", "--job", "job:4")
        self.refused("d: error: cannot be opened: No such file or directory", "-d", "d", "NC_GOTO")
        self.refused(
            "t: error ERR_5009: the PP word table cannot be opened: No such file or directory",
            "--job",
            "job:4",
            "-t",
            "t",
        )


class Mistakes(Place):
    def test_place_is_checked(self):
        for text in ("job", "job:", ":4", "job:0", "job:x", "job:-1", "job:4:0", "", "job:4:",
                     "job:99999999999999999999"):
            self.mistaken(
                f"--job: '{text}' is neither FILE:LINE nor FILE:LINE:POINT, which count from 1",
                "--job",
                text,
            )

    def test_nothing_else_names_what_to_explain(self):
        self.mistaken("--job takes no instruction", "--job", "job:4", "NC_GOTO")
        self.mistaken("--job takes no instruction", "--job", "job:4", "table", "NC_GOTO")
        self.mistaken("--job takes no instruction", "--job", "job:4", "-t", "table", "NC_GOTO")
        self.mistaken("--job takes no --syntax", "--job", "job:4", "--syntax", "A")
        self.mistaken("--job takes no --sequence: its element names it", "--job", "job:4", "--sequence", "1")
        self.mistaken("--job takes no --set: its elements have values", "--job", "job:4", "--set", "A=1")

    def test_options_of_listings_need_one(self):
        self.mistaken(
            "--units, --rotary, --chord, --helices, --origins, --comments, --tools and --machine-units are for listings; a job states its own", "--job", "job:4", "--units", "mm"
        )
        self.mistaken("--units, --rotary, --chord, --helices, --origins, --comments, --tools and --machine-units are for the listing of --job, --machine, --unknown-tools and --timeout for its NC program", "NC_GOTO", "--units", "mm")


class Tables(Place):
    def same(self, command, with_option, by_position):
        one = self.run_program(command, *with_option)
        other = self.run_program(command, *by_position)
        self.assertEqual((one.returncode, one.stderr), (0, ""))
        self.check(one, 0, other.stdout)

    def test_option_names_the_table_in_every_command(self):
        words = "*START_MINOR_WORDS\nON,71\nOFF,72\n*END\n"
        self.write("words", words)
        self.same("list", ("-t", "table"), ("table",))
        self.same("list", ("-t", "table", "commands"), ("table", "commands"))
        self.same("words", ("-t", "words"), ("words",))
        self.same("code", ("ON", "-t", "words", "OFF"), ("words", "ON", "OFF"))
        self.same("word", ("-t", "words", "71", "72"), ("words", "71", "72"))
        self.same("explain", ("-t", "table", "NC_GOTO"), ("table", "NC_GOTO"))
        self.same("explain", ("-t", "table", "--syntax", "X/1"), ("table", "--syntax", "X/1"))

    def test_table_named_twice_is_a_mistake(self):
        twice = "the table is named twice, with -t and as 'table'"
        self.mistaken(twice, "-t", "table", "table", "commands", command="list")
        self.mistaken(twice, "-t", "table", "table", command="words")
        self.mistaken(twice, "-t", "table", "table", "ON", command="code")
        self.mistaken(twice, "-t", "table", "table", "1", command="word")
        self.mistaken(twice, "-t", "table", "table", "NC_GOTO")
        self.mistaken(twice, "-t", "table", "table")
        self.mistaken(twice, "-t", "table", "table", "--syntax", "X/1")
        self.mistaken(twice, "-t", "table", "table", "--job", "job:4")

    def test_missing_names_are_told(self):
        self.mistaken("WORD is required", "-t", "table", command="code")
        self.mistaken("CODE is required", "-t", "table", command="word")
        self.mistaken("WORD is required", "table", command="code")
        self.mistaken("CODE is required", "table", command="word")
        for command in ("words", "code", "word", "list"):
            self.mistaken("TABLE is required", command=command)
        self.mistaken("INSTRUCTION is required", "-t", "table")
        self.mistaken("--default takes no table", "--default", "-t", "table", command="list")

    def test_first_code_after_the_option_is_checked(self):
        self.mistaken(
            "CODE: a code is a whole number from -2147483648 to 2147483647, not 'x'",
            "-t",
            "table",
            "x",
            command="word",
        )

    def test_document_gives_the_catalogue(self):
        for arguments in (("new", "d"), ("load-table", "d", "table")):
            self.assertEqual(self.run_program("document", *arguments).returncode, 0)
        self.same("explain", ("-d", "d", "NC_TEXT"), ("table", "NC_TEXT"))


if __name__ == "__main__":
    program.main()
