"""Every kind of loss: met, counted with its first place, refused, and in the manual."""

import json
import os
import re

import program

HEADER = '{"job":1,"program":"P","units":"mm"}\n'
END = '{"end":true}\n'
LONG = "x" * 80


def job(*lines, header=HEADER):
    return header + "".join(line + "\n" for line in lines) + END


def table(body, name="NC_X"):
    return f"*START_NC_INSTRUCTION {name}\n{body}\n*END\n"


def activity(parameters):
    return '{"activity":"A","parameters":{' + parameters + "}}"


X = '{"nc":"NC_X"}'
FEED = '"feedrate":{"value":0.3,"type":"linear"}'

# For each key the tool path, its table, the name that is counted first and its line.
JOBS = {
    "unevaluated": (job(X), table("A/%MFG_NONE"), "MFG_NONE", 2),
    "without-number": (
        job('{"nc":"NC_X",' + FEED + "}"),
        table("A/%MFG_FEED_VALUE") + "*START_FORMAT MFG_FEED_VALUE\nQ\n*END\n",
        "MFG_FEED_VALUE",
        2,
    ),
    "cut-off": (job(X), table("PPRINT %MFG_NONE)AB"), "MFG_NONE)AB", 2),
    "cut-text": (
        job(activity(f'"MFG_TOOL_NAME":"{LONG}"'), X),
        table("PPRINT %MFG_TOOL_NAME"),
        "MFG_TOOL_NAME",
        3,
    ),
    "deleted": (job(X), table("A/3*,4"), "3*", 2),
    "never-given": (job(X), table("A/%MFG_FEED_VALUE"), "MFG_FEED_VALUE", 2),
    "rounded-to-zero": (
        job('{"nc":"NC_X",' + FEED + "}"),
        table("A/%MFG_FEED_VALUE") + "*START_FORMAT MFG_FEED_VALUE\n%4.0f\n*END\n",
        "MFG_FEED_VALUE",
        2,
    ),
    "missing-dimension": (
        job(activity(""), X),
        table("A/%MFG_CMP_TL_SET_X"),
        "MFG_CMP_TL_SET_X",
        3,
    ),
    "impossible-value": (job('{"nc":"NC_X","axis":[0,0,2]}'), table("A"), "axis", 2),
    "misspelt-parameter": (
        job(activity('"MFG_TOOL_NUMBR":"1"'), X),
        table("A"),
        "MFG_TOOL_NUMBR, perhaps MFG_TOOL_NUMBER",
        2,
    ),
    "table-entry": (job(X), table("A") + table("*INSERT NC_NONE", "NC_Y"), None, None),
    "built-in-lines": (job(X, '{"nc":"NC_RAPID"}'), table("A"), "NC_RAPID", 3),
    "wide-line": (job(X), table("A" * 80), "NC_X", 2),
}
# For each key the calls of a listing, of which the last one is counted, and the table.
LISTINGS = {
    "bare-comment": (
        ['COMMENT("A")'],
        table("%MFG_OUTPUT_COMMENT", "NC_OUTPUT_COMMENT"),
    ),
    "lost-call": (["START_SPEED_FEED_SYNCH(1.0000, 0)"], None),
    "lost-move": (["NURBS_FEED(4, 1)"], None),
    "unknown-call": (["NEW_CALL(4)"], None),
    "arc-as-chords": (
        [
            "STRAIGHT_FEED(10.0000, 0.0000, 0.0000, 0.0000, 0.0000, 0.0000)",
            "ARC_FEED(0.0000, 11.0000, 0.0000, 0.0000, 1, 0.0000, 0.0000, 0.0000, 0.0000)",
        ],
        None,
    ),
}


def listing(calls):
    calls = ["USE_LENGTH_UNITS(CANON_UNITS_MM)", *calls, "PROGRAM_END()"]
    return "".join(f"{number:5} N..... {call}\n" for number, call in enumerate(calls, 1))


# Those with a test of their own.
OTHERS = {"machine-coordinates", "replaced-character"}


