#!/usr/bin/env python3
"""Posts installed sample programs and compares the text with the listing, apart from ppword.

usage: samples_test.py PPWORD TABLE
"""

import collections
import math
import os
import re
import subprocess
import sys
import tempfile
import unittest

import listing as canonical

TABLE = os.path.abspath(sys.argv.pop(2)) if len(sys.argv) > 2 else "mill.pptable"
PPWORD = os.path.abspath(sys.argv.pop(1)) if len(sys.argv) > 1 else "ppword"
NCFILES = "/usr/share/linuxcnc/ncfiles/"
KINEMATICS = (
    "/usr/share/doc/linuxcnc/examples/sample-configs/sim/gmoccapy/non_trivial_kinematics/"
    "table-rotary-tilting/examples/"
)
IMPELLER = KINEMATICS + "impeller-7bl-xyzac.ngc"
BOAT = KINEMATICS + "boat-xyzbc.ngc"
CRAFTSMAN = "/usr/share/doc/linuxcnc/examples/sample-configs/sim/craftsman/screens/craftsmancnc.ngc"
# Decimals that numbers have at least, by the word of their statement.
DECIMALS = {"GOTO": 4, "FEDRAT": 4, "SPINDL": 1, "DELAY": 3, "LOADTL": 0}


def axis_on_tables_c_a(words):
    """The tool axis in the part on table C upon table A, each counterclockwise for plus."""
    a, c = math.radians(words[0]), math.radians(words[2])
    return [math.sin(c) * math.sin(a), math.cos(c) * math.sin(a), math.cos(a)]


def axis_on_tables_c_b(words):
    """The same on table C upon table B."""
    b, c = math.radians(words[1]), math.radians(words[2])
    return [-math.cos(c) * math.sin(b), math.sin(c) * math.sin(b), math.cos(b)]


