#!/usr/bin/env python3
"""usage: bench.py PPWORD_BENCH PPWORD

Counts the instructions of works and runs with callgrind, measures the times of works, and compares both with the rows
of rows.py. The exit status is 1 when a result is above what its row allows.
"""

import concurrent.futures
import glob
import json
import os
import re
import subprocess
import sys
import tempfile

from rows import MEMORY, SECTIONS
from runs import RUNS

BENCH, PPWORD = map(os.path.abspath, sys.argv[1:])
CALLGRIND = ("valgrind", "--tool=callgrind")
TIMES = (
    "--benchmark_filter=-^engine/line after",
    "--benchmark_repetitions=9",
    "--benchmark_min_time=0.05",
    # What else the machine does falls on both sides of a ratio.
    "--benchmark_enable_random_interleaving=true",
    "--benchmark_report_aggregates_only=true",
    "--benchmark_out_format=json",
)
HEADS = ("instructions", "ratio", "of times", "goal", "at most")


def run(*command, **options):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{' '.join(command[:12])}: exit status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def instructions(path):
    """The trigger of a dump of callgrind, if it has one, and what it counted."""
    with open(path, encoding="utf-8") as file:
        text = file.read()
    name = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.MULTILINE)
    return name and name[1], int(re.search(r"^totals: (\d+)$", text, re.MULTILINE)[1])


def count_works():
    """Of each work the instructions of a call."""
    with tempfile.TemporaryDirectory() as folder:
        out = os.path.join(folder, "out")
        run(*CALLGRIND, "--instr-atstart=no", f"--callgrind-out-file={out}", BENCH, "--count")
        # The last dump, at the end of the program, has no number.
        dumps = dict(instructions(path) for path in glob.glob(out + ".*"))
    named = (name.rpartition("=") for name in dumps)
    return {name: dumps[f"{name}={calls}"] / int(calls) for name, _, calls in named}


def prepared(build, folder, size):
    command = build(folder, size)
    if command[0] == "document":
        run(PPWORD, "document", "new", command[2])
    return [PPWORD, *command]


def count_run(name, build, size):
    with tempfile.TemporaryDirectory() as folder:
        out = os.path.join(folder, "out")
        run(*CALLGRIND, f"--callgrind-out-file={out}", *prepared(build, folder, size))
        return (f"{name}/{size}" if size else name), instructions(out)[1]


def count_runs(pool):
    return [pool.submit(count_run, name, build, size) for name, build, sizes in RUNS for size in reversed(sizes)]


def measure_times():
    """Of each work the median of its processor times."""
    with tempfile.TemporaryDirectory() as folder:
        out = os.path.join(folder, "times")
        run(BENCH, *TIMES, f"--benchmark_out={out}")
        with open(out, encoding="utf-8") as file:
            rows = json.load(file)["benchmarks"]
    return {row["run_name"]: row["cpu_time"] for row in rows if row["aggregate_name"] == "median"}


def held(name, size):
    """The most memory that a run held, in MiB."""
    build = next(build for each, build, _ in RUNS if each == name)
    with tempfile.TemporaryDirectory() as folder:
        return int(run(BENCH, "--peak", *prepared(build, folder, size))) / 1024


def shown(number):
    return f"{number:,.0f}" if number >= 100 else f"{number:.2f}" if number < 10 else f"{number:.1f}"


def ratio_of(row, numbers):
    """The ratio of a row; nothing where one of the two was not measured."""
    try:
        return row.part(numbers) / row.whole(numbers)
    except KeyError:
        return None


def report(row, counts, times):
    result = ratio_of(row, counts) if row.whole else row.part(counts)
    time = ratio_of(row, times) if row.whole else None
    is_met = row.most is None or result <= row.most
    columns = (
        shown(row.part(counts)),
        shown(result) if row.whole else "",
        shown(time) if time else "",
        shown(row.goal) if row.goal else "",
        shown(row.most) if row.most else "",
    )
    print(f"{row.what:<58}" + "".join(f"{text:>15}" for text in columns) + ("" if is_met else "  MISSED"))
    return is_met


def report_memory(what, name, size, most):
    peak = held(name, size)
    print(f"{what:<58}{shown(peak):>15}{shown(most):>60}" + ("" if peak <= most else "  MISSED"))
    return peak <= most


def main():
    times = measure_times()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        works = pool.submit(count_works)
        counts = dict(each.result() for each in count_runs(pool))
        counts.update(works.result())
    all_met = True
    for title, rows in SECTIONS:
        print(f"\n{title:<58}" + "".join(f"{head:>15}" for head in HEADS))
        for row in rows:
            all_met = report(row, counts, times) and all_met
    print("\nMemory held by ppword post, MiB")
    for row in MEMORY:
        all_met = report_memory(*row) and all_met
    return 0 if all_met else 1


if __name__ == "__main__":
    sys.exit(main())
