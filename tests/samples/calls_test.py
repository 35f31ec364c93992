#!/usr/bin/env python3
"""Compares the table of calls in the manual of listings with what the program does with each call.

usage: calls_test.py PPWORD docs/listing-format.md post/listing/CallTable.cpp
"""

import json
import os
import re
import subprocess
import sys
import tempfile
import unittest

CODE = os.path.abspath(sys.argv.pop(3)) if len(sys.argv) > 3 else "CallTable.cpp"
MANUAL = os.path.abspath(sys.argv.pop(2)) if len(sys.argv) > 2 else "listing-format.md"
PPWORD = os.path.abspath(sys.argv.pop(1)) if len(sys.argv) > 1 else "ppword"

NAME = re.compile(r"`([A-Z0-9_]+)`")
FEED = "STRAIGHT_FEED(10.0, 0.0, 0.0, 0.0, 0.0, 0.0)"
# What a call needs before it, and after it, so that there is something to write.
BEFORE = {
    "CHANGE_TOOL": ["SELECT_TOOL(1)"],
    "SET_SPINDLE_SPEED": ["START_SPINDLE_CLOCKWISE(0)"],
    "FLOOD_OFF": ["FLOOD_ON()"],
    "MIST_OFF": ["MIST_ON()"],
    "STRAIGHT_FEED": ["SET_FEED_RATE(100.0)"],
    "ARC_FEED": ["SET_FEED_RATE(100.0)"],
}
AFTER = {
    "SELECT_TOOL": ["CHANGE_TOOL(1)"],
    "SET_G5X_OFFSET": [FEED],
    "SET_G92_OFFSET": [FEED],
    "SET_XY_ROTATION": [FEED],
}
ORIGIN = (
    "ORIGIN/%MFG_NCAXIS_X_ORIG,%MFG_NCAXIS_Y_ORIG,%MFG_NCAXIS_Z_ORIG,$\n"
    "%MFG_NCAXIS_X_VECX,%MFG_NCAXIS_Y_VECX\n"
)
ARGUMENTS = {
    "ARC_FEED": "0.0, 10.0, 0.0, 0.0, 1, 0.0, 0.0, 0.0, 0.0",
    "SELECT_PLANE": "CANON_PLANE_XY",
    "USE_LENGTH_UNITS": "CANON_UNITS_MM",
    "SET_SPINDLE_SPEED": "0, 500.0",
    "SET_FEED_MODE": "0, 0",
    "SET_SPINDLE_MODE": "0 0.0",
    "SET_G5X_OFFSET": "2, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0",
    "SET_G92_OFFSET": "1.0, 0.0, 0.0, 0.0, 0.0, 0.0",
    "SET_XY_ROTATION": "30.0",
    "SELECT_TOOL": "1",
}


def rows():
    """The rows of the table: the names of calls, and what becomes of them."""
    with open(MANUAL, encoding="utf-8") as file:
        section = file.read().split("\n## What becomes of a call\n")[1].split("\n## ")[0]
    for row in re.findall(r"^\| (.*?) \| (.*?) \|$", section, re.MULTILINE):
        if NAME.search(row[0]):
            yield NAME.findall(row[0]), row[1]


def rules():
    """The calls that the program knows: their effects and the shapes of their arguments."""
    with open(CODE, encoding="utf-8") as file:
        found = re.findall(r'\{"([A-Z0-9_]+)", (\w+), "(.*?)"\}', file.read())
    return {name: (effect, shape) for name, effect, shape in found}


def argument(letter):
    return {"n": "0.0", "i": "0", "s": '"TEXT"'}[letter]


def call(name, shape):
    if name in ARGUMENTS:
        return f"{name}({ARGUMENTS[name]})"
    shape = "" if shape == "*" else shape
    return f"{name}({', '.join(map(argument, shape))})"


def table():
    """Each instruction of the manual's table writes its name."""
    instructions = {name for _, text in rows() for name in NAME.findall(text)} - {"NC_COOLANT"}
    lines = [
        f"*START_NC_INSTRUCTION {name}\nPPRINT {name}\n{ORIGIN if name == 'NC_ORIGIN' else ''}*END\n"
        for name in sorted(instructions)
    ]
    sequence = "*START_SEQUENCE\nPPRINT NC_COOLANT\n*END\n"
    return "".join(lines) + f"*START_NC_COMMAND NC_COOLANT\n{3 * sequence}*END\n"


class Calls(unittest.TestCase):
    def post(self, calls, folder):
        lines = ["USE_LENGTH_UNITS(CANON_UNITS_MM)", *calls, "FINISH()"]
        with open(os.path.join(folder, "canon"), "w", encoding="ascii") as file:
            file.writelines(f"{n:5} N..... {line}\n" for n, line in enumerate(lines, 1))
        with open(os.path.join(folder, "table"), "w", encoding="ascii") as file:
            file.write(table())
        return subprocess.run(
            [PPWORD, "post", "canon", "-t", "table", "--format", "json"],
            cwd=folder,
            capture_output=True,
            text=True,
            check=False,
        )

    def instructions(self, run):
        return re.findall(r"^PPRINT (NC_\w+)", run.stdout, re.MULTILINE)

    def check_row(self, name, shape, text, folder):
        before = [FEED, *BEFORE.get(name, [])]
        calls = [*before, call(name, shape), *AFTER.get(name, [])]
        run = self.post(calls, folder)
        if text == "refused":
            self.assertEqual(run.returncode, 1, name)
            return
        self.assertEqual(run.returncode, 0, f"{name}: {run.stderr}")
        fates = {each["name"]: each["fate"] for each in json.loads(run.stderr)["calls"]}
        if text.startswith("**moves that are missing"):
            self.assertEqual(fates[name], "lostMove")
            return
        is_part = "is missing from the text**: see" in text and name.startswith("START")
        self.assertIn(fates[name], ("lost",) if is_part else ("move", "line", "other"), name)
        without = self.instructions(self.post([*before, *AFTER.get(name, [])], folder))
        written = self.instructions(run)
        named = set(NAME.findall(text.split("; otherwise")[0]))
        if text.startswith("none"):
            self.assertEqual(written, without, name)
        else:
            added = [each for each in written if written.count(each) > without.count(each)]
            self.assertTrue(named.intersection(added), f"{name}: {written}, not {without}")

    def test_every_row_is_what_the_program_does(self):
        known = rules()
        seen = 0
        with tempfile.TemporaryDirectory() as folder:
            for names, text in rows():
                for name in names:
                    self.check_row(name, known[name][1], text, folder)
                    seen += 1
        self.assertGreater(seen, 35)

    def test_other_calls_cause_no_motion(self):
        listed = {name for names, _ in rows() for name in names} | {"FINISH"}
        others = {name: rule for name, rule in rules().items() if name not in listed}
        self.assertEqual({effect for effect, _ in others.values()}, {"NoMove"})
        with tempfile.TemporaryDirectory() as folder:
            run = self.post([FEED, *(call(name, rule[1]) for name, rule in others.items())], folder)
            alone = self.post([FEED], folder)
        fates = {each["name"]: each["fate"] for each in json.loads(run.stderr)["calls"]}
        self.assertEqual({fates[name] for name in others}, {"other"})
        self.assertEqual((run.returncode, run.stdout), (0, alone.stdout))


if __name__ == "__main__":
    unittest.main()
