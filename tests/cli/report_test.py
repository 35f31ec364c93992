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
    "*START_NC_INSTRUCTION NC_GOTO\nGOTO/%MFG_XPOINT\n*END\n"
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
        self.assertEqual((done.returncode, done.stdout), (0, "GOTO/1.0\nGOTO/4.0\n"))
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
            "  instructions: NC_GOTO 2\n"
            "  WARNING: 4 entries of the table were not loaded; -v shows which\n"
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
