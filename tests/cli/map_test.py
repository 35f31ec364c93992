"""Maps of texts: which element and which line of the table each line comes from."""

import json
import os
import re
import shutil

import program

HEADER = '{"job":1,"program":"P","units":"mm"}\n'
END = '{"end":true}\n'
JOB = (
    HEADER
    + '{"nc":"NC_OUTER"}\n'
    + '{"nc":"NC_GOTO","points":[[1,2,3],[4,5,6]]}\n'
    + '{"nc":"NC_GOTO","sequence":2,"points":[[7,8,9]]}\n'
    + '{"nc":"NC_RAPID"}\n'
    + END
)
# Inserts in inserts, text words, a skipped token, two sequences, two lines that go on.
TABLE = """*START_NC_COMMAND NC_INNER
INNER/1,
2
*END
*START_NC_COMMAND NC_MIDDLE
MIDDLE/1 MIDDLE/2
*INSERT NC_INNER
/SKIPPED
PPRINT  THE   END
*END
*START_NC_INSTRUCTION NC_OUTER
*INSERT NC_MIDDLE
OUTER/1
*INSERT NC_INNER
*END
*START_NC_INSTRUCTION NC_GOTO
*START_SEQUENCE
GOTO/%MFG_XPOINT
*END
*START_SEQUENCE
  GODLTA/%MFG_XPOINT
*INSERT NC_INNER
*END
*END
"""
AGAIN = "; write text and map again with 'ppword post --map'"
OTHERWISE = ": error: the line is produced in another way now" + AGAIN + "\n"


def record(line, element, instruction, sequence, syntax, place):
    if isinstance(place, tuple):
        place = {"table": "table", "line": place[0], "column": place[1]}
    return {
        "line": line,
        "element": {"file": "job", "line": element[0], "point": element[1], "number": element[2]},
        "instruction": instruction,
        "sequence": sequence,
        "syntax": syntax,
        "origin": place,
    }


