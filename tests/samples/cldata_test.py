#!/usr/bin/env python3
"""The example table for readers of CL data: its text, and the arcs in it read as such a reader does.

usage: cldata_test.py PPWORD EXAMPLES
"""

import math
import os
import subprocess
import sys
import tempfile
import unittest

EXAMPLES = os.path.abspath(sys.argv.pop(2)) if len(sys.argv) > 2 else "examples"
PPWORD = os.path.abspath(sys.argv.pop(1)) if len(sys.argv) > 1 else "ppword"
# The arcs of rim.ngc: centre, the normal from which they are counterclockwise, swept degrees.
ARCS = [
    ((0, 0, -1), (0, 0, 1), 90),
    ((0, 20, -1), (0, 0, -1), 90),
    ((-5, 20, -1), (0, 1, 0), 360),
]


def difference(left, right):
    return [a - b for a, b in zip(left, right)]


def dot(left, right):
    return sum(a * b for a, b in zip(left, right))


def cross(a, b):
    return [
        a[1] * b[2] - a[2] * b[1],
        a[2] * b[0] - a[0] * b[2],
        a[0] * b[1] - a[1] * b[0],
    ]


def statements(text):
    """The statements with their numbers; a "$" goes on in the next line."""
    joined = text.replace("$\n", "")
    for line in joined.splitlines():
        word, _, values = line.partition("/")
        if word in ("GOTO", "CIRCLE"):
            yield word, [float(value) for value in values.split(",")]


class CLData(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            output = os.path.join(folder, "rim.apt")
            run = subprocess.run(
                [PPWORD, "post", "rim.ngc", "-t", "cldata.pptable", "--tools", "rim.tools"]
                + ["--helices", "chords", "--chord", "0.5", "--strict", "-o", output],
                cwd=EXAMPLES,
                capture_output=True,
                text=True,
                check=False,
            )
            assert run.returncode == 0, run.stderr
            with open(output, encoding="ascii") as file:
                cls.text = file.read()

    def test_text_is_the_expected_one(self):
        with open(os.path.join(EXAMPLES, "expected", "rim.apt"), encoding="ascii") as file:
            self.assertEqual(self.text, file.read())

    def test_arcs_are_those_of_the_program(self):
        point, circle, swept = None, None, []
        for word, values in statements(self.text):
            if word == "CIRCLE":
                circle = values
                continue
            if circle:
                center, normal = circle[:3], circle[3:]
                begin, end = difference(point, center), difference(values, center)
                self.assertAlmostEqual(math.hypot(*begin), math.hypot(*end), places=3)
                angle = math.degrees(math.atan2(dot(cross(begin, end), normal), dot(begin, end)))
                swept.append((tuple(center), tuple(normal), angle % 360))
            point, circle = values, None
        arcs = {}
        for center, normal, angle in swept:
            self.assertLess(angle, 180)
            arcs[center, normal] = arcs.get((center, normal), 0) + angle
        self.assertEqual(len(arcs), len(ARCS))
        for center, normal, angle in ARCS:
            self.assertAlmostEqual(arcs[tuple(map(float, center)), tuple(map(float, normal))], angle, places=2)

    def test_helix_is_two_turns_of_chords(self):
        points = [values for word, values in statements(self.text) if word == "GOTO"]
        begin = next(i for i, p in enumerate(points) if -1.2 < p[2] < -1.0)
        helix = points[begin - 1 : -1]
        self.assertEqual(helix[-1], [-10, 20, -3])
        for place, point in enumerate(helix):
            share = place / (len(helix) - 1)
            angle = math.pi + 4 * math.pi * share
            due = [-5 + 5 * math.cos(angle), 20 + 5 * math.sin(angle), -1 - 2 * share]
            for value, number in zip(point, due):
                self.assertAlmostEqual(value, number, delta=0.00006)
        # The middle of a chord is nowhere further from the helix than the option says.
        half = math.pi * 4 / (len(helix) - 1) / 2
        self.assertLessEqual(5 * (1 - math.cos(half)), 0.5)


if __name__ == "__main__":
    unittest.main()
