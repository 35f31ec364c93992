"""What a listing becomes with the options for listings, and the start of its text."""

import program

MACRO = "*START_NC_INSTRUCTION NC_START_MACRO\nPARTNO PART\nUNITS/&MFG_UNIT\n*END\n"
COMMENT = "*START_NC_INSTRUCTION NC_OUTPUT_COMMENT\nMSG/%MFG_OUTPUT_COMMENT\n*END\n"
ORIGIN = "*START_NC_INSTRUCTION NC_ORIGIN\nORIGIN/%MFG_ORIGIN_NUMBER\n*END\n"
WORDS = "*START_MAJOR_WORDS_WITH_TEXT\nMSG,1\n*END\n"


def listing(*calls):
    lines = ("USE_LENGTH_UNITS(CANON_UNITS_MM)", *calls, "FINISH()")
    return "".join(f"{i:5} N..... {call}\n" for i, call in enumerate(lines, 1))


def feed(x, y):
    return f"STRAIGHT_FEED({x}, {y}, 0.0, 0.0, 0.0, 0.0)"


class Listings(program.ProgramTest):
    def posted(self, *arguments):
        run = self.run_program("post", "canon", *arguments)
        self.assertEqual(run.returncode, 0, run.stderr)
        return run.stdout.splitlines()

    def test_start_macro_is_that_of_the_table(self):
        self.write("canon", listing("USE_LENGTH_UNITS(CANON_UNITS_INCHES)", feed(1, 2)))
        self.write("macro", MACRO)
        goto = "GOTO/    1.00000,    2.00000,    0.00000"
        self.assertEqual(self.posted(), [goto])
        self.assertEqual(self.posted("-t", "macro"), ["PARTNO PART", "UNITS/INCHES", goto])
        self.assertEqual(
            self.posted("-t", "macro", "--units", "mm")[:2], ["PARTNO PART", "UNITS/MM"]
        )
        # A document that has loaded the table has it too, one without does not.
        self.run_program("document", "new", "d")
        self.assertEqual(self.posted("-d", "d"), [goto])
        self.run_program("document", "load-table", "d", "macro")
        self.assertEqual(self.posted("-d", "d"), ["PARTNO PART", "UNITS/INCHES", goto])

    def test_comments_are_chosen(self):
        self.write("canon", listing('COMMENT("A")', 'COMMENT("interpreter: B")'))
        self.assertEqual(self.posted(), ["A"])
        self.assertEqual(self.posted("--comments", "program"), ["A"])
        self.assertEqual(self.posted("--comments", "all"), ["A", "interpreter: B"])
        self.assertEqual(self.posted("--comments", "none"), [])

    def test_comment_that_is_a_statement_is_refused(self):
        self.write("canon", listing('COMMENT("FROM/0,0,5")', 'MESSAGE("B")'))
        strict = self.run_program("post", "canon", "--strict", "-o", "text")
        self.check(
            strict,
            1,
            "",
            "canon: 2 elements, 2 lines\n"
            "  WARNING: comments written as statements: 2; use --comments none, or\n"
            "    a table: *START_NC_INSTRUCTION NC_OUTPUT_COMMENT, PPRINT %MFG_OUTPUT_COMMENT\n"
            "  verified: 2 statements, 0 of them the table's own\n"
            "text: not written: 2 findings are refused\n",
        )
        self.assertEqual(self.posted("--strict", "--allow=bare-comment"), ["FROM/0,0,5", "B"])
        self.assertEqual(self.posted("--strict", "--comments", "none"), [])
        # A word with text makes it a comment.
        self.write("statement", COMMENT)
        run = self.run_program("post", "canon", "-t", "statement", "--strict=bare-comment")
        self.assertEqual(run.returncode, 1)
        self.write("comment", WORDS + COMMENT)
        self.assertEqual(
            self.posted("-t", "comment", "--strict=bare-comment"), ["MSG/FROM/0,0,5", "MSG/B"]
        )

    def test_chords_are_reported_and_as_fine_as_asked_for(self):
        arc = "ARC_FEED(0.0, 11.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0)"
        self.write("canon", listing(feed(10, 0), arc))
        run = self.run_program("post", "canon", "--strict")
        self.assertEqual(run.returncode, 0)
        self.assertIn("  NOTE: arcs written as chords: ARC_FEED (in line 3)\n", run.stderr)
        self.assertEqual(len(run.stdout.splitlines()), 20)
        self.assertEqual(
            self.posted("--chord", "1"),
            [
                "GOTO/   10.00000,    0.00000,    0.00000",
                "GOTO/    7.42462,    7.42462,    0.00000",
                "GOTO/    0.00000,   11.00000,    0.00000",
            ],
        )

    def test_helices_are_chosen(self):
        self.write("canon", listing(feed(10, 0), "ARC_FEED(0.0, 10.0, 0.0, 0.0, 1, 3.0, 0, 0, 0)"))
        self.assertTrue(self.posted("--helices", "helix")[1].startswith("HELICAL/"))
        self.assertEqual(
            self.posted("--helices", "chords", "--chord", "2"),
            [
                "GOTO/   10.00000,    0.00000,    0.00000",
                "GOTO/    7.07107,    7.07107,    1.50000",
                "GOTO/    0.00000,   10.00000,    3.00000",
            ],
        )

    def two_systems(self, offsets="10.0, 20.0, 0.0"):
        second = f"SET_G5X_OFFSET(2, {offsets}, 0.0, 0.0, 0.0)"
        self.write("canon", listing(feed(1, 2), second, feed(3, 4)))

    def test_changes_of_the_coordinate_system_are_chosen(self):
        self.two_systems()
        self.write("table", ORIGIN)
        first = "GOTO/    1.00000,    2.00000,    0.00000"
        same = "GOTO/    3.00000,    4.00000,    0.00000"
        converted = [first, "GOTO/   13.00000,   24.00000,    0.00000"]
        lines = [first, "ORIGIN/2", same]
        self.assertEqual(self.posted("-t", "table"), lines)
        self.assertEqual(self.posted("-t", "table", "--origins", "lines", "--strict"), lines)
        self.assertEqual(self.posted("-t", "table", "--origins", "convert"), converted)
        self.assertEqual(self.posted("--origins", "convert", "--strict"), converted)
        # A document that has loaded the table has its line too.
        self.run_program("document", "new", "d")
        refused = self.run_program("post", "canon", "-d", "d", "-o", "text")
        self.assertEqual(refused.returncode, 1)
        self.assertIn("; write NC_ORIGIN in a table, or convert the moves with ", refused.stderr)
        self.assertNotIn("text", self.files())
        self.run_program("document", "load-table", "d", "table")
        self.assertEqual(self.posted("-d", "d"), lines)

    def test_systems_that_are_the_same_are_warned_of(self):
        self.two_systems("0.0, 0.0, 0.0")
        self.write("table", ORIGIN)
        warning = (
            "  WARNING: coordinate systems 1 and 2 have the same offsets, so their moves are\n"
            "    written as in one; are these the machine's offsets?\n"
        )
        for options in ((), ("--origins", "convert")):
            run = self.run_program("post", "canon", *options)
            self.assertEqual(run.returncode, 0)
            self.assertIn(warning, run.stderr)
        named = self.run_program("post", "canon", "-t", "table")
        self.assertNotIn("WARNING", named.stderr)
        self.assertIn("ORIGIN/2\n", named.stdout)

    def test_summary_names_the_system_of_converted_moves(self):
        self.two_systems()
        run = self.run_program("post", "canon", "--origins", "convert", "-o", "text")
        self.check(
            run,
            0,
            "",
            "canon: 2 elements, 2 lines\n"
            "  moves: STRAIGHT_FEED 2\n"
            "  positions in millimetres\n"
            "  positions in the coordinate system of the first move\n"
            "  verified: 2 statements, 0 of them the table's own\n"
            "text: written\n",
        )

    def test_mistakes(self):
        self.write("canon", listing())
        length = "a length from 0.000001 to 1000 in millimetres"
        for option, value, mistake in (
            ("--chord", "0", f"'0' is not {length}"),
            ("--chord", "-1", f"'-1' is not {length}"),
            ("--chord", "1001", f"'1001' is not {length}"),
            ("--chord", "nan", f"'nan' is not {length}"),
            ("--chord", "1mm", f"'1mm' is not {length}"),
            ("--helices", "arcs", "'arcs' is neither helix nor chords"),
            ("--origins", "all", "'all' is neither lines nor convert"),
            ("--comments", "some", "'some' is not all, program or none"),
            ("--units", "cm", "'cm' is neither mm nor inch"),
        ):
            self.check(
                self.run_program("post", "canon", f"{option}={value}"),
                2,
                "",
                f"ppword post: {option}: {mistake}\nTry 'ppword post --help'.\n",
            )

    def test_map_repeats_the_options(self):
        self.write("canon", listing(feed(10, 0), "ARC_FEED(0.0, 11.0, 0.0, 0.0, 1, 0.0, 0, 0, 0)"))
        self.posted("--chord", "1", "-o", "text", "--map", "map")
        run = self.run_program("explain", "--map", "map", "2")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("GOTO/    7.42462,    7.42462,    0.00000", run.stdout)


if __name__ == "__main__":
    program.main()