class Samples(unittest.TestCase):
    def setUp(self):
        self.directory = tempfile.TemporaryDirectory()
        self.addCleanup(self.directory.cleanup)

    def path(self, name):
        return os.path.join(self.directory.name, name)

    def run_in_directory(self, *command):
        return subprocess.run(
            command, cwd=self.directory.name, capture_output=True, text=True, check=False
        )

    def listing_of(self, program):
        self.assertTrue(os.path.isfile(program), program + " is not installed")
        run = self.run_in_directory("rs274", "-g", program, "part.canon")
        self.assertEqual(run.returncode, 0, run.stderr)
        return self.path("part.canon")

    def post(self, listing, *options):
        """Posts a listing; gives the statements."""
        run = self.run_in_directory(
            PPWORD, "post", listing, "-t", TABLE, "-o", "part.apt", *options
        )
        self.assertEqual(run.returncode, 0, run.stderr)
        return canonical.statements_of(self.path("part.apt"))

    def assert_value(self, text, value, decimals, place):
        """The text is the word, or prints the number, rounded in the text's last decimal."""
        if isinstance(value, str):
            self.assertEqual(text, value, place)
            return
        printed = len(text.partition(".")[2])
        self.assertGreaterEqual(printed, decimals, place)
        self.assertLessEqual(abs(float(text) - value), 0.5 * 10**-printed + 1e-9, place)

    def assert_text(self, rest, first, value, place):
        """A text stands in one statement, or in several that follow each other."""
        text = first
        while len(text) < len(value):
            number, (word, values) = next(rest)
            self.assertEqual(word, "PPRINT", f"statement {number}")
            text += values[0]
        self.assertEqual(text, value, place)

    def assert_arc(self, rest, start, end, center, sense):
        """The arc stands in pieces that follow each other, each less than half a turn."""

        def angle(point):
            return math.atan2(point[1] - center[1], point[0] - center[0])

        def swept(first, last):
            return (sense * (angle(last) - angle(first)) - 1e-9) % math.tau + 1e-9

        radius = math.dist(start[:2], center)
        at, total = start, 0.0
        while total < swept(start, end) - 1e-4:
            number, (word, _) = next(rest)
            place = f"statement {number}"
            self.assertEqual(word, "AUTOPS", place)
            word, tangent = next(rest)[1]
            self.assertEqual(word, "INDIRV", place)
            word, values = next(rest)[1]
            self.assertEqual(word, "TLON,GOFWD", place)
            found = [float(text) for text in re.findall(r"-?\d+\.\d+", ",".join(values))]
            self.assertEqual(len(found), 10, place)
            direction = [-sense * math.sin(angle(at)), sense * math.cos(angle(at)), 0.0]
            wanted = [*center, start[2], radius, *center, start[2]]
            for text, value in zip([*map(float, tangent), *found], direction + wanted):
                self.assertAlmostEqual(text, value, delta=2e-4, msg=place)
            self.assertAlmostEqual(math.dist(found[7:9], center), radius, delta=3e-3, msg=place)
            self.assertLess(swept(at, found[7:9]), math.pi, place)
            total += swept(at, found[7:9])
            at = found[7:]
        self.assertAlmostEqual(total, swept(start, end), delta=1e-4)
        for text, value in zip(at, end):
            self.assertAlmostEqual(text, value, delta=1e-5)

    def assert_statements(self, statements, due):
        """All that is due stands in the text in order, and nothing else."""
        rest = iter(enumerate(statements, start=1))
        for word, values in due:
            if word == "ARC":
                self.assert_arc(rest, *values)
                continue
            number, (found, texts) = next(rest)
            place = f"statement {number}: {found}/{texts}"
            self.assertEqual(found, word, place)
            if word == "PPRINT":
                self.assert_text(rest, texts[0], values[0], place)
                continue
            self.assertEqual(len(texts), len(values), place)
            for text, value in zip(texts, values):
                self.assert_value(text, value, DECIMALS.get(word), place)
        self.assertEqual(list(rest), [])

    def check_sample(self, program, counts, *options, unit=None, axis=None):
        """Checks a sample; `counts` has how many statements of some words are due."""
        listing = self.listing_of(program)
        due = canonical.statements_due(listing, unit, axis)
        words = collections.Counter(word for word, _ in due)
        self.assertEqual({word: words[word] for word in counts}, counts)
        self.assert_statements(self.post(listing, *options), due)

    def test_three_axis_surface(self):
        counts = {"GOTO": 4684, "RAPID": 3, "FEDRAT": 4, "LOADTL": 1, "SPINDL": 5, "COOLNT": 2}
        self.check_sample(NCFILES + "3D_Chips.ngc", {**counts, "PPRINT": 6}, "--strict")

    def test_three_axis_surface_in_inches(self):
        self.check_sample(
            NCFILES + "3D_Chips.ngc", {"GOTO": 4684}, "--strict", "--units", "inch", unit=25.4
        )

    def test_spiral(self):
        self.check_sample(NCFILES + "spiral.ngc", {"GOTO": 804, "RAPID": 3}, "--strict")

    def test_spiral_in_millimetres(self):
        self.check_sample(
            NCFILES + "spiral.ngc", {"GOTO": 804}, "--strict", "--units", "mm", unit=1.0
        )

    def test_five_axis_impeller(self):
        self.check_sample(
            IMPELLER, {"GOTO": 4492, "RAPID": 186, "FEDRAT": 4306, "MULTAX": 1},
            "--strict", "--rotary", "C:table:Z,A:table:X", axis=axis_on_tables_c_a,
        )

    def test_five_axis_boat(self):
        self.check_sample(
            BOAT, {"GOTO": 1822, "RAPID": 102, "FEDRAT": 1720, "LOADTL": 1, "COOLNT": 2},
            "--strict", "--rotary", "C:table:Z,B:table:Y", axis=axis_on_tables_c_b,
        )

    def test_flowsnake(self):
        self.check_sample(NCFILES + "flowsnake.ngc", {"GOTO": 3076, "FEDRAT": 1}, "--strict")

    def test_polar_coordinates(self):
        self.check_sample(
            NCFILES + "polar.ngc", {"GOTO": 87, "RAPID": 61, "FEDRAT": 1}, "--strict"
        )

    def test_stops_and_tool_changes(self):
        self.check_sample(
            NCFILES + "skeleton.ngc", {"STOP": 2, "LOADTL": 2, "DELAY": 2, "COOLNT": 3},
            "--strict",
        )

    def test_threads_have_their_pitch_but_not_the_mark_of_the_spindle(self):
        program = NCFILES + "threading.ngc"
        self.check_sample(program, {"GOTO": 483, "DELAY": 4, "FEDRAT": 234})
        run = self.run_in_directory(PPWORD, "post", "part.canon", "-t", TABLE, "-o", "part.apt")
        self.assertIn(
            "WARNING: calls only partly written: START_SPEED_FEED_SYNC (154 times)", run.stderr
        )

    def test_five_axis_impeller_without_rotary_axes_is_refused(self):
        listing = self.listing_of(IMPELLER)
        run = self.run_in_directory(PPWORD, "post", listing, "-o", "part.apt")
        self.assertEqual(run.returncode, 1)
        self.assertIn(
            ":15:60: error: the rotary word A moves, but nothing says what it turns", run.stderr
        )
        self.assertFalse(os.path.exists(self.path("part.apt")))

    def test_spiral_of_arcs(self):
        self.check_sample(NCFILES + "arcspiral.ngc", {"ARC": 999, "GOTO": 6}, "--strict")

    def test_engraving_in_arcs(self):
        self.check_sample(CRAFTSMAN, {"ARC": 604, "GOTO": 91, "LOADTL": 1}, "--strict")

    def test_listings_of_the_examples_are_those_of_their_programs(self):
        for name in ("bracket", "tilted"):
            kept = os.path.join(os.path.dirname(TABLE), name)
            with open(kept + ".canon", encoding="ascii") as file:
                expected = file.read()
            with open(self.listing_of(kept + ".ngc"), encoding="ascii") as file:
                self.assertEqual(file.read(), expected, name)

    def test_lost_moves_are_reported_and_strictly_refused(self):
        with open(self.path("tap.ngc"), "w", encoding="ascii") as file:
            file.write("G21\nS100 M3\nG0 X0 Y0 Z5\nG33.1 Z-5 K1\nM2\n")
        listing = self.listing_of(self.path("tap.ngc"))
        run = self.run_in_directory(PPWORD, "post", listing, "-t", TABLE, "-o", "part.apt")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("WARNING: moves missing from the output: RIGID_TAP (in line 12)\n", run.stderr)
        run = self.run_in_directory(
            PPWORD, "post", "--strict", listing, "-t", TABLE, "-o", "strict.apt"
        )
        self.assertEqual(run.returncode, 1)
        self.assertFalse(os.path.exists(self.path("strict.apt")))


if __name__ == "__main__":
    unittest.main()
