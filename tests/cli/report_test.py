"""What came from a table and what from the default catalogue; JSON of any bytes."""

import json
import os

import program
from program import JOB

TABLE = (
    "*START_NC_COMMAND NC_MINE\nX\n*START_SEQUENCE\nY\n*END\n"
    "*START_SEQUENCE\n*INSERT NC_LOOP\n*END\n*END\n"
    "*START_NC_COMMAND NC_LOOP\n*INSERT NC_LOOP\n*END\n"
    "*START_NC_COMMAND MINE NC_B\n*END\n"
    "*START_NC_INSTRUCTION NC_SPINDLE_STOP\nSPINDL/OFF\n*END\n"
    "*START_NC_INSTRUCTION NC_GOTO\nGOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n"
    "*START_FORMAT MFG_XPOINT\n%.1f\n*END\n"
    "*START_FORMAT MFG_FEED_UNIT\n%f\n*END\n"
    "*START_LIST MFG_MINE\nA,B\n*END\n"
)
SKIPPED = [
    ("sequence 2 of NC_MINE", "its lines cannot be read"),
    ("command 2 NC_LOOP", "its lines cannot be read"),
    ("command 3", "its name cannot be read"),
    ("command 4 NC_SPINDLE_STOP", "this command is never loaded"),
    ("format 2 MFG_FEED_UNIT", "the document's type with this name has no such value"),
]


def document(text):
    return json.loads(text.encode("latin-1"))


class LoadReport(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)
        self.write("table", TABLE)

    def test_text_tells_where_everything_comes_from(self):
        done = self.run_program("post", "-v", "job", "-t", "table")
        self.assertEqual((done.returncode, done.stdout), (0, "GOTO/1.0,    2.00000,    3.00000\nGOTO/4.0,    5.00000,    6.00000\n"))
        expected = (
            "load report:\n"
            "  from the table, new:\n"
            "    NC_MINE, MFG_MINE\n"
            "  from the table, replacing the default catalogue's:\n"
            "    NC_GOTO, MFG_XPOINT\n"
            "  skipped:\n"
            + "".join(f"    {entry}: {reason}\n" for entry, reason in SKIPPED)
            + "  from the default catalogue:\n"
            "    NC_CYCLE_LOCATION_POINT_V1, "
        )
        self.assertEqual(done.stderr[: len(expected)], expected)
        ending = (
            ", MFG_FEED_TYPE, MFG_FEED_RATIO, MFG_OUTPUT_COMMENT\n"
            "job: 2 elements, 2 lines\n"
            "  table: table, given with -t\n"
            "  WARNING: 4 entries of the table were not loaded; -v shows which\n"
            "  instructions:\n"
            "    NC_GOTO  2  first in line 2\n"
            "  not verified\n"
            "standard output: written\n"
        )
        report = done.stderr.replace("\n    MFG_FEED_TYPE", " MFG_FEED_TYPE")
        self.assertEqual(report[-len(ending) :], ending)

    def test_json_tells_the_same(self):
        done = self.run_program("post", "-v", "--format", "json", "job", "-t", "table")
        load = document(done.stderr)["load"]
        self.assertEqual(load["added"], ["NC_MINE", "MFG_MINE"])
        self.assertEqual(load["replaced"], ["NC_GOTO", "MFG_XPOINT"])
        self.assertEqual(
            load["skipped"], [{"entry": entry, "reason": reason} for entry, reason in SKIPPED]
        )
        names = load["fromDefaultCatalogue"]
        self.assertEqual(len(names), 150)
        self.assertIn("MFG_FEED_UNIT", names)
        self.assertNotIn("NC_GOTO", names)
        self.assertNotIn("NC_MINE", names)

    def test_without_table_all_comes_from_the_default_catalogue(self):
        done = self.run_program("post", "-v", "--format", "json", "job")
        load = document(done.stderr)["load"]
        self.assertEqual((load["added"], load["replaced"], load["skipped"]), ([], [], []))
        self.assertEqual(len(load["fromDefaultCatalogue"]), 152)

    def test_entries_that_were_not_loaded_fail_a_strict_run(self):
        done = self.run_program("post", "--strict", "job", "-t", "table", "-o", "apt")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(
            done.stderr.endswith(
                "apt: not written: 4 pieces of the text would be missing\n"
            )
        )
        self.assertEqual(self.files(), ["job", "table"])

    def test_command_that_is_never_loaded_is_not_missing(self):
        self.write("table", "*START_NC_COMMAND NC_SPINDLE_STOP\nX\n*END\n")
        self.assertEqual(self.run_program("post", "--strict", "job", "-t", "table").returncode, 0)