class Map(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)
        self.write("table", TABLE)

    def post(self, *arguments):
        done = self.run_program("post", *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done

    def mapped(self, name="map"):
        header, *records = [
            json.loads(line) for line in self.read(name).encode("latin-1").splitlines()
        ]
        return header, records

    def post_all(self):
        self.post("job", "-t", "table", "-o", "text", "--map", "map")

    def explain(self, line, *arguments):
        return self.run_program("explain", "--map", "map", str(line), *arguments)

    def refused(self, message, line=1):
        self.check(self.explain(line), 1, "", message)

    def mistaken(self, message, *arguments):
        text = f"ppword {arguments[0]}: {message}\nTry 'ppword {arguments[0]} --help'.\n"
        self.check(self.run_program(*arguments), 2, "", text)


class Records(Map):
    def test_each_line_has_its_element_and_its_line_of_the_table(self):
        self.post_all()
        self.assertEqual(
            self.read("text").splitlines(),
            [
                "MIDDLE/1",
                "MIDDLE/2",
                "INNER/1,$",
                "2",
                "PPRINT  THE   END",
                "OUTER/1",
                "INNER/1,$",
                "2",
                "GOTO/    1.00000",
                "GOTO/    4.00000",
                "GODLTA/    7.00000",
                "INNER/1,$",
                "2",
                "RAPID",
            ],
        )
        outer, goto = ("NC_OUTER", 1), ("NC_GOTO", 1)
        self.assertEqual(
            self.mapped()[1],
            [
                record(1, (2, 1, 1), *outer, 1, (6, 1)),
                record(2, (2, 1, 1), *outer, 2, (6, 10)),
                record(3, (2, 1, 1), *outer, 3, (2, 1)),
                record(4, (2, 1, 1), *outer, 4, (3, 1)),
                record(5, (2, 1, 1), *outer, 5, (9, 1)),
                record(6, (2, 1, 1), *outer, 6, (13, 1)),
                record(7, (2, 1, 1), *outer, 7, (2, 1)),
                record(8, (2, 1, 1), *outer, 8, (3, 1)),
                record(9, (3, 1, 2), *goto, 1, (18, 1)),
                record(10, (3, 2, 3), *goto, 1, (18, 1)),
                record(11, (4, 1, 4), "NC_GOTO", 2, 1, (21, 3)),
                record(12, (4, 1, 4), "NC_GOTO", 2, 2, (2, 1)),
                record(13, (4, 1, 4), "NC_GOTO", 2, 3, (3, 1)),
                record(14, (5, 1, 5), "NC_RAPID", 1, 1, "catalogue"),
            ],
        )

    def test_header_names_and_marks_the_files(self):
        self.write("job", HEADER + '{"nc":"NC_RAPID"}\n' + END)
        self.write("t", "*START_NC_COMMAND NC_A\nA\n*END\n")
        self.post("job", "-t", "t", "-o", "text", "--map", "map")
        header, _ = self.mapped()
        self.assertEqual(
            {name: header[name] for name in ("map", "lines", "document", "reading")},
            {"map": 1, "lines": 1, "document": None, "reading": {}},
        )
        # Computed by hand with the published constants of FNV-1a.
        for name, file, size in (("text", "text", 6), ("input", "job", 68), ("table", "t", 30)):
            value = 0xCBF29CE484222325
            for byte in self.read(file).encode("latin-1"):
                value = ((value ^ byte) * 0x100000001B3) % 2**64
            found = dict(header[name])
            given = found.pop("given", None)
            self.assertEqual(found, {"file": file, "bytes": size, "digest": f"{value:016x}"})
            self.assertEqual(given, True if name == "table" else None)

    def test_line_feed_in_a_line_makes_two_lines(self):
        # Only a setting can bring one.
        setting = {"env": {**os.environ, "MFG_UNEVALUATED_PPPARAMETER": "A\nB"}}
        self.write("table", "*START_NC_COMMAND NC_A\nPPRINT/%MFG_NONE\n*END\n")
        self.write("job", HEADER + '{"nc":"NC_A"}\n{"nc":"NC_RAPID"}\n' + END)
        arguments = ("post", "job", "-t", "table", "-o", "text", "--map", "map")
        # A reader takes the second line for another statement.
        self.assertEqual(self.run_program(*arguments, **setting).returncode, 1)
        self.assertEqual(self.files(), ["job", "table"])
        arguments += ("--no-verify",)
        self.assertEqual(self.run_program(*arguments, **setting).returncode, 0)
        self.assertEqual(self.read("text"), "PPRINT/A\nB\nRAPID\n")
        lines = [(each["line"], each["syntax"], each["element"]["line"]) for each in self.mapped()[1]]
        self.assertEqual(lines, [(1, 1, 2), (2, 1, 2), (3, 1, 3)])
        shown = self.run_program("explain", "--map", "map", "2", **setting).stdout
        self.assertIn("text:2:1: note: written by NC_A\n  B\n", shown)

    def test_name_used_twice_is_that_of_the_load(self):
        # The last command counts, but further sequences are those of the first one.
        self.write(
            "table",
            "*START_NC_COMMAND NC_A\n*START_SEQUENCE\nA1\n*END\n*START_SEQUENCE\nA2\n*END\n*END\n"
            "*START_NC_COMMAND NC_A\n*START_SEQUENCE\nB1\n*END\n*START_SEQUENCE\nB2\n*END\n*END\n",
        )
        self.write("job", HEADER + '{"nc":"NC_A"}\n{"nc":"NC_A","sequence":2}\n' + END)
        self.post_all()
        self.assertEqual(self.read("text"), "B1\nA2\n")
        self.assertEqual([each["origin"]["line"] for each in self.mapped()[1]], [11, 6])

    def test_line_cut_at_column_80_begins_where_it_was_cut(self):
        start = "CYCLE/" + "1," * 35
        cut = start + "%MFG"
        self.assertEqual(len(cut), 80)
        self.write("table", f"*START_NC_COMMAND NC_A\n{cut}\n_XPOINT,\nLAST\n*END\n")
        self.write("job", HEADER + '{"nc":"NC_A"}\n' + END)
        self.post_all()
        self.assertEqual([each["origin"]["line"] for each in self.mapped()[1]], [2, 3, 4])

    def test_document_and_commands(self):
        for arguments in (("new", "d"), ("load-table", "d", "table"), ("add-command", "d", "NC_GOTO", "2")):
            self.assertEqual(self.run_program("document", *arguments).returncode, 0)
        self.write("job", HEADER.replace('"units"', '"document":"d","units"') + '{"ppCommand":1}\n' + END)
        self.post("job", "-o", "text", "--map", "map")
        header, (first, *_) = self.mapped()
        self.assertEqual((header["document"]["file"], header["document"]["given"]), ("d", False))
        self.assertEqual((first["instruction"], first["sequence"]), ("NC_GOTO", 2))
        self.assertEqual(first["origin"], "document")
        self.assertIn("\nthe line of NC_GOTO is that of the document\n", self.explain(1).stdout)
        self.post("job", "-d", "d", "-t", "table", "-o", "text", "--map", "map")
        header, (first, *_) = self.mapped()
        self.assertEqual(header["document"]["given"], True)
        self.assertEqual(first["origin"], {"table": "table", "line": 21, "column": 3})
        self.assertEqual(self.explain(1).returncode, 0)

    def test_options_of_listings_are_kept(self):
        path = os.path.join(program.EXAMPLES, "tilted.canon")
        axes = "C:table:Z,A:table:X"
        self.post(path, "--rotary", axes, "--units", "inch", "-o", "text", "--map", "map")
        header, records = self.mapped()
        self.assertEqual(header["reading"], {"rotary": axes, "units": "inch"})
        done = self.explain(len(records) // 2)
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_text_is_the_same_with_a_map(self):
        self.post("job", "-t", "table", "-o", "plain")
        self.post_all()
        self.assertEqual(self.read("plain"), self.read("text"))

    def test_names_that_are_not_utf8(self):
        shutil.copy(os.path.join(self.folder, "job"), os.path.join(self.folder.encode(), b"j\xe9b"))
        done = self.run_program("post", b"j\xe9b", "-t", "table", "-o", "text", "--map", "map")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(self.mapped()[0]["input"]["file"], {"latin1": "j\u00e9b"})
        self.assertIn("j\\xe9b:3:1: note: with the values of this element", self.explain(9).stdout)


class Examples(Map):
    def test_every_line_of_every_example_begins_as_its_line_of_the_table(self):
        shutil.copytree(program.EXAMPLES, self.folder, dirs_exist_ok=True)
        for name in sorted(os.listdir(self.folder)):
            if not name.endswith((".canon", ".jsonl")):
                continue
            rotary = ("--rotary", "C:table:Z,A:table:X") if name == "tilted.canon" else ()
            for table in ("mill.pptable", "mill-turn.pptable"):
                self.post(name, "-t", table, "-o", "text", "--map", "map", *rotary)
                self.check_lines(table, name)

    def check_lines(self, table, name):
        text = self.read("text").splitlines()
        rows = self.read(table).splitlines()
        named = set(re.findall(r"^\*START_NC_(?:COMMAND|INSTRUCTION) (NC_\S+)", self.read(table), re.M))
        header, records = self.mapped()
        self.assertEqual((len(records), header["lines"]), (len(text), len(text)))
        for number, (line, found) in enumerate(zip(text, records), 1):
            self.assertEqual(found["line"], number)
            if found["instruction"] not in named:
                self.assertEqual(found["origin"], "catalogue")
                continue
            origin = found["origin"]
            self.assertEqual(origin["table"], table)
            row = rows[origin["line"] - 1][origin["column"] - 1 :]
            word = re.match(r"[^%&(/ $]*", row)[0]
            self.assertEqual(line[: len(word)], word, (name, number, row))

    def test_lines_are_explained_with_the_values_of_their_elements(self):
        shutil.copytree(program.EXAMPLES, self.folder, dirs_exist_ok=True)
        self.post("drilling.job.jsonl", "-t", "mill.pptable", "-o", "text", "--map", "map")
        for number, line in enumerate(self.read("text").splitlines(), 1):
            done = self.explain(number, "--format", "json")
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            shown = json.loads(done.stdout)
            self.assertEqual((shown["file"], shown["line"], shown["text"]), ("text", number, line))
            self.assertEqual([each["output"] for each in shown["lines"]], [line])


class Changes(Map):
    def setUp(self):
        super().setUp()
        self.post_all()

    def change(self, name):
        self.write(name, self.read(name) + "\n")

    def test_changed_files_are_named(self):
        for name, what in (("text", "text"), ("job", "tool path"), ("table", "table")):
            before = self.read(name)
            self.change(name)
            self.refused(f"{name}: error: the {what} has changed since the map was written{AGAIN}\n")
            # Of the same size.
            self.write(name, "X" + before[1:])
            self.refused(f"{name}: error: the {what} has changed since the map was written{AGAIN}\n")
            os.remove(os.path.join(self.folder, name))
            self.refused(f"{name}: error: the {what} of the map cannot be read; its name is looked for from the current folder\n")
            self.write(name, before)
        self.assertEqual(self.explain(1).returncode, 0)

    def test_changed_document_is_named(self):
        self.assertEqual(self.run_program("document", "new", "d").returncode, 0)
        self.post("job", "-d", "d", "-t", "table", "-o", "text", "--map", "map")
        self.assertEqual(self.explain(1).returncode, 0)
        self.assertEqual(self.run_program("document", "add-command", "d", "NC_GOTO").returncode, 0)
        self.refused(f"d: error: the document has changed since the map was written{AGAIN}\n")

    def test_pipe_in_place_of_the_text_is_not_waited_for(self):
        os.remove(os.path.join(self.folder, "text"))
        os.mkfifo(os.path.join(self.folder, "text"))
        self.refused("text: error: the text of the map cannot be read; its name is looked for from the current folder\n")

    def test_other_settings_are_noticed(self):
        self.write("job", HEADER + '{"nc":"NC_A"}\n' + END)
        self.write("table", "*START_NC_COMMAND NC_A\nA/%NONE\n*END\n")
        self.post_all()
        environment = {**os.environ, "MFG_UNEVALUATED_PPPARAMETER": "?"}
        done = self.run_program("explain", "--map", "map", "1", env=environment)
        self.check(done, 1, "", "map:2" + OTHERWISE)

    def test_other_table_of_that_name_is_noticed(self):
        for folder in ("one", "two"):
            os.makedirs(os.path.join(self.folder, folder, "PPTables"))
            self.write(f"{folder}/PPTables/mill", TABLE)
        self.write("job", JOB.replace('"units"', '"resource":{"name":"M","table":"mill"},"units"'))
        one, two = ({**os.environ, "PPWORD_RESOURCE_PATH": os.path.join(self.folder, name)} for name in ("one", "two"))
        done = self.run_program("post", "job", "-o", "text", "--map", "map", env=one)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(self.mapped()[0]["table"]["given"], False)
        done = self.run_program("explain", "--map", "map", "1", env=one)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        done = self.run_program("explain", "--map", "map", "1", env=two)
        self.check(done, 1, "", "map:2" + OTHERWISE)

    def test_line_after_the_last_is_refused(self):
        self.refused("text:15: error: the text has 14 lines\n", 15)

    def test_refusal_is_json_where_asked_for(self):
        done = self.explain(15, "--format", "json")
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        (found,) = json.loads(done.stdout)["diagnostics"]
        self.assertEqual((found["file"], found["line"], found["message"]), ("text", 15, "the text has 14 lines"))


class DamagedMaps(Map):
    def setUp(self):
        super().setUp()
        self.post_all()

    def damaged(self, old, new, message, line=1):
        before = self.read("map")
        self.assertIn(old, before)
        self.write("map", before.replace(old, new, 1))
        self.refused(message, line)
        self.write("map", before)

    def test_what_is_no_map_is_refused(self):
        none = ": error: this is not a line of a map that 'ppword post --map' wrote\n"
        for content in ("GOTO/1\n", "[]\n", "{}\n", "1\n", '"map"\n', "[" * 100000 + "\n", '{"map":1}\n',
                        '{"map":1,"text":5}\n', '{"map":1,"text":{"file":{"latin1":5}}}\n', "\xff\n", "\n"):
            self.write("map", content)
            self.refused("map:1" + none)
        self.write("map", "")
        self.refused("map: error: the map is cut short\n")
        os.remove(os.path.join(self.folder, "map"))
        self.refused("map: error: cannot be opened: No such file or directory\n")

    def test_other_layout_is_refused(self):
        self.damaged(
            '{"map":1', '{"map":2', "map:1: error: the layout of the map is not 1, which this program reads\n"
        )

    def test_records_that_do_not_fit_are_refused(self):
        none = "map:2: error: this is not a line of a map that 'ppword post --map' wrote\n"
        self.damaged('{"line":1,', '{"line":3,', "map:2: error: the lines of the map are out of order\n")
        self.damaged('"number":1', '"number":2', "map:2" + OTHERWISE)
        self.damaged('"number":1', '"number":99', "map:2" + OTHERWISE)
        self.damaged('"number":1', '"number":-1', "map:2" + OTHERWISE)
        self.damaged('"number":1', '"number":"1"', none)
        self.damaged('"number":1', '"number":1e300', none)
        self.damaged('"number":1', '"number":18446744073709551615', "map:2" + OTHERWISE)
        for reading in ('"units":"mm"', '"rotary":"A:table:X"'):
            self.damaged(
                '"reading":{}',
                '"reading":{' + reading + "}",
                "map:1: error: the options of the map do not suit its tool path\n",
            )
        self.damaged(
            '"reading":{}',
            '"reading":{"units":"cm"}',
            "map:1: error: --units: 'cm' is neither mm nor inch\n",
        )
        self.damaged(
            '"reading":{}', '"reading":{"none":"1"}', "map:1: error: --none: there is no option 'none'\n"
        )
        self.damaged('"instruction":"NC_OUTER"', '"instruction":"NC_OTHER"', "map:2" + OTHERWISE)
        self.damaged('"instruction":"NC_OUTER"', '"instruction":null', none)
        self.damaged('"syntax":1', '"syntax":2', "map:2" + OTHERWISE)
        self.damaged('"syntax":1', '"syntax":0', "map:2" + OTHERWISE)
        self.damaged('"syntax":1', '"syntax":99', "map:2" + OTHERWISE)
        self.damaged('"line":6,"column":1', '"line":9999999999,"column":1', "map:2" + OTHERWISE)
        self.damaged('"line":6,"column":1', '"line":6,"column":-5', "map:2" + OTHERWISE)

    def test_map_that_is_cut_short_is_refused(self):
        lines = self.read("map").splitlines(keepends=True)
        self.write("map", "".join(lines[:5]))
        self.refused("map:5: error: the map is cut short\n", 9)
        self.write("map", "".join(lines[:5]) + lines[5][:20])
        self.refused("map:6: error: this is not a line of a map that 'ppword post --map' wrote\n", 5)


class Mistakes(Map):
    def test_map_replaces_nothing_that_is_read_or_written(self):
        for name in ("job", "table"):
            self.mistaken(f"the map would replace the input {name}", "post", "job", "-t", "table", "-o", "text", "--map", name)
        self.mistaken("the map would replace the output text", "post", "job", "-o", "text", "--map", "text")
        self.mistaken("the map would replace the output text", "post", "job", "-o", "text", "--map", "./text")
        self.write("text", "")
        os.link(os.path.join(self.folder, "text"), os.path.join(self.folder, "other"))
        self.mistaken("the map would replace the output text", "post", "job", "-o", "text", "--map", "other")
        self.assertEqual(self.run_program("document", "new", "d").returncode, 0)
        self.mistaken("the map would replace the input d", "post", "job", "-d", "d", "-o", "text", "--map", "d")
        self.write("job", JOB.replace('"units"', '"document":"d","units"'))
        self.mistaken("the map would replace the input d", "post", "job", "-o", "text", "--map", "d")
        self.assertEqual((self.read("table"), self.read("text")), (TABLE, ""))

    def test_map_needs_files(self):
        needs = "--map needs -o FILE, the text that it is about"
        self.mistaken(needs, "post", "job", "--map", "map")
        self.mistaken(needs, "post", "job", "-o", "-", "--map", "map")
        self.mistaken("--map needs a file, not the standard output", "post", "job", "-o", "text", "--map", "-")
        again = "--map needs a file as JOB: explain --map reads it again"
        self.mistaken(again, "post", "-", "-o", "text", "--map", "map")
        os.mkfifo(os.path.join(self.folder, "pipe"))
        self.mistaken(again, "post", "pipe", "-o", "text", "--map", "map")
        self.mistaken(again, "post", "/dev/stdin", "-o", "text", "--map", "map")
        self.mistaken(
            "--map needs a file as output: explain --map reads it again",
            *("post", "job", "-o", "/dev/null", "--map", "map"),
        )
        self.assertEqual(self.files(), ["job", "pipe", "table"])

    def test_line_is_checked(self):
        for text in ("x", "0", "-1", "1.5", "99999999999999999999"):
            self.mistaken(f"LINE is a whole number from 1, not '{text}'", "explain", "--map", "map", "--", text)
        self.mistaken("LINE is required: which line of the text to explain", "explain", "--map", "map")

    def test_map_names_everything(self):
        message = "--map takes only LINE: the map names the rest"
        for more in (("NC_GOTO",), ("-t", "table"), ("-d", "d"), ("--set", "A=1"), ("--syntax", "A"),
                     ("--sequence", "1"), ("--units", "mm"), ("--rotary", "A:table:X"), ("--job", "job:2")):
            self.mistaken(message, "explain", "--map", "map", "1", *more)


class Writing(Map):
    def test_refused_run_writes_neither(self):
        self.write("job", JOB.replace("NC_RAPID", "NC_REAMING"))
        done = self.run_program("post", "job", "-t", "table", "-o", "text", "--map", "map", "--strict")
        self.assertEqual(done.returncode, 1)
        self.write("job", JOB.replace("NC_RAPID", "NC_RAPIT"))
        self.assertEqual(self.run_program("post", "job", "-o", "text", "--map", "map").returncode, 1)
        self.assertEqual(self.files(), ["job", "table"])

    def test_map_without_a_folder_is_not_written_and_the_text_neither(self):
        done = self.run_program("post", "job", "-t", "table", "-o", "text", "--map", "no/map")
        self.check(done, 3, "", "ppword: error: no/map cannot be written: No such file or directory\n")
        self.assertEqual(self.files(), ["job", "table"])

    def test_text_that_cannot_be_written_leaves_no_map(self):
        done = self.run_program("post", "job", "-t", "table", "-o", "no/text", "--map", "map")
        self.check(done, 3, "", "ppword: error: no/text cannot be written: No such file or directory\n")
        self.assertEqual(self.files(), ["job", "table"])

    def test_report_is_that_without_a_map(self):
        plain = self.post("job", "-t", "table", "-o", "text")
        self.assertEqual(self.post("job", "-t", "table", "-o", "text", "--map", "map").stderr, plain.stderr)


if __name__ == "__main__":
    program.main()
