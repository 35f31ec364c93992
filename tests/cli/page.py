"""What the tests of `ppword view` share: the parts of a page and its data, read from outside."""

import base64
import hashlib
import json
import re

DATA = re.compile(r'(<script type="application/json" id="data">)(.*?)(</script>)', re.DOTALL)


def data_of(page):
    return json.loads(DATA.search(page)[2])


def without_data(page):
    return DATA.sub(r"\1\3", page)


def with_data(page, data):
    text = json.dumps(data).replace("<", "\\u003c")
    return DATA.sub(lambda found: found[1] + text + found[3], page)


NUMBER = re.compile(r" *[-+]?(?:\d+\.?\d*|\.\d+)")


def short(number):
    """A number without the zeros that say nothing: -1.5 for -01.500."""
    sign, digits = ("-" if number.startswith("-") else ""), number.lstrip("+-")
    whole, point, rest = digits.partition(".")
    whole, rest = whole.lstrip("0") or "0", rest.rstrip("0")
    return sign + whole + (point if rest else "") + rest


def passes_of(data, line):
    """What the page shows of the passes of a line, from 0."""
    passes = data["passes"]
    form = passes["forms"][sums(passes["ofLine"])[line]][1]
    found = NUMBER.findall(data["text"].split("\n")[line])
    own = dict(zip(sums(passes["ownLines"]), passes["own"].split("\n")))
    others = iter(own.get(line, "").split(","))
    kinds = {"\1": str, "\2": str.strip, "\3": lambda number: short(number.strip())}

    def number(place):
        if place[0] == "\4":
            return next(others)
        return kinds[place[0][0]](found[ord(place[0][1]) - 33])

    return re.sub("[\1-\3].|\4", number, form, flags=re.DOTALL)


def policy_of(page):
    return re.search(r'http-equiv="Content-Security-Policy" content="([^"]*)"', page)[1]


def digest(text):
    return "'sha256-" + base64.b64encode(hashlib.sha256(text.encode()).digest()).decode() + "'"


def numbers(text):
    """The numbers of a column: seven bits a byte, the lowest first; the lowest bit is the sign."""
    values = []
    bits = weight = 0
    for byte in base64.b64decode(text):
        bits |= (byte & 127) << weight
        weight += 7
        if byte < 128:
            values.append(-(bits >> 1) if bits & 1 else bits >> 1)
            bits = weight = 0
    return values


def sums(text):
    total = 0
    return [total := total + step for step in numbers(text)]


def points(columns, parts):
    return [tuple(value / parts for value in point) for point in zip(*map(sums, columns))]


def column(values):
    """A column of these numbers."""
    data = bytearray()
    for value in values:
        bits = -value * 2 + 1 if value < 0 else value * 2
        while bits > 127:
            data.append(bits & 127 | 128)
            bits >>= 7
        data.append(bits)
    return base64.b64encode(bytes(data)).decode()


def steps(values):
    return column(b - a for a, b in zip([0, *values], values))
