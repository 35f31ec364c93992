#!/usr/bin/env python3
"""Random programs in six work offsets: rs274's own G53 says where the machine must be.

`G53 G0 X Y Z` names a point of the machine, which rs274 converts to the program's system. In the
text that point must come out again: by the system of NC_ORIGIN, or with `--origins convert`.

usage: origins_test.py PPWORD
"""

import math
import os
import random
import sys
import tempfile
import unittest

import geometry
import plain
import posting

PPWORD = os.path.abspath(sys.argv.pop(1)) if len(sys.argv) > 1 else "ppword"
SEED = int(os.environ.get("PPWORD_TEST_SEED") or random.randrange(2**32))
GROUPS = 120
# The point of the machine is the sum of the fixture offset, and of the program's point and G92,
# both turned by the rotation. Each has four decimals in the listing: half a digit for the first, a
# digit in each of two axes for the others, which a rotation can bring into one axis. Rotations have
# two decimals here, which are exact.
DIGIT = 0.0001
TOLERANCE = (0.5 + math.sqrt(2)) * DIGIT
# The six decimals of the text, in inches, of a point and of its origin.
PRINTED = 0.00005
# The plane's word, its axes and the words of the centre in their order, and the third axis.
PLANES = (("G17", "XY", "IJ", "Z"), ("G18", "ZX", "KI", "Y"), ("G19", "YZ", "JK", "X"))


class Program:
    """A random NC program; `points` are the points of its G53 moves, in millimetres."""

    def __init__(self, chance, units, first):
        self.chance = chance
        self.points = []
        self.lines = []
        self.unit(units[0])
        self.lines.append("G17 G90 G40 G64 G94 F300")
        self.systems = [geometry.System()] + [self.system(number) for number in range(2, 7)]
        self.lines.append(f"G{53 + first}")
        self.machine_move()
        for _ in range(GROUPS):
            if chance.random() < 0.2:
                self.unit(chance.choice(units))
            self.group()
        self.lines.append("M2\n")

    def unit(self, word):
        self.scale, self.decimals = (25.4, 4) if word == "G20" else (1.0, 3)
        self.lines.append(word)

    def length(self, limit):
        """A random length below a limit in millimetres, exact in the decimals of the unit."""
        return round(self.chance.uniform(-limit, limit) / self.scale, self.decimals)

    def words(self, letters, values):
        return "".join(f" {a}{value:.{self.decimals}f}" for a, value in zip(letters, values))

    def system(self, number):
        fixture = [self.length(400) for _ in "XYZ"]
        rotation = self.chance.choice((0, 90, round(self.chance.uniform(-180, 180), 2)))
        self.lines.append(f"G10 L2 P{number}{self.words('XYZ', fixture)} R{rotation}")
        return geometry.System(number, [self.scale * a for a in fixture], rotation=rotation)

    def machine_move(self):
        point = [self.length(300) for _ in "XYZ"]
        self.lines.append("G53 G0" + self.words("XYZ", point))
        self.points.append([self.scale * length for length in point])

    def group(self):
        """Perhaps a change of the system, then a point of the machine, a line and an arc."""
        chance = self.chance
        number = chance.randint(1, 6)
        if chance.random() < 0.6:
            self.lines.append(f"G{53 + number}")
        if chance.random() < 0.2:
            self.system(number)
        if chance.random() < 0.4:
            shift = "G92" + self.words("XYZ", [self.length(200) for _ in "XYZ"])
            self.lines.append(chance.choice((shift, "G92.1", "G92.2", "G92.3")))
        self.machine_move()
        start = [self.length(200) for _ in "XYZ"]
        self.lines.append("G1" + self.words("XYZ", start))
        self.arc(dict(zip("XYZ", start)))

    def arc(self, start):
        """A quarter, a half, three quarters or a whole of a turn or more; perhaps it rises."""
        word, axes, centers, third = self.chance.choice(PLANES)
        radius = self.length(50) or 1.0
        first, second = start[axes[0]] + radius, start[axes[1]] + radius
        ends = ((first, second), (first + radius, start[axes[1]]), None)
        end = self.chance.choice(ends)
        line = word + self.chance.choice((" G2", " G3"))
        if end:
            line += self.words(axes, end)
        if self.chance.random() < 0.3:
            line += self.words(third, [self.length(100)])
        line += self.words(centers, (radius, 0.0))
        self.lines.append(line + self.chance.choice(("", " P1", " P3")))


