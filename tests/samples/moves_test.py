#!/usr/bin/env python3
"""Posts the installed NC programs and compares each move of the text with the program's listing.

usage: moves_test.py PPWORD
"""

import collections
import glob
import os
import re
import subprocess
import sys
import tempfile
import unittest

import compare
import motion
import plain
import posting

PPWORD = os.path.abspath(sys.argv.pop(1)) if len(sys.argv) > 1 else "ppword"
NCFILES = "/usr/share/linuxcnc/ncfiles/"
SAMPLES = "/usr/share/doc/linuxcnc/examples/sample-configs/sim/"
FIVE_AXES = SAMPLES + "gmoccapy/non_trivial_kinematics/table-rotary-tilting/examples/"
PUMA = SAMPLES + "axis/vismach/puma/"
# The other installed programs that run alone and move.
OTHERS = [
    SAMPLES + "axis/remap/extend-builtins/nc_files/examples.ngc",
    SAMPLES + "axis/remap/manual-toolchange-with-tool-length-switch/nc_files/tcdemo.ngc",
    SAMPLES + "axis/rose_engine/rcone_demo.ngc",
    SAMPLES + "craftsman/screens/craftsmancnc.ngc",
    FIVE_AXES + "boat-xyzac.ngc",
    FIVE_AXES + "boat-xyzbc.ngc",
    FIVE_AXES + "impeller-7bl-xyzac.ngc",
    PUMA + "puma_cube.ngc",
    PUMA + "puma_seam_weld.ngc",
]
ROTARY = {
    "b-index.ngc": "B:head:-Y",
    "daisy.ngc": "A:table:X",
    "boat-xyzac.ngc": "C:table:Z,A:table:X",
    "boat-xyzbc.ngc": "C:table:Z,B:table:Y",
    "impeller-7bl-xyzac.ngc": "C:table:Z,A:table:X",
    "puma_cube.ngc": "C:head:Z,B:head:Y,A:head:X",
    "puma_seam_weld.ngc": "C:head:Z,B:head:Y,A:head:X",
}
NOT_SAID = "the rotary word {} moves, but nothing says what it turns; "
# Programs that are refused, with the begin of the message.
REFUSED = {
    "cone.ngc": "Bad character 'w' used",
    "nestedcall.ngc": "Unexpected character after O-word",
    "tool-length-probe.ngc": "Start point too close to probe point",
    "puma_cube.ngc": "the coordinate system has rotary offsets or a rotated XY plane "
    "(SET_G5X_OFFSET in line 23), so the tool axis is unknown; ",
}
LEAST_PROGRAMS = 40
LEAST_MOVES = dict(RAPID=2600, FEED=27000, CIRCLE=1900, CYLNDR=170, HELIX=230, CHORDS=4)
ARC_PROGRAMS = [
    *("3dtest", "cds", "comp", "g76", "lathe_pawn", "mmount", "plasmatest", "tort"),
    *("gmoccapy_2_tools_with_cutter_radius_compensation", "useful-subroutines"),
]
SYSTEMS = ["g76", "lathe-g76", "mmount", "systems", "x-trim"]
AT_ONCE = 20
# Arcs in the three planes before and after changes of the unit; a whole turn that begins where
# only rounded places are known is lost.
UNITS = """G20 G17 G90 G40 G64
F10
G0 X1 Y2 Z0.5
G1 Z-0.1
G2 X2 Y1 I0 J-1
G18 G3 X3 Z0.9 I0 K1
G19 G2 Y2 Z-0.1 J0 K-1
G17 G3 X3 Y2 Z-0.35 I0.5 J0.25 P3
G21
F400
G2 X80 Y52 Z-10 I0.7 J4.4
G1 X50 Y20 Z5
G18 G3 X40 Z15 I-10 K0
G19 G2 Y10 Z5 J-10 K0 F250
G17 G2 X40 Y10 I0 J15
G20
G2 I0.5 J0
G1 X2 Y1 F12
G2 I0.5 J0
G0 Z1
M2
"""
# Spirals, flat and rising, in the three planes, as far as rs274 takes them for arcs.
SPIRALS = """G21 G17 G90 G40 G64
F200
G0 X0 Y0 Z0
G1 X100
G3 X0 Y100.05 I-100 J0
G3 X-100.1 Y0 Z3 I0 J-100.05
G2 X-100.05 Y0 I100.1 J0 P2
G18 G2 X0 Y7 Z103 I100.05 K0
G19 G3 Y-92.95 Z3.1 J0 K-100
M2
"""
# A table and a head in three systems, with an arc, inverse times and moves that only turn.
TURNS = """G21
G10 L2 P2 X10 Y20 Z30
G10 L2 P3 X-5 Y7 Z1
F100
G55 G0 X0 Y0 Z50
A30 C20
G56 G0 X1 Y2 Z3 A30 C20
G1 X5
G2 X15 I5 A40 C80
G92 X0 Y0
G1 X3 A0
G93 G1 X4 F2
X4 A20 F3
G94 F50
G1 X6
G54 G0 X0 Y0
G1 A60 F300
G1 X10 F100
M2
"""
PLACES = """G20
G10 L2 P2 X1 Y-2.5 Z3 R30
G0 X0 Y0 Z0
G55 G0 X1 Y1 Z1
G92 X4 Y5 Z-6
F10
G1 X2
G3 X0 I-1
G54 G0 X0 Y0 Z0
M2
"""


