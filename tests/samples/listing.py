"""What an APT text must say of a canonical listing, told apart from ppword.

The text is that of examples/mill.pptable. `statements_of` gives the statements that are due, in order;
`Text` takes an APT text apart for the comparison.
"""

import re

MILLIMETRES = {"CANON_UNITS_MM": 1.0, "CANON_UNITS_INCHES": 25.4, "CANON_UNITS_CM": 10.0}
CALL = re.compile(r"^ *\d+ N[.\d]+ *([A-Z][A-Z0-9_]+)\((.*)\)$")


def calls_of(listing):
    """The calls of a listing: names and texts between the outer parentheses."""
    with open(listing, encoding="latin-1") as lines:
        return [match.groups() for match in map(CALL.match, lines) if match]


def numbers(arguments):
    return [float(number) for number in re.split("[ ,]+", arguments)]


class Machine:
    """Obeys the calls of a listing and notes the statements that tell of them."""

    def __init__(self, unit=None, axis=None):
        self.due = []
        self.unit = unit
        self.axis = axis
        self.millimetres = None
        self.rate = self.told_rate = self.pitch = None
        self.speed = self.told_speed = None
        self.way = None
        self.tool = None
        self.coolant = None
        self.point = None

    def say(self, word, *values):
        self.due.append((word, values))

    def move(self, arguments):
        words = numbers(arguments)
        if self.unit is None:
            self.unit = self.millimetres
        if self.axis and ("MULTAX", ()) not in self.due:
            self.say("MULTAX")
        self.point = [length * self.millimetres / self.unit for length in words[:3]]
        return self.point + (self.axis(words[3:]) if self.axis else [])

    def tell_rate(self):
        rate = (self.pitch, "MMPR") if self.pitch else (self.rate, "MMPM")
        if rate != self.told_rate:
            self.told_rate = rate
            self.say("FEDRAT", *rate)

    def arc_feed(self, arguments):
        """An arc in the XY plane: where it begins and ends, its centre, its sense."""
        words = numbers(arguments)
        start, scale = self.point, self.millimetres / self.unit
        self.point = [words[0] * scale, words[1] * scale, words[5] * scale]
        assert abs(words[4]) == 1 and start[2] == self.point[2], "no sample has other arcs"
        self.tell_rate()
        self.say("ARC", start, self.point, (words[2] * scale, words[3] * scale), words[4])

    def straight_traverse(self, arguments):
        point = self.move(arguments)
        self.say("RAPID")
        self.say("GOTO", *point)

    def straight_feed(self, arguments):
        point = self.move(arguments)
        self.tell_rate()
        self.say("GOTO", *point)

    def set_feed_rate(self, arguments):
        self.rate = float(arguments) * self.millimetres

    def set_feed_mode(self, arguments):
        assert arguments.endswith(" 0"), "no sample has another mode"

    def start_speed_feed_sync(self, arguments):
        self.pitch = numbers(arguments)[0] * self.millimetres

    def stop_speed_feed_synch(self, _):
        self.pitch = None

    def turn(self, way):
        if (way, self.speed) != (self.way, self.told_speed):
            self.say("SPINDL", self.speed, "RPM", way)
        self.way, self.told_speed = way, self.speed

    def set_spindle_speed(self, arguments):
        self.speed = numbers(arguments)[1]
        if self.way in ("CLW", "CCLW"):
            self.turn(self.way)

    def set_spindle_mode(self, arguments):
        assert numbers(arguments) == [0, 0], "no sample has surface speeds"

    def start_spindle_clockwise(self, _):
        self.turn("CLW")

    def start_spindle_counterclockwise(self, _):
        self.turn("CCLW")

    def stop_spindle_turning(self, _):
        if self.way != "OFF":
            self.say("SPINDL", "OFF")
        self.way = "OFF"

    def select_tool(self, arguments):
        self.tool = int(arguments)

    def change_tool(self, _):
        self.say("SPINDL", "OFF")
        self.say("LOADTL", float(self.tool))

    def dwell(self, arguments):
        self.say("DELAY", float(arguments))

    def comment(self, arguments):
        is_own = arguments.startswith('"interpreter: ')
        if arguments.strip('" ') and not is_own:
            self.say("PPRINT", arguments[1:-1].replace(" ", ""))

    message = comment

    def switch(self, *coolant):
        """Samples have one kind of coolant at a time."""
        if self.coolant != coolant:
            self.say("COOLNT", *coolant)
        self.coolant = coolant

    def flood_on(self, _):
        self.switch("FLOOD")

    def mist_on(self, _):
        self.switch("MIST")

    def flood_off(self, _):
        if self.coolant != ("MIST",):
            self.switch("OFF")

    def mist_off(self, _):
        if self.coolant != ("FLOOD",):
            self.switch("OFF")

    def program_stop(self, _):
        self.say("STOP")

    def optional_program_stop(self, _):
        self.say("OPSTOP")

    def program_end(self, _):
        self.say("SPINDL", "OFF")
        self.say("END")
        self.say("FINI")

    def use_length_units(self, arguments):
        self.millimetres = MILLIMETRES[arguments]


def statements_due(listing, unit=None, axis=None):
    """The statements that must tell of a listing: words with their values, in order.

    Numbers must come out rounded; a text may stand in several statements and has no blanks here.
    """
    machine = Machine(unit, axis)
    start = [("PARTNOMILLEDPART", ()), ("UNITS", None), ("MACHIN", ("MILL", "1"))]
    for name, arguments in calls_of(listing):
        obey = getattr(machine, name.lower(), None)
        if obey and not ("FINI", ()) in machine.due[-1:]:
            obey(arguments)
    start[1] = ("UNITS", ("INCHES" if machine.unit == 25.4 else "MM",))
    return start + machine.due


def statements_of(text):
    """The statements of an APT text: words with the texts of their values, without blanks."""
    with open(text, encoding="latin-1") as lines:
        rows = lines.read().splitlines()
    statements = []
    continued = ""
    for row in rows:
        assert len(row) <= 72, f"{row!r} goes beyond column 72"
        if row.startswith("PPRINT "):
            statements.append(("PPRINT", (row[7:].replace(" ", ""),)))
            continue
        row = continued + row
        continued = row[:-1] if row.endswith("$") else ""
        if continued:
            continue
        word, _, values = row.replace(" ", "").partition("/")
        statements.append((word, tuple(values.split(",")) if values else ()))
    return statements