def machine_point(origin, point):
    """The point of the machine that a text says in the system of its ORIGIN."""
    axes = origin.x_axis, origin.y_axis, [0.0, 0.0, 1.0]
    result = origin.point
    for axis, length in zip(axes, point):
        result = geometry.add(result, axis, length)
    return result


class Origins(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.shop = posting.Workshop(PPWORD, directory.name)

    def check_points(self, found, due, digit):
        self.assertEqual(len(found), len(due))
        for number, (point, wanted) in enumerate(zip(found, due)):
            off = max(abs(a - b) for a, b in zip(point, wanted))
            self.assertLess(off, digit * TOLERANCE + PRINTED, f"seed {SEED}, G53 {number}")

    def check(self, units, first=1):
        program = Program(random.Random(SEED), units, first)
        path = self.shop.write("part.ngc", "\n".join(program.lines))
        unit = 25.4 if units[0] == "G20" else 1.0
        digit = 25.4 if "G20" in units else 1.0
        listing, message = self.shop.listing_of(path)
        self.assertEqual(message, "", f"seed {SEED}")
        self.check_lines(path, listing, program, unit, digit)
        self.check_converted(path, listing, program, first, digit)

    def post(self, path, listing, *options, **aspects):
        """Posts and compares move by move; returns the motions of the G53 moves."""
        text, report = self.shop.post(path, *options)
        self.assertIsNotNone(text, f"seed {SEED}: {report.get('diagnostics')}")
        try:
            counts = self.shop.compare(listing, text, report, **aspects)
        except AssertionError as error:
            raise AssertionError(f"seed {SEED}, {options}: {error}") from error
        arcs = sum(counts[kind] for kind in ("CIRCLE", "CYLNDR", "HELIX", "CHORDS"))
        self.assertEqual((counts["FEED"], arcs), (GROUPS, GROUPS), f"seed {SEED}")
        return [one for one in plain.Reader(text).motions if one.is_rapid]

    def check_lines(self, path, listing, program, unit, digit):
        rapid = self.post(path, listing)
        found = [machine_point(one.origin, one.values) for one in rapid]
        self.check_points([[unit * a for a in point] for point in found], program.points, digit)

    def check_converted(self, path, listing, program, first, digit):
        """In the first system; its rotation can bring a difference of two axes into one."""
        system = program.systems[first - 1]
        for helices in ("helix", "chords"):
            options = ("--origins", "convert", "--units", "mm", "--helices", helices)
            aspects = {"unit": 1.0, "converts": True, "chords_only": helices == "chords"}
            rapid = self.post(path, listing, *options, **aspects)
            found = [system.to_machine(one.values) for one in rapid]
            self.check_points(found, program.points, digit * math.sqrt(2))

    def test_millimetres(self):
        self.check(["G21"])

    def test_inches(self):
        self.check(["G20"])

    def test_millimetres_and_inches(self):
        self.check(["G21", "G20"])

    def test_inches_and_millimetres(self):
        self.check(["G20", "G21"])

    def test_first_system_is_another_one(self):
        self.check(["G21"], first=3)

    def test_rotations_are_about_the_axis_z(self):
        """A point that was worked out by hand: a quarter turn about 10, 20, 30."""
        program = "G21\nG54 G0 X0 Y0 Z0\nG10 L2 P2 X10 Y20 Z30 R90\nG55 G0 X1 Y2 Z3\nM2\n"
        path = self.shop.write("turn.ngc", program)
        text, _ = self.shop.post(path, "--origins", "convert")
        self.assertEqual(plain.Reader(text).motions[-1].values, [8.0, 21.0, 33.0])
        text, _ = self.shop.post(path)
        last = plain.Reader(text).motions[-1]
        self.assertEqual(last.values, [1.0, 2.0, 3.0])
        self.assertEqual(last.origin, (2, [10, 20, 30], [0, 1, 0], [-1, 0, 0]))


if __name__ == "__main__":
    unittest.main()
