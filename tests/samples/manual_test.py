#!/usr/bin/env python3
"""Runs the complete example of the manual page of listings.

usage: manual_test.py PPWORD docs/listing-format.md
"""

import os
import re
import subprocess
import sys
import tempfile

ppword, manual = (os.path.abspath(argument) for argument in sys.argv[1:])
with open(manual, encoding="utf-8") as file:
    blocks = dict(re.findall(r"^```(\w+)\n(.*?)^```$", file.read(), re.DOTALL | re.MULTILINE))

with tempfile.TemporaryDirectory() as directory:
    os.chdir(directory)
    for name, block in (("part.ngc", "nc"), ("part.pptable", "pptable")):
        with open(name, "w", encoding="ascii") as file:
            file.write(blocks[block])
    script = 'ppword() { "$PPWORD" "$@"; }\n' + blocks["sh"]
    subprocess.run(["sh", "-e", "-c", script], check=True, env={**os.environ, "PPWORD": ppword})
    for name, block in (("part.canon", "listing"), ("part.apt", "apt")):
        with open(name, encoding="ascii") as file:
            made = file.read()
        if made != blocks[block]:
            sys.exit(f"{name} is not what the manual shows, but\n{made}")
