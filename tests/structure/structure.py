#!/usr/bin/env python3
"""Measures how the product's sources are put together and compares the measures with their limits.

Counted are the .h, .cpp and .def files of the folders in LAYERS:

- files under 30 lines (.h and .cpp);
- the include depth of a source: files on its longest chain of includes, the source among them;
- the project headers that a source sees, directly or through others;
- circles of files; of units (a header with the source of the same name); and of folders: in each
  folder, its own files and each of its inner folders are taken as a whole;
- includes that LAYERS, NO_INCLUDE or STANDARD_LIBRARY_ONLY forbid, and those of no product file;
- words of BANNED in quoted texts, and in the comments of headers;
- the lengths of functions, from the first line of the signature to the closing brace. A lambda in a
  table of rows is a function, a lambda inside a function belongs to that function.

The exit status is 1 when a measure is above its limit. Whoever lowers a measure lowers its limit
too, until it is the target. A limit is never raised.
"""

import argparse
import collections
import functools
import math
import os
import re
import statistics
import sys

Limit = collections.namedtuple("Limit", "measure limit target")

# The measures of --includes.
INCLUDE_LIMITS = (
    Limit("circles of files", 0, 0),
    Limit("circles of units", 0, 0),
    Limit("circles of folders", 0, 0),
    Limit("forbidden includes", 0, 0),
)
LIMITS = (
    Limit("files under 30 lines", 90, 90),
    Limit("include depth of a source, median", 6, 6),
    Limit("project headers seen by a source, median", 10, 10),
    *INCLUDE_LIMITS,
    Limit("banned words in quoted texts", 0, 0),
    Limit("banned words in comments of headers", 0, 0),
    Limit("function length, median", 5, 5),
    Limit("function length, 90th percentile", 12, 12),
    Limit("function length, longest", 44, 44),
)
TARGETS = {limit.measure: limit.target for limit in LIMITS}

# The layers, and what the files of each may include beside its own.
LAYERS = {
    "platform": (),
    "interfaces": ("platform",),
    "language": (),
    "MfgPPWord.m": ("language", "interfaces", "platform"),
    "host": ("interfaces", "platform"),
    "post": ("host", "language", "interfaces", "platform"),
    "inspect": ("post", "host", "language", "interfaces", "platform"),
    "verify": ("post", "host", "interfaces", "platform"),
    "tools": ("verify", "inspect", "post", "host", "language", "interfaces", "platform"),
}

# Layers that include headers of the standard library and no other header from outside.
STANDARD_LIBRARY_ONLY = ("language",)

# Pairs of folders: files of the first never include files of the second.
NO_INCLUDE = (
    ("post/job", "post/generator"),
    ("post/job", "post/output"),
    ("post/listing", "post/generator"),
    ("post/listing", "post/output"),
    # The reader of texts shares nothing with the writer but the events of tool paths, and what a
    # profile says of consumers.
    *(("verify", f"post/{folder}") for folder in
      ("generator", "job", "listing", "output", "parameters", "program", "text")),
    ("verify", "post/toolpath/LineReader.h"),
    ("verify", "post/consumer/ConsumerLines.h"),
    ("verify", "post/consumer/ConsumerText.h"),
    ("verify", "post/consumer/ConsumerProfile.h"),
)

SHORT_FILE = 30

# Words for which the glossary has better ones. A blank is any white space, a line's end too.
BANNED = {
    "behind": r"\bbehind\b",
    "tell": r"\b(tells?|telling|told)\b",
    "hear": r"\b(hears?|heard)\b",
    "give": r"\b(gives?|gave)\b",
    "stand": r"\b(stands?|stood)\b",
    "nobody": r"\bnobody\b",
    "anew": r"\banew\b",
    "as ever": r"\bas ever\b",
    "room": r"\brooms?\b",
    "is no": r"\bis no\b",
}

# Phrases in which they are the right words.
HARMLESS = r"\b(there is no|is no longer|is no more)\b"

# Quoted texts that stay although a banned word is in them, each with the reason.
ALLOWED = {
    "dollar-behind-name": "the key of a lint rule, which programs compare",
    "text-behind-parenthesis": "the key of a lint rule, which programs compare",
}


# --- The texts of a file -------------------------------------------------------------------------

# A character that is neither white space nor part of a word.
WALL = "\0"

TOKEN = re.compile(
    r"(?P<include>^[ \t]*#[ \t]*include\b[^\n]*)"
    r"|(?P<comment>//[^\n]*|/\*.*?\*/)"
    r'|(?P<quote>R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])*')",
    re.DOTALL | re.MULTILINE,
)


