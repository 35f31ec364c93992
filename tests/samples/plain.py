"""A PP table whose text is trivial to read, and the reader of that text."""

import collections
import re

POINT = ("MFG_XPOINT", "MFG_YPOINT", "MFG_ZPOINT")
AXIS = ("MFG_XAXIS", "MFG_YAXIS", "MFG_ZAXIS")


def triple(pattern, letters="XYZ"):
    return tuple(pattern.format(letter) for letter in letters)


CIRCLE = (
    *triple("MFG_CIRCLE_{}_CENTER"),
    *triple("MFG_CIRCLE_{}_NORMAL"),
    "MFG_CIRCLE_RADIUS",
    *triple("MFG_CIRCLE_{}_TGT"),
    *triple("MFG_CIRCLE_{}_PT"),
    *POINT,
)
HELIX = (
    *triple("MFG_HELICAL_{}_CENTER"),
    *triple("MFG_HELICAL_{}_AXIS", "IJK"),
    "MFG_HELICAL_RADIUS",
    *triple("MFG_HELICAL_INDIRV_{}", "IJK"),
    *triple("MFG_HELICAL_{}_END"),
    *POINT,
    "MFG_HELICAL_PITCH",
    "MFG_HELICAL_ROUND",
)
ORIGIN = (
    "MFG_ORIGIN_NUMBER",
    *triple("MFG_NCAXIS_{}_ORIG"),
    *triple("MFG_NCAXIS_{}_VECX"),
    *triple("MFG_NCAXIS_{}_VECY"),
)
# The parameters of the line of each NC instruction, after its word.
LINES = {
    "NC_GOTO": ("GOTO", POINT),
    "NC_GOTO_VARIABLE_AXIS": ("GOTO", POINT + AXIS),
    "NC_MULTAX_ON": ("MULTAX", ()),
    "NC_RAPID": ("RAPID", ()),
    "NC_CIRCLE1": ("CIRCLE", CIRCLE),
    "NC_CYLNDR1": ("CYLNDR", CIRCLE),
    "NC_HELICAL_INTERPOLATION": ("HELIX", HELIX),
    "NC_FEEDRATE": ("FEDRAT", ("MFG_FEED_VALUE", "MFG_FEED_UNIT")),
    "NC_ORIGIN": ("ORIGIN", ORIGIN),
    "NC_TOOL_CHANGE": ("LOADTL", ("MFG_TOOL_NUMBER",)),
    "NC_SPINDLE": ("SPINDL", ("MFG_SPNDL_SPEED",)),
    "NC_SPINDLE_START": ("SPINDL", ("MFG_SPNDL_SPEED",)),
    "NC_SPINDLE_OFF": ("SPINDL", ()),
    "NC_DELAY": ("DELAY", ("MFG_DELAY_VALUE",)),
    "NC_PROGRAM_STOP": ("STOP", ()),
    "NC_OPTIONAL_STOP": ("OPSTOP", ()),
    "NC_END_MACRO": ("FINI", ()),
}
WITHOUT_FORMAT = {"MFG_FEED_UNIT", "MFG_ORIGIN_NUMBER", "MFG_TOOL_NUMBER"}
DECIMALS = 6
# The axes of a system have more, since they are multiplied with lengths.
DECIMALS_OF_AXES = 9
HALF_DIGIT = 0.5 * 10**-DECIMALS
HALF_DIGIT_OF_AXES = 0.5 * 10**-DECIMALS_OF_AXES
# Words that move nothing.
STILL = {"LOADTL", "SPINDL", "DELAY", "STOP", "OPSTOP", "FINI"}
Origin = collections.namedtuple("Origin", "number point x_axis y_axis")
# A motion of the text, with the feed rate and the origin that are in force for it.
Motion = collections.namedtuple("Motion", "line word values is_rapid rate origin")
START = Origin(1, [0.0] * 3, [1.0, 0.0, 0.0], [0.0, 1.0, 0.0])


def decimals_of(name):
    return DECIMALS_OF_AXES if "_VEC" in name else DECIMALS


def table(rate_words="MMPM,MMPR"):
    formats = {name for _, names in LINES.values() for name in names} - WITHOUT_FORMAT
    text = [f"*START_FORMAT {name}\n%.{decimals_of(name)}f\n*END" for name in sorted(formats)]
    text.append(f"*START_LIST MFG_FEED_UNIT\n{rate_words}\n*END")
    text.append("*START_NC_INSTRUCTION NC_OUTPUT_COMMENT\nPPRINT %MFG_OUTPUT_COMMENT\n*END")
    for name, (word, names) in LINES.items():
        values = ",$\n".join("%" + parameter for parameter in names)
        text.append(f"*START_NC_INSTRUCTION {name}\n{word}{'/' if values else ''}{values}\n*END")
    return "\n".join(text) + "\n"


def statements_of(text):
    """Each statement as its line, its word and its values; a $ continues a line."""
    joined, begin = "", 0
    for number, row in enumerate(text.split("\n"), start=1):
        if row.startswith("PPRINT ") or not row.strip():
            continue
        begin = begin if joined else number
        joined += row
        if joined.endswith("$"):
            joined = joined[:-1]
            continue
        word, _, values = re.sub(" ", "", joined).partition("/")
        yield begin, word, values.split(",") if values else []
        joined = ""


class Reader:
    """The motions of a text, in order; a word that it does not know is an error."""

    def __init__(self, text):
        self.motions = []
        self.origins = []
        self.multax = 0
        self.rapid, self.rate = False, None
        for line, word, values in statements_of(text):
            self.read(line, word, values)

    def read(self, line, word, values):
        if word == "RAPID":
            assert not self.rapid, f"line {line}: RAPID twice"
            self.rapid = True
        elif word == "FEDRAT":
            rate = float(values[0]), values[1]
            assert rate != self.rate, f"line {line}: the same feed rate again"
            self.rate = rate
        elif word == "ORIGIN":
            self.add_origin(line, values)
        elif word == "MULTAX":
            assert not self.motions and not self.multax, f"line {line}: MULTAX"
            self.multax += 1
        elif word in ("GOTO", "CIRCLE", "CYLNDR", "HELIX"):
            self.add_motion(line, word, [float(value) for value in values])
        else:
            assert word in STILL, f"line {line}: {word}"

    def add_origin(self, line, values):
        assert not self.rapid, f"line {line}: ORIGIN between RAPID and its motion"
        numbers = [float(value) for value in values]
        origin = Origin(int(values[0]), numbers[1:4], numbers[4:7], numbers[7:])
        assert origin != self.origin(), f"line {line}: the same ORIGIN again"
        self.origins.append(origin)

    def origin(self):
        return self.origins[-1] if self.origins else START

    def add_motion(self, line, word, values):
        self.motions.append(Motion(line, word, values, self.rapid, self.rate, self.origin()))
        self.rapid = False
