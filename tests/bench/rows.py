"""The table of what is measured: one row a measure. To change a target, change its number here.

A row has what is measured and against what; both are counts of instructions by the names of works (Works.h) and runs
(runs.py). Its result is their ratio, or the count itself without a second one. `goal` is what is wanted, `most` what
fails the run when it is exceeded: a little more than what was last measured. Whoever lowers a result lowers `most` too,
until it is the goal. Where the times of both are measured, their ratio is printed as well; it has no target.
"""

import collections

Row = collections.namedtuple("Row", "what part whole goal most", defaults=(None, None, None))


def one(name):
    """A count of its own."""
    return lambda counts: counts[name]


def each(name, few, many):
    """What one more costs, from the counts of few and of many."""
    return lambda counts: (counts[f"{name}/{many}"] - counts[f"{name}/{few}"]) / (many - few)


def engine(name, what, goal=None, most=None, hand="snprintf"):
    return Row(f"{what}, to {hand} by hand", one(f"engine/{name}"), one(f"{hand}/{name}"), goal, most)


def growth(what, name, few, many, goal=None, most=None):
    return Row(f"{what}: {many:,} to {few:,}", one(f"{name}/{many}"), one(f"{name}/{few}"), goal, most)


SECTIONS = (
    (
        "Lines of an instruction by the engine, into a fresh list",
        (
            engine("NC_GOTO", "NC_GOTO", 0.30, 0.30),
            engine("NC_GOTO", "NC_GOTO", hand="to_chars"),
            engine("NC_GOTO_VARIABLE_AXIS", "NC_GOTO_VARIABLE_AXIS", 0.28, 0.28),
            engine("NC_GOTO_VARIABLE_AXIS", "NC_GOTO_VARIABLE_AXIS", hand="to_chars"),
            engine("NC_CIRCLE1", "NC_CIRCLE1, five lines", 0.26, 0.26),
            engine("NC_HELICAL_INTERPOLATION", "NC_HELICAL_INTERPOLATION, five lines", None, 0.35),
            engine("three lines", "an instruction of three lines", 0.28, 0.28),
            engine("three sums", "a line of three sums and products", 0.75, 0.77),
            Row("each earlier line in a list that is not emptied", each("engine/line after", 1_000, 11_000),
                None, 10, 10),
        ),
    ),
    (
        "ppword post, from a file to a file",
        (
            Row("a point, 1,000 a line, to strtod and fprintf by hand", each("post", 10_000, 30_000),
                each("strtod", 10_000, 30_000), 0.6, 0.6),
            Row("a point, 1,000 a line", each("post/job", 5_000, 20_000), None, 3_300, 3_300),
            Row("a point that is read back, to one that is not", each("post/read back", 5_000, 20_000),
                each("post/job", 5_000, 20_000), 1.33, 1.33),
            Row("a point, one a line", each("post/lines", 1_000, 4_000)),
            Row("a circle of a job", each("post/circles", 500, 2_000)),
            Row("a circle that is read back, to one that is not", each("post/circles read back", 500, 2_000),
                each("post/circles", 500, 2_000), 1.34, 1.35),
            Row("a feed rate of a job", each("post/feeds", 1_000, 4_000)),
            Row("a helix of a job", each("post/helices", 500, 2_000)),
            Row("a move of a listing", each("post/moves", 1_000, 4_000), None, 6_500, 6_500),
            Row("an arc of a listing in the plane XY", each("post/arcs XY", 500, 2_000)),
            Row("an arc of a listing in the plane XZ", each("post/arcs XZ", 500, 2_000)),
            Row("an arc of a listing in the plane YZ", each("post/arcs YZ", 500, 2_000)),
            Row("a helix of a listing", each("post/arcs helix", 500, 2_000)),
        ),
    ),
    (
        "Starting, and many jobs",
        (
            Row("a job of one point, in all", one("start/post"), None, 5_000_000, 5_000_000),
            Row("ppword --version, in all", one("start/version")),
            Row("a further small job of --output-dir", each("jobs", 100, 300)),
        ),
    ),
    (
        "Growth with the size",
        (
            growth("ppword list, commands", "list", 300, 3_000, 12, 12),
            growth("ppword list, commands", "list", 3_000, 30_000, 12, 12),
            growth("ppword check, commands", "check", 300, 3_000, 12, 12),
            growth("ppword check, commands", "check", 3_000, 30_000, 12, 12),
            growth("ppword check --lint, commands", "lint", 300, 3_000, 12, 12),
            growth("ppword check --lint, commands", "lint", 3_000, 30_000, 12, 12),
            growth("document add-command, names", "add-command", 300, 3_000, 12, 12),
            growth("document add-command, names", "add-command", 3_000, 30_000, 12, 12),
            growth("loading a table, commands", "load", 300, 3_000, 12, 12),
            growth("entries of a table, commands", "entries", 300, 3_000, 12, 12),
            growth("entries of a table, commands", "entries", 3_000, 30_000, 12, 12),
            growth("code of a word, words", "code", 50, 5_000, 4, 4),
            growth("word of a code, words", "word", 50, 5_000, 4, 4),
            growth("opening a document, PP commands", "open", 1_000, 10_000, 12, 12),
            Row("opening 10,000 PP commands, to reading the rows", one("open/10000"), one("rows/10000")),
            growth("saving a document, PP commands", "save", 1_000, 10_000, 12, 12),
        ),
    ),
)

# Runs without valgrind: the most memory that a process held, in MiB.
MEMORY = (("a million points", "post/read back", 1_000_000, 32), ("ten thousand small jobs", "jobs", 10_000, 32))
