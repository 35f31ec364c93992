"""Runs of the program with inputs of some sizes: their names, files and command lines."""

import os

HEADER = '{"job":1,"program":"BENCH","units":"mm"}\n'
END = '{"end":true}\n'


def point(number):
    return f"[{number % 1000 * 0.25 - 125},{number // 1000 * 0.125},{number % 64 * 0.0625 - 2}]"


def job(elements):
    return HEADER + "".join(f'{{"nc":{element}}}\n' for element in elements) + END


def points(count, of_a_line):
    for first in range(0, count, of_a_line):
        line = ",".join(point(number) for number in range(first, first + of_a_line))
        yield f'"NC_GOTO","points":[{line}]'


def circle(number):
    x = number % 1000 * 0.25
    return (
        f'"NC_CIRCLE1","circle":{{"tangent":[0,1,0],"center":[{x},0,-2],"radius":10,"normal":[0,0,1],'
        f'"point":[{x + 10},0,-2]}}'
    )


def feed(number):
    return f'"NC_FEEDRATE","feedrate":{{"value":{number % 900 + 100},"type":"linear"}}'


def helix(number):
    x = number % 1000 * 0.25
    return (
        f'"NC_HELICAL_INTERPOLATION","helix":{{"indirv":[0,1,0],"center":[{x},0,0],"radius":10,"axis":[0,0,1],'
        f'"start":[{x - 10},0,0],"end":[{x - 10},0,-4],"pitch":2}}'
    )


def listing(calls):
    first = ("USE_LENGTH_UNITS(CANON_UNITS_MM)", "SET_FEED_RATE(500.0000)")
    all_calls = [*first, *calls, "PROGRAM_END()"]
    return "".join(f"{number:5} N..... {call}\n" for number, call in enumerate(all_calls, 1))


def moves(count):
    for i in range(count):
        x, y, z = i % 1000 * 0.25, i // 1000 * 0.125, i % 64 * 0.0625
        yield f"STRAIGHT_FEED({x:.4f}, {y:.4f}, {z:.4f}, 0.0000, 0.0000, 0.0000)"


def arcs(count, plane, start, rise):
    """Half turns about the origin, which begin at `start`; each ends so much further along the third axis."""
    yield f"SELECT_PLANE(CANON_PLANE_{plane})"
    yield f"STRAIGHT_FEED({start}, 0.0000, 0.0000, 0.0000)"
    for i in range(count):
        end = -10 if i % 2 == 0 else 10
        yield f"ARC_FEED({end:.4f}, 0.0000, 0.0000, 0.0000, 1, {rise * (i + 1):.4f}, 0.0000, 0.0000, 0.0000)"


def table(count):
    parts = ["*START_NC_INSTRUCTION NC_USER_INSTRUCTION_100000\nRAPID\n*END\n"]
    for number in range(100_001, 100_001 + count):
        name = f"NC_USER_INSTRUCTION_{number}"
        parts.append(
            f"*START_NC_INSTRUCTION {name}\nPPRINT USER INSTRUCTION {name}\n*INSERT NC_USER_INSTRUCTION_100000\n"
            "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT,%MFG_XAXIS,%MFG_YAXIS,%MFG_ZAXIS\n"
            "*START_SEQUENCE\nGOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n"
            "*START_SEQUENCE\nGODLTA/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT\n*END\n*END\n"
        )
    return "".join(parts)


def write(folder, name, text):
    path = os.path.join(folder, name)
    with open(path, "w", encoding="ascii") as file:
        file.write(text)
    return path


def posting(text):
    """What posts an input of a size into a file, which is not read back."""
    return lambda folder, size: reading_back(text)(folder, size) + ("--no-verify",)


def reading_back(text):
    return lambda folder, size: ("post", write(folder, "input", text(size)), "-o", os.path.join(folder, "text"))


def reading(*command):
    return lambda folder, size: (*command, write(folder, "table", table(size)))


def adding(folder, size):
    names = write(folder, "names", "NC_TOOL_CHANGE\n" * size)
    return "document", "add-command", os.path.join(folder, "new"), "--from", names


def small_jobs(folder, size):
    jobs = [write(folder, f"{i}.jsonl", job(points(10, 10))) for i in range(size)]
    return "post", *jobs, "--output-dir", os.path.join(folder, "texts"), "-q", "--no-verify"


# Of each run its name, how its files and arguments come about, and its sizes.
RUNS = (
    ("post/job", posting(lambda size: job(points(size, 1000))), (5_000, 20_000)),
    ("post/read back", reading_back(lambda size: job(points(size, 1000))), (5_000, 20_000)),
    ("post/lines", posting(lambda size: job(points(size, 1))), (1_000, 4_000)),
    ("post/circles", posting(lambda size: job(circle(i) for i in range(size))), (500, 2_000)),
    ("post/circles read back", reading_back(lambda size: job(circle(i) for i in range(size))), (500, 2_000)),
    ("post/feeds", posting(lambda size: job(feed(i) for i in range(size))), (1_000, 4_000)),
    ("post/helices", posting(lambda size: job(helix(i) for i in range(size))), (500, 2_000)),
    ("post/moves", posting(lambda size: listing(moves(size))), (1_000, 4_000)),
    ("post/arcs XY", posting(lambda size: listing(arcs(size, "XY", "10, 0, 0", 0))), (500, 2_000)),
    ("post/arcs XZ", posting(lambda size: listing(arcs(size, "XZ", "0, 0, 10", 0))), (500, 2_000)),
    ("post/arcs YZ", posting(lambda size: listing(arcs(size, "YZ", "0, 10, 0", 0))), (500, 2_000)),
    ("post/arcs helix", posting(lambda size: listing(arcs(size, "XY", "10, 0, 0", 0.5))), (500, 2_000)),
    ("start/post", posting(lambda size: job(points(1, 1))), (None,)),
    ("start/version", lambda folder, size: ("--version",), (None,)),
    ("jobs", small_jobs, (100, 300)),
    ("list", reading("list"), (300, 3_000, 30_000)),
    ("check", reading("check"), (300, 3_000, 30_000)),
    ("lint", reading("check", "--lint"), (300, 3_000, 30_000)),
    ("add-command", adding, (300, 3_000, 30_000)),
)