def pieces_of(text):
    """The pieces of a source: (kind, text), kind being include, comment, quote or code."""
    end = 0
    for token in TOKEN.finditer(text):
        yield "code", text[end : token.start()]
        yield token.lastgroup, token[0]
        end = token.end()
    yield "code", text[end:]


def blank(piece):
    return re.sub(r"[^\n]", " ", piece)


def walls(piece):
    return re.sub(r"\S", WALL, piece)


def content(piece):
    """A comment or a quoted text without its marks and escapes, as long as before."""
    return re.sub(r"""\\.|["'/*]""", lambda mark: blank(mark[0]), piece)


class Source:
    """A file. `code`, `quotes` and `comments` are as long as its text, and hold one kind of it."""

    def __init__(self, text):
        self.lines = text.count("\n")
        self._pieces = list(pieces_of(text))
        self.includes = re.findall(r'#\s*include\s*([<"])([^>"]+)', self._view(include=str))

    def _view(self, **shown):
        return "".join(shown.get(kind, blank)(piece) for kind, piece in self._pieces)

    @functools.cached_property
    def code(self):
        return without_directives(self._view(code=str, quote=walls))

    @functools.cached_property
    def quotes(self):
        return self._view(quote=content, code=walls)

    @functools.cached_property
    def comments(self):
        return self._view(comment=content, code=walls, quote=walls)


def without_directives(code):
    directive = re.compile(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.MULTILINE)
    return directive.sub(lambda match: blank(match[0]), code)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def read_sources(root):
    """The product's files by their paths from the root."""
    sources = {}
    for layer in LAYERS:
        for folder, _, names in os.walk(os.path.join(root, layer)):
            for name in names:
                if name.endswith((".h", ".cpp", ".def")):
                    path = os.path.join(folder, name)
                    with open(path, encoding="utf-8", errors="replace") as file:
                        sources[os.path.relpath(path, root)] = Source(file.read())
    return dict(sorted(sources.items()))


# --- Includes ------------------------------------------------------------------------------------


def layer_of(path):
    return path.split("/")[0]


def resolve(path, included, sources):
    """The product file that an include of `path` means, None for one from outside."""
    for folder in (os.path.dirname(path), "", layer_of(path), *LAYERS):
        candidate = os.path.normpath(os.path.join(folder, included))
        if candidate in sources:
            return candidate
    return None


def include_graph(sources):
    """The product files that each file includes itself."""
    return {
        path: sorted({resolve(path, name, sources) for _, name in source.includes} - {None})
        for path, source in sources.items()
    }


def reachable(graph, start):
    """What `start` leads to; `start` itself only if it is on a circle."""
    seen, waiting = set(), [start]
    while waiting:
        for successor in graph[waiting.pop()]:
            if successor not in seen:
                seen.add(successor)
                waiting.append(successor)
    return seen


def depths(graph):
    """Of each file, the files on its longest chain of includes; a circle ends where it closes."""
    found = {}

    def depth(path):
        if path not in found:
            found[path] = 0
            found[path] = 1 + max(map(depth, graph[path]), default=0)
        return found[path]

    return {path: depth(path) for path in graph}


def unit_ends(includer, included):
    return os.path.splitext(includer)[0], os.path.splitext(included)[0]


def folder_ends(includer, included):
    """The parts of the innermost common folder that two files are in, "*" being its own files."""
    common = os.path.commonpath(["/" + os.path.dirname(path) for path in (includer, included)])

    def part(path):
        first, inner, _ = os.path.relpath("/" + path, common).partition("/")
        return os.path.join(common, first if inner else "*")[1:]

    return part(includer), part(included)


def grouped(graph, ends):
    """The graph of larger parts: for each part the parts that it includes, with the includes."""
    parts = collections.defaultdict(dict)
    for includer, all_included in graph.items():
        for included in all_included:
            source, target = ends(includer, included)
            parts[target]  # A part that includes nothing is one too.
            if source != target or includer == included:
                parts[source].setdefault(target, []).append(f"{includer} includes {included}")
    return parts


def circles(parts):
    """The largest sets of parts that lead to each other, each described with its includes."""
    reach = {part: reachable(parts, part) for part in parts}
    found = {
        tuple(sorted(other for other in reach[part] if part in reach[other]))
        for part in parts
        if part in reach[part]
    }
    return [describe_circle(parts, circle) for circle in sorted(found)]


def describe_circle(parts, circle):
    steps = [
        f"{source} -> {target} ({len(includes)}): {includes[0]}"
        for source in circle
        for target, includes in sorted(parts[source].items())
        if target in circle
    ]
    return "\n      ".join([", ".join(circle), *steps])


