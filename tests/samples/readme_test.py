#!/usr/bin/env python3
"""Runs the complete example of README.md. usage: readme_test.py PPWORD README"""
import re
import subprocess
import sys
import tempfile
from pathlib import Path


def block_after(text, words):
    """The indented block that follows the first line with these words."""
    rest = text[text.index(words):]
    return re.sub(r"^ {4}", "", re.search(r"\n\n((?: {4}.*\n)+)", rest).group(1), flags=re.M)


def main():
    program, readme = sys.argv[1], Path(sys.argv[2]).read_text(encoding="utf-8")
    command = re.search(r"`build/release/bin/ppword ([^`]+)`", readme).group(1)
    expected = block_after(readme, "`build/release/bin/ppword ")
    with tempfile.TemporaryDirectory() as folder:
        for name in ("small.pptable", "small.canon"):
            Path(folder, name).write_text(block_after(readme, f"`{name}`"), encoding="utf-8")
        run = subprocess.run([program, *command.split()], cwd=folder, capture_output=True,
                             text=True, check=False)
    assert run.returncode == 0, run.stderr
    assert run.stdout == expected, f"README says\n{expected}\nppword writes\n{run.stdout}"


main()