class Losses(program.ProgramTest):
    def losses(self, *arguments):
        done = self.run_program("post", "--format", "json", *arguments)
        return done.returncode, {
            each["key"]: each for each in json.loads(done.stderr)["losses"]
        }

    def post(self, path, table):
        self.write("input", path)
        arguments = ["input", "-o", "apt"]
        if table is not None:
            self.write("table", table)
            arguments += ["-t", "table"]
        return arguments

    def met(self, key, arguments, name, line):
        with self.subTest(key):
            status, losses = self.losses(*arguments)
            self.assertEqual(status, 0)
            self.assertIn(key, losses)
            if name is None:
                self.assertNotIn("first", losses[key])
            else:
                self.assertEqual(losses[key]["first"], {"name": name, "line": line})
            self.assertGreaterEqual(losses[key]["count"], 1)
            os.remove(os.path.join(self.folder, "apt"))
            status, losses = self.losses(f"--strict={key}", *arguments)
            self.assertEqual(status, 1)
            self.assertNotIn("apt", self.files())
            status, _ = self.losses("--strict", f"--allow={','.join(losses)}", *arguments)
            self.assertEqual(status, 0)

    def test_of_jobs_are_counted_and_refused(self):
        for key, (path, table, name, line) in JOBS.items():
            self.met(key, self.post(path, table), name, line)

    def test_of_bare_comments_of_jobs(self):
        commented = job('{"nc":"NC_OUTPUT_COMMENT","comment":"STOP"}')
        self.met("bare-comment", self.post(commented, None), "NC_OUTPUT_COMMENT", 2)
        done = self.run_program("post", *self.post(commented, None))
        self.assertIn(
            "  WARNING: comments written as statements: NC_OUTPUT_COMMENT (in line 2)\n",
            done.stderr,
        )
        written = table("PPRINT %MFG_OUTPUT_COMMENT", "NC_OUTPUT_COMMENT")
        self.assertNotIn("bare-comment", self.losses(*self.post(commented, written))[1])
        without = table("COOLNT/ON", "NC_OUTPUT_COMMENT")
        self.assertNotIn("bare-comment", self.losses(*self.post(commented, without))[1])

    def test_of_listings_are_counted_and_refused(self):
        for key, (calls, table) in LISTINGS.items():
            name = calls[-1].split("(")[0]
            self.met(key, self.post(listing(calls), table), name, len(calls) + 1)

    def test_of_profiles_are_counted_and_refused(self):
        arguments = [*self.post(job(X), table("PPRINT A\tB")), "--profile", "cl"]
        self.met("replaced-character", arguments, "\\x09", 1)

    def test_of_programs_are_counted_and_refused(self):
        self.write("part.ngc", "G21 G90\nG53 G0 Z0\nM2\n")
        self.met("machine-coordinates", ["part.ngc", "-o", "apt"], "G53", 2)

    def test_kinds_are_those_of_the_manual_and_each_is_met_here(self):
        with open(os.path.join(program.SOURCE, "docs", "losses.md"), encoding="utf-8") as file:
            rows = re.findall(r"^\| `(\S+)` \|.*\| (refuses|is a note) \|", file.read(), re.M)
        listed = self.run_program("check", "--explain", "--format", "json").stdout
        weights = {"warning": "refuses", "note": "is a note"}
        kinds = {
            kind["key"]: weights[kind["severity"]]
            for kind in json.loads(listed)["kinds"]
            if kind["command"] == "post"
        }
        self.assertEqual(rows, [*kinds.items(), ("wide-line", "is a note")])
        self.assertEqual(set(dict(rows)), set(JOBS) | set(LISTINGS) | OTHERS)

    def test_warnings_are_what_strict_refuses(self):
        kinds = json.loads(self.run_program("check", "--explain", "--format", "json").stdout)["kinds"]
        notes = {kind["key"] for kind in kinds if kind["severity"] == "note"} | {"wide-line"}
        for key, (path, table, _, _) in JOBS.items():
            status, losses = self.losses(*self.post(path, table))
            self.assertEqual(status, 0)
            others = ",".join(set(losses) - {key})
            allow = [f"--allow={others}"] if others else []
            status, _ = self.losses("--strict", *allow, *self.post(path, table))
            self.assertEqual(status, 0 if key in notes else 1, key)


class StrictJob(program.ProgramTest):
    def job(self, strict):
        header = HEADER.replace("}", f',"strict":{strict}' + "}")
        self.write("job", job('{"nc":"NC_GOTO"}', '{"nc":"NC_TOOL_CHANGE"}', header=header))

    def status(self, *options):
        return self.run_program("post", *options, "job", "-o", "apt").returncode

    def test_refuses_its_kinds_whatever_is_allowed(self):
        for strict, options, status in (
            ("false", [], 0),
            ("[]", [], 0),
            ("true", [], 1),
            ("true", ["--allow=unevaluated,never-given"], 1),
            ('["unevaluated"]', [], 1),
            ('["unevaluated"]', ["--allow=unevaluated"], 1),
            ('["cut-off","never-given"]', [], 1),
            ('["cut-off"]', [], 0),
            ('["cut-off"]', ["--strict=never-given"], 1),
            ('["cut-off"]', ["--strict", "--allow=unevaluated,never-given"], 0),
        ):
            self.job(strict)
            self.assertEqual(self.status(*options), status, (strict, options))
            self.assertEqual(self.files(), ["apt", "job"] if status == 0 else ["job"])
            if status == 0:
                os.remove(os.path.join(self.folder, "apt"))

    def test_unknown_key_has_its_place(self):
        self.job('["never-givem"]')
        done = self.run_program("post", "job")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertEqual(
            done.stderr.splitlines()[0],
            "job:1:47: error: $.strict: there is no kind 'never-givem' ('ppword check --explain' "
            "lists all); did you mean 'never-given'?",
        )

    def test_other_values_are_refused(self):
        for strict, column, message in (
            ("1", 46, "$.strict: true, or an array of keys, is expected, found 1"),
            ("[1]", 47, "$.strict[0]: a text is expected, found 1"),
        ):
            self.job(strict)
            done = self.run_program("post", "job")
            self.assertEqual((done.returncode, done.stdout), (1, ""))
            self.assertEqual(done.stderr.splitlines()[0], f"job:1:{column}: error: {message}")


if __name__ == "__main__":
    program.main()