def is_inside(path, folder):
    return path.startswith(folder + "/")


def objection(path, mark, included, found):
    """Why `path` may not include a file, None if it may."""
    layer = layer_of(path)
    if found is None:
        if mark == '"':
            return "not a file of the product"
        if layer in STANDARD_LIBRARY_ONLY and re.search("[./]", included):
            return "not of the standard library"
        return None
    if layer_of(found) not in (layer, *LAYERS[layer]):
        return f"{layer} may not include {layer_of(found)}"
    for source, target in NO_INCLUDE:
        if is_inside(path, source) and is_inside(found, target):
            return f"{source} may not include {target}"
    return None


def forbidden_includes(sources):
    return [
        f"{path} includes {included}: {why}"
        for path, source in sources.items()
        for mark, included in source.includes
        if (why := objection(path, mark, included, resolve(path, included, sources)))
    ]


def without_rows(graph):
    """Rows of a table (.def) are data that each reader makes its own code of: no layer of a house."""
    return {
        path: [included for included in all_included if not included.endswith(".def")]
        for path, all_included in graph.items()
    }


def measure_includes(sources):
    graph = include_graph(sources)
    return {
        "circles of files": counted(circles(grouped(graph, lambda *ends: ends))),
        "circles of units": counted(circles(grouped(graph, unit_ends))),
        "circles of folders": counted(circles(grouped(without_rows(graph), folder_ends))),
        "forbidden includes": counted(forbidden_includes(sources)),
    }


# --- Words ---------------------------------------------------------------------------------------


def spans_of(pattern, text):
    """Where a pattern matches: (position, end), in the pattern a blank being any white space."""
    found = re.finditer(pattern.replace(" ", r"\s+"), text, re.IGNORECASE)
    return [(match.start(), match.end()) for match in found]


def phrase(text):
    return " ".join(map(re.escape, content(text).split()))


def banned_words(texts, allowed):
    """The banned words in the texts of files, and each allowed text that none of them has."""
    found, unused = [], set(allowed)
    for path, text in texts.items():
        kept = spans_of(HARMLESS, text)
        for entry in allowed:
            if spans := spans_of(phrase(entry), text):
                kept += spans
                unused.discard(entry)
        for position, word in sorted(banned_in(text)):
            if not any(start <= position < end for start, end in kept):
                found.append(f"{path}:{line_of(text, position)}: {word}: {around(text, position)}")
    return found + [f"allowed, but in no quoted text: {entry}" for entry in sorted(unused)]


def banned_in(text):
    """The banned words in a text: (position, word)."""
    for word, pattern in BANNED.items():
        for position, _ in spans_of(pattern, text):
            yield position, word


def around(text, position):
    """The words about a place of a text, in one line."""
    before = text[max(0, position - 60) : position].split(WALL)[-1]
    after = text[position : position + 60].split(WALL)[0]
    return " ".join((before + after).split())


def measure_words(sources, allowed):
    quotes = {path: source.quotes for path, source in sources.items()}
    comments = {
        path: source.comments for path, source in sources.items() if not path.endswith(".cpp")
    }
    return {
        "banned words in quoted texts": counted(banned_words(quotes, allowed)),
        "banned words in comments of headers": counted(banned_words(comments, {})),
    }


# --- Functions -----------------------------------------------------------------------------------

# What a brace opens: a namespace or class, a function, something in a function, a value or an enum.
SCOPE, FUNCTION, INSIDE, VALUE = range(4)

Brace = collections.namedtuple("Brace", "kind start first")
Function = collections.namedtuple("Function", "line length signature")

BOUNDARY = re.compile(r"[{};]|\b(?:public|protected|private):(?!:)")
TEMPLATE = re.compile(r"^template\s*<[^{}]*?>\s*(?=[a-z\[])")
SCOPE_HEAD = re.compile(r"(?:inline\s+)?(?:namespace|class|struct|union|extern)\b")
LAMBDA = re.compile(r"\[[^\[\]]*\]\s*(?:\([^;]*\)[^;]*)?$")


def brace_kind(outer, head):
    """What a brace opens, by what it is in and the text before it, as clang-format leaves it."""
    if outer in (FUNCTION, INSIDE):
        return INSIDE
    if outer == VALUE:
        return FUNCTION if LAMBDA.search(head) else VALUE
    if not head[-1:].isspace():
        return VALUE
    head = TEMPLATE.sub("", head.strip())
    if SCOPE_HEAD.match(head):
        return SCOPE
    if ")" not in head or head.endswith(("=", "(", ",")) or head.startswith("enum"):
        return VALUE
    return FUNCTION


