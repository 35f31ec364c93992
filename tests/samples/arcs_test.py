#!/usr/bin/env python3
"""Arcs whose numbers were rounded to some decimals: rs274 takes them, and none may be lost.

usage: arcs_test.py PPWORD
"""

import json
import math
import os
import random
import subprocess
import sys
import tempfile
import unittest

PPWORD = os.path.abspath(sys.argv.pop(1)) if len(sys.argv) > 1 else "ppword"
ARCS = 2000
SEED = int(os.environ.get("PPWORD_TEST_SEED") or random.randrange(2**32))


def program(unit, decimals, chance):
    """Arcs in any direction; each begins where a line ends."""
    scale = 1.0 if unit == "G20" else 25.4
    lines = [unit, "G17 G90 G64", "F100", "G0 X0 Y0 Z0"]
    for _ in range(ARCS):
        radius = scale * chance.uniform(0.05, 4.0)
        begin, angle = chance.uniform(0, 2 * math.pi), chance.uniform(0.1, 6.0)
        center = (scale * chance.uniform(-9, 9), scale * chance.uniform(-9, 9))
        sense = chance.choice((1, -1))

        def point(at):
            return [
                f"{c + radius * f(at):.{decimals}f}" for c, f in zip(center, (math.cos, math.sin))
            ]

        start, end = point(begin), point(begin + sense * angle)
        offset = [f"{c - float(s):.{decimals}f}" for c, s in zip(center, start)]
        word = "G3" if sense > 0 else "G2"
        lines.append(f"G1 X{start[0]} Y{start[1]}")
        lines.append(f"{word} X{end[0]} Y{end[1]} I{offset[0]} J{offset[1]}")
    return "\n".join(lines + ["M2", ""])


class Arcs(unittest.TestCase):
    def check(self, unit, decimals):
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "part.ngc"), "w", encoding="ascii") as file:
                file.write(program(unit, decimals, random.Random(SEED)))
            listed = subprocess.run(
                ["rs274", "-g", "part.ngc", "part.canon"],
                cwd=folder,
                env={**os.environ, "HOME": folder},
                capture_output=True,
                check=False,
            )
            self.assertEqual(listed.returncode, 0, listed.stderr)
            posted = subprocess.run(
                [PPWORD, "post", "part.canon", "-o", "text", "--strict", "--format", "json"],
                cwd=folder,
                capture_output=True,
                text=True,
                check=False,
            )
            self.assertEqual(posted.returncode, 0, f"seed {SEED}\n{posted.stderr}")
            calls = json.loads(posted.stderr)["calls"]
            fates = {call["fate"]: call["count"] for call in calls if call["name"] == "ARC_FEED"}
            self.assertEqual(fates, {"move": ARCS}, f"seed {SEED}")

    def test_inches_with_four_decimals(self):
        self.check("G20", 4)

    def test_inches_with_five_decimals(self):
        self.check("G20", 5)

    def test_millimetres_with_three_decimals(self):
        self.check("G21", 3)

    def test_millimetres_with_four_decimals(self):
        self.check("G21", 4)


if __name__ == "__main__":
    unittest.main()
