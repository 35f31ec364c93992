#!/usr/bin/env python3
"""Posts installed sample programs and counts their straight moves in the text, apart from ppword.

usage: samples_test.py PPWORD
"""

import math
import os
import re
import subprocess
import sys
import tempfile
import unittest

PPWORD = os.path.abspath(sys.argv.pop(1)) if len(sys.argv) > 1 else "ppword"
NCFILES = "/usr/share/linuxcnc/ncfiles/"
IMPELLER = (
    "/usr/share/doc/linuxcnc/examples/sample-configs/sim/gmoccapy/non_trivial_kinematics/"
    "table-rotary-tilting/examples/impeller-7bl-xyzac.ngc"
)
MILLIMETRES = {"CANON_UNITS_MM": 1.0, "CANON_UNITS_INCHES": 25.4, "CANON_UNITS_CM": 10.0}
CALL = re.compile(r"^ *\d+ N[.\d]+ *(USE_LENGTH_UNITS|STRAIGHT_TRAVERSE|STRAIGHT_FEED)\((.*)\)$")


class Move:
    """A straight move: whether it is rapid, its point in millimetres, its rotary words."""

    def __init__(self, rapid, numbers, unit):
        self.rapid = rapid
        self.point = [number * unit for number in numbers[:3]]
        self.words = numbers[3:]
        self.unit = unit


def moves_of(listing):
    moves = []
    unit = None
    with open(listing, encoding="latin-1") as lines:
        for line in lines:
            call = CALL.match(line)
            if not call:
                continue
            if call[1] == "USE_LENGTH_UNITS":
                unit = MILLIMETRES[call[2]]
                continue
            moves.append(
                Move(call[1] == "STRAIGHT_TRAVERSE", [float(n) for n in call[2].split(",")], unit)
            )
    return moves


def statements_of(text):
    """The statements of an APT text, continuation lines joined, without blanks."""
    with open(text, encoding="latin-1") as lines:
        return re.sub(r"\$\n", "", lines.read()).replace(" ", "").splitlines()


def tilted_table_axis(words):
    """The tool axis in the part on table C upon table A, each counterclockwise for plus."""
    a, c = math.radians(words[0]), math.radians(words[2])
    return [math.sin(c) * math.sin(a), math.cos(c) * math.sin(a), math.cos(a)]


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
        run = self.run_in_directory(PPWORD, "post", listing, "-o", "part.apt", *options)
        self.assertEqual(run.returncode, 0, run.stderr)
        return statements_of(self.path("part.apt"))

    def assert_numbers(self, texts, values, place):
        """Each text prints its value, rounded in the text's last decimal."""
        self.assertEqual(len(texts), len(values), place)
        for text, value in zip(texts, values):
            decimals = len(text.partition(".")[2])
            self.assertGreaterEqual(decimals, 4, place)
            self.assertLessEqual(abs(float(text) - value), 0.5 * 10**-decimals + 1e-9, place)

    def assert_moves(self, statements, moves, unit, axis=None):
        """All moves stand in the text in order, RAPID before each traverse, and nothing else."""
        rest = iter(enumerate(statements, start=1))
        if axis:
            self.assertEqual(next(rest)[1], "MULTAX")
        for move in moves:
            number, statement = next(rest)
            if move.rapid:
                self.assertEqual(statement, "RAPID", f"statement {number}")
                number, statement = next(rest)
            word, _, numbers = statement.partition("/")
            self.assertEqual(word, "GOTO", f"statement {number}")
            values = [length / unit for length in move.point]
            if axis:
                values += axis(move.words)
            self.assert_numbers(numbers.split(","), values, f"statement {number}: {statement}")
        self.assertEqual(list(rest), [])

    def check_sample(self, program, count, rapids, *options, unit=None, axis=None):
        listing = self.listing_of(program)
        moves = moves_of(listing)
        self.assertEqual(len(moves), count)
        self.assertEqual(sum(move.rapid for move in moves), rapids)
        self.assert_moves(self.post(listing, *options), moves, unit or moves[0].unit, axis)

    def test_three_axis_surface(self):
        self.check_sample(NCFILES + "3D_Chips.ngc", 4684, 3)

    def test_three_axis_surface_in_inches(self):
        self.check_sample(NCFILES + "3D_Chips.ngc", 4684, 3, "--units", "inch", unit=25.4)

    def test_spiral(self):
        self.check_sample(NCFILES + "spiral.ngc", 804, 3)

    def test_spiral_in_millimetres(self):
        self.check_sample(NCFILES + "spiral.ngc", 804, 3, "--units", "mm", unit=1.0)

    def test_five_axis_impeller(self):
        self.check_sample(
            IMPELLER, 4492, 186, "--rotary", "C:table:Z,A:table:X", axis=tilted_table_axis
        )

    def test_five_axis_impeller_without_rotary_axes_is_refused(self):
        listing = self.listing_of(IMPELLER)
        run = self.run_in_directory(PPWORD, "post", listing, "-o", "part.apt")
        self.assertEqual(run.returncode, 1)
        self.assertIn(
            ":15:60: error: the rotary word A moves, but nothing says what it turns", run.stderr
        )
        self.assertFalse(os.path.exists(self.path("part.apt")))

    def test_lost_arcs_are_reported_and_strictly_refused(self):
        listing = self.listing_of(NCFILES + "arcspiral.ngc")
        moves = moves_of(listing)
        run = self.run_in_directory(PPWORD, "post", listing, "-o", "part.apt")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("WARNING: moves that the text LACKS: ARC_FEED 999 ", run.stderr)
        self.assert_moves(statements_of(self.path("part.apt")), moves, moves[0].unit)
        run = self.run_in_directory(PPWORD, "post", "--strict", listing, "-o", "strict.apt")
        self.assertEqual(run.returncode, 1)
        self.assertFalse(os.path.exists(self.path("strict.apt")))


if __name__ == "__main__":
    unittest.main()