def signature_start(outer, head):
    """Where the signature begins in the text before a function's brace."""
    in_row = LAMBDA.search(head) if outer == VALUE else None
    return in_row.start() if in_row else len(head) - len(head.lstrip())


def functions_of(code):
    """The functions of formatted code in which comments and directives are blank."""
    braces, start = [Brace(SCOPE, 0, 0)], 0
    for mark in BOUNDARY.finditer(code):
        outer = braces[-1]
        if mark[0] == "{":
            head = code[start : mark.start()]
            kind = brace_kind(outer.kind, head)
            braces.append(Brace(kind, start, start + signature_start(outer.kind, head)))
            start = mark.end()
        elif mark[0] == "}":
            braces.pop()
            if outer.kind == FUNCTION:
                line = line_of(code, outer.first)
                length = line_of(code, mark.start()) - line + 1
                head = code[outer.first : code.index("{", outer.first)].replace(WALL, '"')
                yield Function(line, length, " ".join(head.split()))
            start = outer.start if outer.kind == VALUE else mark.end()
        elif outer.kind != VALUE:
            start = mark.end()


def percentile(values, percent):
    """The smallest value that so many percent of the values do not exceed."""
    return sorted(values)[math.ceil(len(values) * percent / 100) - 1]


def measure_functions(sources):
    functions = [
        (function.length, f"{path}:{function.line}: {function.signature}")
        for path, source in sources.items()
        for function in functions_of(source.code)
    ]
    lengths = [length for length, _ in functions]
    long, longest = percentile(lengths, 90), max(lengths)
    return {
        "function length, median": (statistics.median(lengths), []),
        "function length, 90th percentile": (long, above(functions, long)),
        "function length, longest": (longest, above(functions, longest - 1)),
    }


# --- Measures ------------------------------------------------------------------------------------


def counted(offenders):
    """A measure is its value and what --list shows of it."""
    return len(offenders), offenders


def above(named_values, bound):
    """Those of (value, name) that are above a bound, the highest first, as texts."""
    found = [(value, name) for value, name in named_values if value > bound]
    return [f"{value:g}: {name}" for value, name in sorted(found, reverse=True)]


def median_of(measure, values):
    """The median of (value, name) as a measure; --list shows those above its target."""
    median = statistics.median(value for value, _ in values)
    return {measure: (median, above(values, TARGETS[measure]))}


def measure_files(sources):
    graph = include_graph(sources)
    depth = depths(graph)
    programs = [path for path in sources if path.endswith(".cpp")]
    short = [
        f"{path}: {source.lines}"
        for path, source in sources.items()
        if source.lines < SHORT_FILE and not path.endswith(".def")
    ]
    return {
        "files under 30 lines": counted(short),
        **median_of(
            "include depth of a source, median", [(depth[path], path) for path in programs]
        ),
        **median_of(
            "project headers seen by a source, median",
            [(len(reachable(graph, path)), path) for path in programs],
        ),
    }


def measure_all(sources, allowed):
    return {
        **measure_files(sources),
        **measure_includes(sources),
        **measure_words(sources, allowed),
        **measure_functions(sources),
    }


def report(limits, measures, listed):
    """Prints the table; returns whether every measure is within its limit."""
    print(f"{'measure':<42}{'now':>6}{'limit':>7}{'target':>8}")
    for measure, limit, target in limits:
        value, offenders = measures[measure]
        note = "  above its limit" if value > limit else ""
        note = "  lower its limit" if value < limit and limit > target else note
        print(f"{measure:<42}{value:>6g}{limit:>7g}{target:>8g}{note}")
        for offender in offenders if listed else ():
            print("   ", offender)
    return all(measures[limit.measure][0] <= limit.limit for limit in limits)


def main(arguments):
    here = os.path.dirname(os.path.abspath(__file__))
    parser = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    parser.add_argument("--root", default=os.path.dirname(os.path.dirname(here)))
    parser.add_argument("--includes", action="store_true", help="measure the includes only")
    parser.add_argument("--list", action="store_true", help="show what each measure counts")
    options = parser.parse_args(arguments)
    sources = read_sources(options.root)
    if not sources:
        parser.error(f"{options.root} has none of the folders {', '.join(LAYERS)}")
    if options.includes:
        good = report(INCLUDE_LIMITS, measure_includes(sources), options.list)
    else:
        good = report(LIMITS, measure_all(sources, ALLOWED), options.list)
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