JOB_OF_GOTO = (
    '{"job":1,"program":"P","units":"mm"}\n'
    '{"nc":"NC_GOTO","points":[[1,2,3],[4,5,6]]}\n{"end":true}\n'
)


class ShortReport(program.ProgramTest):
    """A run in which everything goes wrong that can."""

    def setUp(self):
        super().setUp()
        own = "*START_NC_COMMAND NC_%s\n%s\n*END\n"
        self.write(
            "table",
            own % ("GOTO", "GOTO/%MFG_XPOINT,%MFG_NOWHERE,%MFG_A)XX,1*A,2+")
            + own % ("RAPID", "R/" + 90 * "9")
            + "*START_FORMAT MFG_XPOINT\nX\n*END\n",
        )
        self.write(
            "listing",
            "    1 N..... USE_LENGTH_UNITS(CANON_UNITS_MM)\n"
            "    2 N..... STRAIGHT_TRAVERSE(2000000000000000.0, 0.0, 9.0, 0.0, 0.0, 0.0)\n"
            "    3 N..... STRAIGHT_FEED(0.0, 0.0, 1.0, 0.0, 0.0, 0.0)\n"
            "    4 N..... NURBS_FEED(5, ...)\n"
            "    5 N..... PROGRAM_STOP()\n"
            "    6 N..... WOBBLE()\n"
            '    7 N..... COMMENT("bare")\n'
            "    8 N..... PROGRAM_END()\n",
        )

    def lines(self, *options):
        done = self.run_program("post", "listing", "-t", "table", *options)
        return done.stderr.splitlines()

    def test_report_has_at_most_ten_lines_of_80_columns(self):
        lines = self.lines()
        self.assertEqual(len(lines), 10, lines)
        for line in lines:
            self.assertLessEqual(len(line), 80, line)
        self.assertEqual(lines[1], "  table: table, given with -t")
        for line in lines[2:8]:
            self.assertTrue(line.startswith("  WARNING: "), line)
        self.assertRegex(lines[7], r"^  WARNING: \d+ more kinds; -v shows them$")
        self.assertEqual(lines[8:], ["  not verified", "standard output: written"])

    def test_verbose_report_has_every_kind_and_name(self):
        text = "\n".join(self.lines("-v"))
        for piece in (
            "  WARNING: moves missing from the output:\n    NURBS_FEED  1  first in line 4\n",
            "  WARNING: calls only partly written:\n    PROGRAM_STOP  1  first in line 5\n",
            "  WARNING: unknown calls, missing from the output:\n    WOBBLE  1  first in line 6\n",
            "  WARNING: operations deleted:\n    2+  2  first in line 2, NC_GOTO\n",
            "  WARNING: values that no machine can mean:\n    points  1  first in line 2, NC_GOTO\n",
            "  calls that need no output:\n    USE_LENGTH_UNITS  1  first in line 1\n",
            "  moves:\n    STRAIGHT_TRAVERSE  1  first in line 2\n",
            "  NOTE: lines wider than 72 columns:\n    NC_RAPID  1  first in line 2\n",
        ):
            self.assertIn(piece, text)

    def test_number_of_what_is_left_out_is_kept(self):
        lines = [
            '{"nc":"NC_RAPID","points":[[1e15,0,0],[1e15,0,0],[1e15,0,0]]}',
            '{"nc":"NC_RAPID","axis":[5,5,5],"feedrate":{"value":-5},"circle":{"radius":0}}',
        ]
        self.write("job", '{"job":1,"program":"P","units":"mm"}\n' + "\n".join(lines) + '\n{"end":true}\n')
        done = self.run_program("post", "--strict", "job")
        self.assertIn(
            "  WARNING: values that no machine can mean: points (3 times), and 3 more\n", done.stderr
        )
        self.assertIn("standard output: not written: 6 findings are refused\n", done.stderr)

    def test_long_name_is_cut_and_the_rest_counted(self):
        name = "MFG_" + 60 * "\u00dc"
        syntax = f"X/%{name},%{name}Y,%{name}Z"
        with open(os.path.join(self.folder, "table"), "w", encoding="utf-8") as file:
            file.write(f"*START_NC_COMMAND NC_GOTO\n{syntax[:70]}\n%MFG_Q,%MFG_R\n*END\n")
        self.write("job", JOB_OF_GOTO)
        line = self.run_program("post", "job", "-t", "table").stderr.splitlines()[2]
        self.assertRegex(line, r"\.\.\., and \d more$")
        self.assertLessEqual(len(line.encode("latin-1").decode("utf-8")), 80)

    def test_deleted_operation_is_apart_from_its_count(self):
        self.write("job", JOB_OF_GOTO)
        self.write("table", "*START_NC_COMMAND NC_GOTO\nX/25.3*\n*END\n")
        done = self.run_program("post", "job", "-t", "table")
        self.assertIn(
            "  WARNING: operations deleted: 25.3* (2 times, first in line 2, NC_GOTO)\n", done.stderr
        )


