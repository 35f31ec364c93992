"""Runs programs through rs274 and through ppword for the comparison of moves."""

import concurrent.futures
import json
import os
import subprocess

import compare
import motion
import plain

# rs274 says this at the end of a program that it has run to its last line.
WITHOUT_END = "File ended with no percent sign or program end"


class Workshop:
    """A folder with a tool table and plain tables; each run has a folder of its own in it."""

    def __init__(self, ppword, folder, rate_words="MMPM,MMPR"):
        self.ppword = ppword
        self.folder = folder
        self.rate_words = rate_words
        self.runs = 0
        self.tools = self.write("tools", "".join(f"T{n} P{n}\n" for n in range(1, 1000)))
        self.table = self.write("plain.pptable", plain.table(rate_words))

    def write(self, name, text):
        path = os.path.join(self.folder, name)
        with open(path, "w", encoding="ascii") as file:
            file.write(text)
        return path

    def new_folder(self):
        self.runs += 1
        folder = os.path.join(self.folder, f"run{self.runs}")
        os.mkdir(folder)
        return folder

    def listing_of(self, program):
        """The listing by rs274 itself, and its message; empty if it has run to the end.

        HOME is a new folder, since rs274 has files there that a run at the same time would change.
        """
        folder = self.new_folder()
        listing = os.path.join(folder, "listing")
        done = subprocess.run(
            ["rs274", "-t", self.tools, "-g", program, listing],
            cwd=os.path.dirname(program),
            env={**os.environ, "HOME": folder},
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.PIPE,
            check=False,
        )
        message = done.stderr.decode("latin-1").splitlines()[-2] if done.returncode else ""
        return listing, "" if message == WITHOUT_END else message

    def command(self, program, output, *options):
        return [
            *(self.ppword, "post", program, "--tools", self.tools, "-t", self.table),
            *("-o", output, "--format", "json", *options),
        ]

    def post(self, program, *options):
        """The text of a program, if there is one, and the report."""
        output = os.path.join(self.new_folder(), "text")
        command = self.command(program, output, *options)
        done = subprocess.run(command, capture_output=True, check=False)
        report = json.loads(done.stderr.decode("latin-1"))
        if done.returncode != 0:
            assert not os.path.exists(output), output
            return None, report
        assert report["verified"]["agrees"], report["verified"]
        with open(output, encoding="latin-1") as file:
            return file.read(), report

    def assert_same(self, program, *options, **aspects):
        """Posts a program and compares; returns the counts of the moves."""
        listing, message = self.listing_of(program)
        assert not message, message
        text, report = self.post(program, *options)
        assert text is not None, report["diagnostics"]
        return self.compare(listing, text, report, **aspects)

    def compare(self, listing, text, report, **aspects):
        listed = motion.Motion(listing, aspects.get("rotary"))
        words = self.rate_words
        same = compare.Comparison(listed.moves, plain.Reader(text), rate_words=words, **aspects)
        same.assert_same()
        assert_fates(listed, same.counts, report["calls"])
        return same.counts


def assert_fates(listed, counts, calls):
    """The report counts the moves that were compared, and those that no text can have."""
    found = {}
    for call in calls:
        found.setdefault(call["fate"], {})[call["name"]] = call["count"]
    assert found.get("lostMove", {}) == dict(listed.lost), (found, listed.lost)
    due = {"STRAIGHT_TRAVERSE": counts["RAPID"], "STRAIGHT_FEED": counts["FEED"]}
    due["ARC_FEED"] = counts["CIRCLE"] + counts["CYLNDR"] + counts["HELIX"]
    assert found.get("move", {}) == {name: due[name] for name in due if due[name]}, found
    chords = {"ARC_FEED": counts["CHORDS"]} if counts["CHORDS"] else {}
    assert found.get("chords", {}) == chords, found


def side_by_side(function, items):
    """Results of a function, in the order of the items, with a run for each processor."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(function, items))
