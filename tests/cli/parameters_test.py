"""What `ppword list parameters` shows of each parameter, and what a job says of it."""

import json
import os

import program

TABLE = """*START_FORMAT MFG_XPOINT
%.1f
*END
*START_LIST MFG_FEED_UNIT
IPM IPR
*END
*START_FORMAT MFG_TOOL_NUMBER
%5.0f
*END
*START_NC_COMMAND NC_PROBE
PROBE/%MFG_PROBE_FEED,%MFG_XPOINT,%(DEPTH)
*START_SEQUENCE
PROBE/%MFG_TOOL_NUMBER
*END
*END
"""
JOB = """{"job":1,"program":"P","units":"mm"}
{"activity":"Drilling.1","parameters":{"MFG_TOTAL_DEPHT":{"real":25},"MFG_CLEAR_TIP":{"real":2}}}
{"nc":"NC_BORING"}
{"end":true}
"""


class Parameters(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("table", TABLE)

    def listed(self, *arguments):
        output = self.run_program("list", *arguments, "parameters", "--format", "json").stdout
        return {entry["name"]: entry for entry in json.loads(output)["parameters"]}

    def texts(self, *arguments):
        return self.run_program("list", *arguments).stdout

    def test_each_parameter_is_explained(self):
        self.assertEqual(
            self.listed()["MFG_CIRCLE_Y_PT"],
            {
                "name": "MFG_CIRCLE_Y_PT",
                "meaning": "the Y coordinate of the end of the circle",
                "type": "real",
                "unit": "length",
                "source": "buffer",
                "job": "circle.point",
                "format": "%13.5f",
                "list": None,
                "instructions": ["NC_CIRCLE1", "NC_CIRCLE2", "NC_CYLNDR1", "NC_CYLNDR2"],
            },
        )
        self.assertEqual(len(self.listed()), 114)

    def test_list_of_the_catalogue_has_a_short_form(self):
        alone = self.texts("parameters")
        self.assertEqual(alone, self.texts("--default", "parameters"))
        self.assertTrue(alone.startswith("parameters (114)\n  MFG_XPOINT\n"))
        self.assertLessEqual(max(len(line) for line in alone.splitlines()), 80)
        # A file of that name is a table.
        self.write("parameters", TABLE)
        self.assertEqual(self.texts("parameters"), self.texts("table"))

    def test_a_table_changes_formats_words_and_uses(self):
        listed = self.listed("table")
        self.assertEqual(listed["MFG_XPOINT"]["format"], "%.1f")
        self.assertEqual(listed["MFG_FEED_UNIT"]["list"], ["IPM", "IPR"])
        self.assertIn("NC_PROBE", listed["MFG_XPOINT"]["instructions"])
        self.assertNotIn("DEPTH", listed)
        self.assertEqual(
            listed["MFG_PROBE_FEED"],
            {
                "name": "MFG_PROBE_FEED",
                "meaning": None,
                "type": None,
                "unit": None,
                "source": None,
                "job": None,
                "format": None,
                "list": None,
                "instructions": ["NC_PROBE"],
            },
        )

    def test_parameters_of_an_instruction(self):
        self.assertEqual(
            self.texts("table", "parameters", "--of", "NC_PROBE"),
            """parameters (3)
  MFG_XPOINT
      the X coordinate of the current point
      real, unit: length; from the buffer, in a job points; format %.1f
      used by NC_CYCLE_LOCATION_POINT_V1, NC_CYCLE_LOCATION_POINT, NC_GOTO,
      NC_GOTO_VARIABLE_AXIS, NC_FROM, NC_FROM_VARIABLE_AXIS, NC_PROBE
  MFG_TOOL_NUMBER
      the number of the tool
      integer; from the activity, in a job parameters; format %5.0f
      used by NC_TOOL_CHANGE, NC_TOOL_CHANGE_LATHE, NC_PROBE
  MFG_PROBE_FEED
      not known; an activity, its tool, assembly or insert can have it
      used by NC_PROBE
""",
        )
        self.assertEqual(
            self.texts("parameters", "--of", "NC_SPINDLE_OFF"), "parameters (0)\n"
        )

    def test_numbers_that_ignore_their_format_and_words_say_so(self):
        text = self.texts("parameters")
        self.assertIn("in a job assembly.insert; always in\n      the format %12.6f", text)
        self.assertIn("in a job feedrate.type; words: MMPM, MMPR", text)

    def test_instruction_alone_means_its_parameters(self):
        self.assertEqual(
            self.texts("--of", "NC_PROBE", "table"),
            self.texts("table", "parameters", "--of", "NC_PROBE"),
        )
        self.assertEqual(
            self.texts("--of", "NC_GOTO"), self.texts("parameters", "--of", "NC_GOTO")
        )
        self.check(
            self.run_program("list", "parameters", "--of", ""),
            1,
            "",
            "ppword list: there is no NC instruction ''\n",
        )

    def test_mistakes(self):
        unknown = self.run_program("list", "parameters", "--of", "NC_DRILING")
        self.check(
            unknown,
            1,
            "",
            "ppword list: there is no NC instruction 'NC_DRILING'; did you mean 'NC_DRILLING'?\n",
        )
        usage = "Try 'ppword list --help'.\n"
        self.check(
            self.run_program("list", "table", "formats", "--of", "NC_GOTO"),
            2,
            "",
            "ppword list: --of is for the section parameters\n" + usage,
        )
        self.check(
            self.run_program("list", "table", "paramters"),
            2,
            "",
            "ppword list: there is no section 'paramters'; did you mean 'parameters'?\n" + usage,
        )
        self.write("broken", "*START_FORMAT\n%.1f\n*END\n")
        broken = self.run_program("list", "broken", "parameters")
        self.assertEqual(broken.returncode, 1)
        self.assertIn("broken:1:15: error ERR_5007", broken.stderr)

    def test_schema_of_jobs_has_the_meanings(self):
        with open(os.path.join(program.SOURCE, "docs", "job.schema.json"), encoding="ascii") as file:
            schema = json.load(file)["$defs"]["parameters"]["properties"]
        listed = self.listed()
        stated = [name for name in listed if listed[name]["job"].endswith("parameters")]
        self.assertEqual(sorted(schema), sorted(stated))
        for name in stated:
            entry = listed[name]
            kind = entry["type"] + (", unit: " + entry["unit"] if entry["unit"] else "")
            self.assertEqual(
                schema[name],
                {"description": f"{entry['meaning']} ({kind})", "$ref": "#/$defs/value"},
            )

    def test_job_with_a_misspelt_parameter_is_warned_of(self):
        self.write("job", JOB)
        run = self.run_program("post", "job", "-o", "text")
        self.assertEqual(run.returncode, 0)
        self.assertIn(
            "  WARNING: unknown name: MFG_TOTAL_DEPHT, perhaps MFG_TOTAL_DEPTH (in line 2)\n",
            run.stderr,
        )
        strict = self.run_program("post", "job", "-o", "text", "--strict=misspelt-parameter")
        self.assertEqual(strict.returncode, 1)
        self.assertIn("text: not written: 1 finding is refused\n", strict.stderr)
        report = json.loads(self.run_program("post", "job", "--format", "json").stderr)
        self.assertEqual(
            report["misspelt"],
            [
                {
                    "name": "MFG_TOTAL_DEPHT, perhaps MFG_TOTAL_DEPTH",
                    "count": 1,
                    "firstLine": 2,
                    "firstInstruction": "Drilling.1",
                }
            ],
        )


if __name__ == "__main__":
    program.main()
