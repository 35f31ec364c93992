#!/usr/bin/env python3
"""Lists the installed sample programs with ppword and with rs274 itself, and compares the calls.

A text that is posted from a listing is read back and compared with it.

usage: programs_test.py PPWORD
"""

import glob
import os
import re
import subprocess
import sys
import tempfile
import unittest

EXAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "examples")
PPWORD = os.path.abspath(sys.argv.pop(1)) if len(sys.argv) > 1 else "ppword"
NCFILES = "/usr/share/linuxcnc/ncfiles/"
# These have neither M2 nor percent signs: rs274 itself refuses them.
WITHOUT_END = ("increment.ngc", "probe-hole.ngc")


def calls_of(listing):
    """The calls without running numbers and block numbers."""
    with open(listing, encoding="latin-1") as lines:
        return [re.sub(r"^ *\d+ N[\d.]+ *", "", line) for line in lines]


class Programs(unittest.TestCase):
    def list_alone(self, path, folder, tools):
        listing = os.path.join(folder, "alone")
        done = subprocess.run(
            ["rs274", "-t", tools, "-g", path, listing],
            cwd=NCFILES,
            env={**os.environ, "HOME": folder},
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.PIPE,
            check=False,
        )
        return done, listing

    def verify(self, listing, tools):
        """True when a text could be posted; it must be what the listing says."""
        texts = 0
        for table, *options in (("mill",), ("cldata", "--helices", "chords")):
            text = os.path.join(os.path.dirname(listing), "text")
            options += ["-t", os.path.join(EXAMPLES, table + ".pptable"), "--tools", tools]
            posted = subprocess.run(
                [PPWORD, "post", listing, "-o", text, *options], capture_output=True, check=False
            )
            if posted.returncode != 0:
                # A text that was written is what the listing says.
                self.assertNotIn(b"error difference", posted.stderr, listing)
                continue
            read = subprocess.run(
                [PPWORD, "verify", text, "--against", listing, *options]
                + ["--allow=empty-argument", "--strict=not-verified,other-point"],
                capture_output=True,
                check=False,
            )
            self.assertEqual(read.returncode, 0, read.stderr.decode("latin-1"))
            texts += 1
        return texts

    def test_listings_are_those_of_the_interpreter(self):
        same = verified = 0
        with tempfile.TemporaryDirectory() as folder:
            tools = os.path.join(folder, "tools")
            with open(tools, "w", encoding="ascii") as file:
                file.writelines(f"T{number} P{number}\n" for number in range(1, 1000))
            for path in sorted(glob.glob(NCFILES + "*.ngc")):
                alone, expected = self.list_alone(path, folder, tools)
                listing = os.path.join(folder, "listing")
                posted = subprocess.run(
                    [PPWORD, "post", path, "--listing", "--tools", tools, "-o", listing],
                    capture_output=True,
                    check=False,
                )
                if os.path.basename(path) in WITHOUT_END:
                    self.assertEqual((alone.returncode, posted.returncode), (1, 0), path)
                    continue
                self.assertEqual(posted.returncode, alone.returncode, path)
                if alone.returncode != 0:
                    message = alone.stderr.decode("latin-1").splitlines()[-2]
                    self.assertIn(": error: " + message, posted.stderr.decode("latin-1").splitlines()[0])
                    continue
                self.assertEqual(calls_of(listing), calls_of(expected), path)
                same += 1
                verified += self.verify(listing, tools)
        self.assertGreater(verified, 80)
        self.assertGreater(same, 40)


if __name__ == "__main__":
    unittest.main()