class BoundedList(program.ProgramTest):
    def test_lines_inserted_many_times_are_shown_to_a_bound(self):
        insert = "*START_NC_COMMAND NC_%s\n*INSERT NC_%s\n*INSERT NC_%s\n*END\n"
        table = "".join(
            f"*START_NC_COMMAND NC_USER{user}\n*INSERT NC_0\n*END\n" for user in range(1, 21)
        )
        table += "".join(insert % (half, half + 1, half + 1) for half in range(16))
        self.write("table", table + "*START_NC_COMMAND NC_16\nX\n*END\n")
        done = self.run_program("list", "--format", "json", "table", "commands")
        commands = {entry["name"]: entry["lines"] for entry in document(done.stdout)["commands"]}
        self.assertEqual(len(commands), 37)
        self.assertEqual(len(commands["NC_USER16"]), 65536)
        self.assertIsNone(commands["NC_USER17"])
        self.assertIsNone(commands["NC_16"])


class Json(program.ProgramTest):
    def bytes_of(self, text):
        return text["latin1"].encode("latin-1") if isinstance(text, dict) else text.encode()

    def test_every_byte_survives(self):
        syntaxes = [b"A" + bytes([byte]) + b"B" for byte in range(256)]
        syntaxes = [syntax for syntax in syntaxes if syntax.split() == [syntax]]
        self.assertEqual(len(syntaxes), 250)
        self.write("table", b"*START_SYNTAXES\n" + b"\n".join(syntaxes) + b"\n*END\n")
        done = self.run_program("list", "--format", "json", "table", "syntaxes")
        texts = document(done.stdout)["syntaxes"]
        self.assertEqual([self.bytes_of(text) for text in texts], syntaxes)

    def test_name_of_a_file_survives(self):
        name = b"t\xfc\n.pptable"
        self.write(os.fsdecode(name), program.TABLE)
        done = self.run_program("check", "--format", "json", name)
        (table,) = document(done.stdout)["tables"]
        self.assertEqual(self.bytes_of(table["file"]), name)

    def test_every_command_gives_one_document(self):
        self.write("table", program.TABLE)
        self.write("bad", "*END\n")
        self.write("job", JOB)
        for arguments in (
            ["check", "table", "bad", "absent"],
            ["list", "table"],
            ["list", "bad"],
            ["list", "absent"],
            ["list", "--default"],
            ["list", "--default", "words"],
        ):
            done = self.run_program(*arguments, "--format", "json")
            self.assertEqual(done.stderr, "")
            self.assertIsInstance(document(done.stdout), dict, arguments)
        for arguments in (["job"], ["absent"], ["job", "-t", "bad"], ["job", "-t", "table"]):
            done = self.run_program("post", *arguments, "-o", "apt", "--format", "json")
            self.assertEqual(done.stdout, "")
            self.assertIsInstance(document(done.stderr), dict, arguments)

    def test_default_catalogue_is_whole(self):
        done = self.run_program("list", "--default", "--format", "json")
        catalogue = document(done.stdout)
        counts = {name: len(entries) for name, entries in catalogue.items()}
        self.assertEqual(
            counts,
            {
                "words": 0,
                "syntaxes": 0,
                "commands": 80,
                "sequences": 0,
                "lists": 8,
                "formats": 61,
                "otherParameters": 3,
            },
        )


if __name__ == "__main__":
    program.main()