def name_of(program):
    return os.path.basename(program)


def options_of(program):
    rotary = ROTARY.get(name_of(program))
    return ("--rotary", rotary) if rotary else ()


class Moves(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        directory = tempfile.TemporaryDirectory()
        cls.addClassCleanup(directory.cleanup)
        cls.shop = posting.Workshop(PPWORD, directory.name)
        cls.programs = sorted(glob.glob(NCFILES + "*.ngc")) + OTHERS

    def check_refused(self, program, report):
        expected = REFUSED.get(name_of(program))
        message = report["diagnostics"][0]["message"]
        self.assertTrue(expected and message.startswith(expected), f"{program}: {message}")

    def test_programs_move_by_move(self):
        posted = posting.side_by_side(
            lambda path: (self.shop.listing_of(path), self.shop.post(path, *options_of(path))),
            self.programs,
        )
        totals, compared = collections.Counter(), 0
        for program, ((listing, message), (text, report)) in zip(self.programs, posted):
            with self.subTest(program):
                if text is None:
                    self.check_refused(program, report)
                    continue
                self.assertNotIn(name_of(program), REFUSED)
                self.assertEqual(message, "")
                rotary = ROTARY.get(name_of(program))
                counts = self.shop.compare(listing, text, report, rotary=rotary)
                totals.update(counts)
                compared += any(counts.values())
        self.assertGreaterEqual(compared, LEAST_PROGRAMS)
        for kind, least in LEAST_MOVES.items():
            self.assertGreaterEqual(totals[kind], least, kind)
        print(f"\n{compared} programs that move, {dict(totals)}", file=sys.stderr)

    def test_programs_with_rotary_words_are_refused_without_rotary_axes(self):
        for program in self.programs:
            rotary = ROTARY.get(name_of(program))
            if rotary and name_of(program) not in REFUSED:
                text, report = self.shop.post(program)
                self.assertIsNone(text, program)
                message = report["diagnostics"][0]["message"]
                self.assertRegex(message, re.escape(NOT_SAID).replace(r"\{\}", "[ABC]"))

    def check_all(self, names, *options, shop=None, **aspects):
        def check(name):
            return (shop or self.shop).assert_same(f"{NCFILES}{name}.ngc", *options, **aspects)

        totals = collections.Counter()
        for counts in posting.side_by_side(check, names):
            totals.update(counts)
        return totals

    def test_helices_as_chords(self):
        totals = self.check_all(ARC_PROGRAMS, "--helices", "chords", chords_only=True)
        self.assertEqual(totals["HELIX"], 0)
        self.assertGreaterEqual(totals["CHORDS"], 200)

    def test_helices_as_coarse_chords(self):
        totals = self.check_all(
            ["mmount"], "--helices", "chords", "--chord", "0.3", chords_only=True, chord=0.3
        )
        self.assertGreater(totals["CHORDS"], 0)

    def test_arcs_and_feed_rates_in_inches(self):
        with tempfile.TemporaryDirectory() as folder:
            shop = posting.Workshop(PPWORD, folder, "IPM,IPR")
            totals = self.check_all(ARC_PROGRAMS, "--units", "inch", unit=25.4, shop=shop)
        self.assertGreater(totals["CYLNDR"], 0)

    def test_arcs_in_millimetres(self):
        totals = self.check_all(ARC_PROGRAMS, "--units", "mm", unit=1.0)
        self.assertGreater(totals["CYLNDR"], 0)

    def test_all_moves_in_the_first_coordinate_system(self):
        totals = self.check_all(SYSTEMS, "--origins", "convert", converts=True)
        self.assertGreaterEqual(totals["RAPID"], 480)

    def test_changes_of_the_unit(self):
        program = self.shop.write("units.ngc", UNITS)
        due = {"RAPID": 2, "FEED": 3, "CIRCLE": 3, "CYLNDR": 4, "HELIX": 2, "CHORDS": 0}
        for options, unit in ((), None), (("--units", "mm"), 1.0), (("--units", "inch"), 25.4):
            self.assertEqual(self.shop.assert_same(program, *options, unit=unit), due)
        options = ("--helices", "chords", "--chord", "0.05")
        due.update(HELIX=0, CHORDS=2)
        counts = self.shop.assert_same(program, *options, chords_only=True, chord=0.05)
        self.assertEqual(counts, due)

    def test_rotary_words_in_several_systems(self):
        program = self.shop.write("turns.ngc", TURNS)
        rotary = "C:table:Z,A:head:-X"
        for options, aspects in (
            ((), {}),
            (("--origins", "convert"), {"converts": True}),
            (("--origins", "convert", "--units", "inch"), {"converts": True, "unit": 25.4}),
        ):
            options = ("--rotary", rotary, *options)
            counts = self.shop.assert_same(program, *options, rotary=rotary, **aspects)
            self.assertEqual((counts["RAPID"], counts["FEED"], counts["CHORDS"]), (4, 7, 1))

    def test_spirals(self):
        program = self.shop.write("spirals.ngc", SPIRALS)
        for options, unit in ((), None), (("--units", "inch"), 25.4):
            counts = self.shop.assert_same(program, *options, unit=unit)
            self.assertEqual((counts["FEED"], counts["CHORDS"]), (1, 5))

    def test_programs_posted_at_once_are_those_posted_alone(self):
        programs = [f"{NCFILES}{name}.ngc" for name in ARC_PROGRAMS[:5]]
        alone = [self.shop.post(program)[0] for program in programs]
        runs = []
        for program in programs * (AT_ONCE // len(programs)):
            output = os.path.join(self.shop.new_folder(), "text")
            command = self.shop.command(program, output)
            runs.append((subprocess.Popen(command, stderr=subprocess.DEVNULL), output))
        self.assertEqual(len(runs), AT_ONCE)
        for number, (run, output) in enumerate(runs):
            self.assertEqual(run.wait(), 0)
            with open(output, encoding="latin-1") as file:
                self.assertEqual(file.read(), alone[number % len(alone)])

    def check_changes(self, moves, lines, number):
        """A line that is missing, there twice, or has another digit before the last one."""
        line = lines[number]
        changes = [[], [line, line]]
        for digit in re.finditer(r"\d(?=\d(,|$))", line):
            other = str((int(digit.group()) + 5) % 10)
            changes.append([line[: digit.start()] + other + line[digit.end() :]])
        for change in changes:
            other = "\n".join(lines[:number] + change + lines[number + 1 :])
            with self.subTest(line=line, change=change), self.assertRaises(AssertionError):
                compare.Comparison(moves, plain.Reader(other)).assert_same()

    def test_comparison_notices_small_changes(self):
        for program in UNITS, PLACES:
            path = self.shop.write("small.ngc", program)
            moves = motion.Motion(self.shop.listing_of(path)[0]).moves
            text = self.shop.post(path)[0]
            compare.Comparison(moves, plain.Reader(text)).assert_same()
            lines = text.replace("$\n", "").splitlines()
            for number, line in enumerate(lines):
                if not line.startswith(("SPINDL", "FINI")):
                    self.check_changes(moves, lines, number)


if __name__ == "__main__":
    unittest.main()
