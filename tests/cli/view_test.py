"""ppword view: what is written, and what is refused. view_page_test.py looks at the page in a browser."""

import json
import math
import os
import re
import shutil
import subprocess
import unittest

import page
import program

HEADER = '{"job":1,"program":"P","units":"mm"}\n'
END = '{"end":true}\n'
NO_LIBRARY = (
    "ppword view: no page can be written: this program was built without the library that draws it; "
    "install the Debian package libjs-three, then build the program again\n"
    "Try 'ppword view --help'.\n"
)
KINDS = ("none", "start", "rapid", "feed", "arc", "cycle")


class View(program.ProgramTest):
    def view(self, *arguments):
        done = self.run_program("view", *arguments, "-o", "page.html")
        self.assertEqual(done.returncode, 0, done.stderr)
        with open(os.path.join(self.folder, "page.html"), encoding="utf-8") as file:
            return file.read()

    def data(self, *arguments):
        return page.data_of(self.view(*arguments))

    def job(self, *elements):
        self.write("job", HEADER + "".join(json.dumps(each) + "\n" for each in elements) + END)
        return self.data("job")

    def kinds(self, data):
        return [KINDS[data["shapes"][shape][1]] for shape in page.numbers(data["ofShape"])]

    def example(self, *names):
        for name in names:
            shutil.copy(os.path.join(program.EXAMPLES, name), self.folder)

    # --- What is refused

    def test_page_is_required(self):
        self.write("job", program.JOB)
        done = self.run_program("view", "job")
        wanted = "ppword view: -o FILE is required: the page to write\nTry 'ppword view --help'.\n"
        self.check(done, 2, stderr=wanted)

    def test_refused_input_leaves_the_old_page(self):
        self.write("job", program.JOB.replace("NC_GOTO", "NC_GOTOO"))
        self.write("page.html", "old")
        done = self.run_program("view", "job", "-o", "page.html")
        wanted = (
            "job:2: error: this document has no NC instruction NC_GOTOO; "
            'did you mean "NC_GOTO"?\n'
        )
        self.check(done, 1, stderr=wanted)
        self.assertEqual(self.files(), ["job", "page.html"])
        self.assertEqual(self.read("page.html"), "old")

    def test_page_never_replaces_what_is_read(self):
        self.write("job", program.JOB)
        self.write("table", program.TABLE)
        for output in ("job", "table"):
            done = self.run_program("view", "job", "-t", "table", "-o", output)
            wanted = f"ppword view: the output would replace the input {output}\n"
            self.check(done, 2, stderr=wanted + "Try 'ppword view --help'.\n")

    def test_write_protected_page_is_replaced_only_with_force(self):
        self.write("job", program.JOB)
        self.write("page.html", "old")
        os.chmod(os.path.join(self.folder, "page.html"), 0o444)
        done = self.run_program("view", "job", "-o", "page.html")
        self.assertEqual(done.returncode, 3)
        self.assertEqual(self.read("page.html"), "old")
        done = self.run_program("view", "job", "-o", "page.html", "--force")
        self.check(done, 0, stderr=program.REPORT + "  not verified\npage.html: written\n")

    def test_full_disk(self):
        self.write("job", program.JOB)
        done = self.run_program("view", "job", "-o", "/dev/full")
        wanted = "ppword: error: /dev/full cannot be written: No space left on device\n"
        self.check(done, 3, stderr=wanted)

    def test_options_for_listings_are_refused_for_jobs(self):
        self.write("job", program.JOB)
        done = self.run_program("view", "job", "-o", "page.html", "--units", "mm")
        self.assertEqual(done.returncode, 2)
        self.assertIn("are for listings; a job states its own", done.stderr)

    @unittest.skipIf(program.SANITIZED, "too slow with sanitizers")
    def test_too_large_a_text_is_refused(self):
        comment = json.dumps({"nc": "NC_OUTPUT_COMMENT", "comment": "X" * 1000000}) + "\n"
        self.write("job", HEADER + comment * 40 + END)
        done = self.run_program("view", "job", "-o", "page.html")
        # 33 lines of 1,000,001 bytes fit in less than 32 MiB, 34 do not.
        wanted = (
            "job:36: error: a page shows at most 500000 elements and lines, and 32 MiB of text; "
            "this tool path has more\n"
        )
        self.check(done, 1, stderr=wanted)
        self.assertEqual(self.files(), ["job"])

    def test_without_the_library_nothing_is_drawn(self):
        self.write("job", program.JOB)
        done = subprocess.run(
            [os.environ["PPWORD_WITHOUT_LIBRARY"], "view", "job", "-o", "page.html"],
            cwd=self.folder, capture_output=True, encoding="latin-1", timeout=60, check=False,
        )
        self.check(done, 2, stderr=NO_LIBRARY)
        self.assertEqual(self.files(), ["job"])

    def test_part_that_would_end_its_block_is_not_built_in(self):
        folder = os.path.join(program.SOURCE, "tools", "ppword", "view")
        self.write("page", "")
        self.write("style", "")
        for ending in ("</script", "<!--", "</STYLE"):
            self.write("script", f"const text = '{ending}';")
            done = subprocess.run(
                ["cmake", "-DOUTPUT=out", "-DPAGE=page", "-DSTYLE=style", "-DLICENCE=",
                 "-DSCRIPTS=script", "-P", os.path.join(folder, "EmbedPage.cmake")],
                cwd=self.folder, capture_output=True, encoding="utf-8", timeout=60, check=False,
            )
            self.assertEqual(done.returncode, 1)
            said = " ".join(done.stderr.split())
            wanted = f"script has {ending.lower()}, which would end its block in the page"
            self.assertIn(wanted, said)
            self.assertNotIn("out", self.files())

    # --- The report

    def test_report_is_that_of_post(self):
        shutil.copytree(
            os.path.join(program.SOURCE, "tests", "golden", "post-lacking"), self.folder,
            dirs_exist_ok=True,
        )
        done = self.run_program("view", "job", "-t", "table", "-o", "page.html")
        wanted = self.read("stderr").replace("standard output: written", "page.html: written")
        self.check(done, 0, stderr=wanted)
        done = self.run_program("view", "job", "-t", "table", "-o", "page.html", "--format", "json")
        posted = self.run_program(
            "post", "job", "-t", "table", "-o", "page.html", "--no-verify", "--format", "json")
        self.assertEqual(done.stderr, posted.stderr)

    def test_page_can_go_to_the_standard_output(self):
        self.write("job", program.JOB)
        done = self.run_program("view", "job", "-o", "-")
        self.assertEqual(done.stderr, program.REPORT + "  not verified\nstandard output: written\n")
        self.assertTrue(done.stdout.startswith("<!doctype html>\n"))
        self.assertTrue(done.stdout.endswith("</html>\n\n"))

    # --- The text

    def test_text_is_that_of_post(self):
        self.example("bracket.canon", "mill.pptable", "rim.ngc", "rim.tools")
        for arguments in (
            ("bracket.canon", "-t", "mill.pptable"),
            ("rim.ngc", "-t", "mill.pptable", "--tools", "rim.tools", "--units", "inch"),
        ):
            text = self.run_program("post", *arguments).stdout
            self.assertEqual(self.data(*arguments)["text"], text)

    def test_lines_have_their_places(self):
        self.example("bracket.canon", "mill.pptable")
        data = self.data("bracket.canon", "-t", "mill.pptable")
        posted = ("post", "bracket.canon", "-t", "mill.pptable", "-o", "text", "--map", "map")
        self.run_program(*posted)
        records = [json.loads(line) for line in self.read("map").splitlines()[1:]]
        forms = data["passes"]["forms"]
        sources = [data["sources"][forms[form][0]] for form in page.sums(data["passes"]["ofLine"])]
        self.assertEqual(len(sources), len(records))
        for source, record in zip(sources, records):
            self.assertEqual(source["origin"], record["origin"])
            instruction, sequence = data["instructions"][source["instruction"]]
            self.assertEqual((instruction, sequence), (record["instruction"], record["sequence"]))
        lines = page.sums(data["inputLines"])
        counts = [data["shapes"][shape][2] for shape in page.numbers(data["ofShape"])]
        places = [line for line, count in zip(lines, counts) for _ in range(count)]
        self.assertEqual(places, [record["element"]["line"] for record in records])

    def test_passes_are_those_of_explain(self):
        self.write("table", (
            "*START_NC_INSTRUCTION NC_GOTO\nPPRINT 1.50 of 7 is -0.500\n"
            "GOTO/%MFG_XPOINT,(%MFG_YPOINT*2),((%MFG_ZPOINT+1)/3)\n"
            "A/-%MFG_XPOINT,%MFG_FEED_VALUE,$\nB/%MFG_NOWHERE,%MFG_YPOINT\n*END\n"
            "*START_FORMAT MFG_XPOINT\n%.2f\n*END\n*START_FORMAT MFG_FEED_VALUE\n%+09.3f\n*END\n"
        ))
        points = [[-0.001, 0, 0], [1, 2, 3], [-12.5, 1e-7, 1e9], [0.125, -70, 3.14159265]]
        goto = {"nc": "NC_GOTO", "feedrate": {"value": 250}, "points": points}
        self.write("job", HEADER + json.dumps(goto) + "\n" + END)
        data = self.data("job", "-t", "table")
        lines = len(data["text"].splitlines()) // len(points)
        for point in range(len(points)):
            done = self.run_program("explain", "--job", f"job:2:{point + 1}", "-t", "table")
            wanted = done.stdout.encode("latin-1").decode().partition("\n")[2]
            found = [page.passes_of(data, point * lines + i) for i in range(lines)]
            self.assertEqual("\n".join(found), wanted)

    # --- The motions, worked out by hand

    def test_kinds_of_motions(self):
        data = self.job(
            {"nc": "NC_GOTO", "points": [[0, 0, 50]]},
            {"nc": "NC_RAPID"},
            {"nc": "NC_GOTO", "points": [[1, 0, 5], [2, 0, 5]]},
            {"nc": "NC_FROM", "points": [[9, 9, 9]]},
            {"nc": "NC_RAPID"},
            {"nc": "NC_FEEDRATE", "feedrate": {"value": 100, "type": "linear"}},
            {"nc": "NC_GOTO", "points": [[3, 0, 5]]},
            {"nc": "NC_CYCLE_LOCATION_POINT", "points": [[4, 0, 5]]},
        )
        wanted = "start none rapid feed start none none rapid cycle".split()
        self.assertEqual(self.kinds(data), wanted)
        wanted = [(0, 0, 50), (1, 0, 5), (2, 0, 5), (9, 9, 9), (3, 0, 5), (4, 0, 5)]
        self.assertEqual(page.points(data["points"], data["lengthParts"]), wanted)
        self.assertEqual(data["feeds"], ["", "100 per minute"])

    def arc(self, instruction, change):
        data = self.job({"nc": "NC_GOTO", "points": [[10, 0, 0]]}, {"nc": instruction, **change})
        self.assertEqual(self.kinds(data), ["start", "arc"])
        (center,) = page.points(data["centers"], data["lengthParts"])
        (turn,) = page.points(data["turns"], data["directionParts"])
        return center, [round(part / math.pi, 5) for part in turn]

    def test_arcs(self):
        for end, tangent, normal, turn in (
            ([0, 10, 0], [0, 1, 0], None, [0, 0, 0.5]),
            ([0, 10, 0], [0, -1, 0], None, [0, 0, -1.5]),
            ([0, 10, 0], [0, -1, 0], [0, 0, 1], [0, 0, -1.5]),
            ([-10, 0, 0], [0, 0, 1], [0, -1, 0], [0, -1, 0]),
            ([10, 0, 0], [0, 1, 0], None, [0, 0, 2]),
        ):
            circle = {"center": [0, 0, 0], "radius": 10, "tangent": tangent, "point": end}
            if normal:
                circle["normal"] = normal
            self.assertEqual(self.arc("NC_CIRCLE1", {"circle": circle}), ((0, 0, 0), turn))

    def test_helices(self):
        for end, pitch, direction, turn in (
            ([10, 0, -6], 1.5, [0, 1, 0], 8),
            ([0, 10, -6], 1.5, [0, 1, 0], 8.5),
            ([0, 10, -6], 1.5, [0, -1, 0], -7.5),
            ([0, 10, 1], 0, [0, 1, 0], 0.5),
        ):
            helix = {"center": [0, 0, 0], "radius": 10, "axis": [0, 0, 2], "indirv": direction,
                     "start": [10, 0, 0], "end": end, "pitch": pitch}
            found = self.arc("NC_HELICAL_INTERPOLATION", {"helix": helix})
            self.assertEqual(found, ((0, 0, 0), [0, 0, turn]))

    def test_arc_of_which_nothing_is_known_is_a_line(self):
        data = self.job(
            {"nc": "NC_GOTO", "points": [[10, 0, 0]]},
            {"nc": "NC_CIRCLE1", "circle": {"point": [0, 10, 0]}},
        )
        self.assertEqual(self.kinds(data), ["start", "feed"])

    def test_points_that_are_no_places_are_not_drawn(self):
        data = self.job({"nc": "NC_GOTO", "points": [[0, 0, 0], [1e300, 0, 0], [1, 0, 0], [2, 0, 0]]})
        self.assertEqual(self.kinds(data), ["start", "none", "start", "feed"])

    def test_tools_and_axes(self):
        self.example("drilling.job.jsonl", "five-axis.job.jsonl", "mill.pptable")
        data = self.data("drilling.job.jsonl", "-t", "mill.pptable")
        self.assertEqual(data["tools"], ["", "T3 DRILL D8.5"])
        self.assertEqual([page.sums(data["ofTool"][0]), page.numbers(data["ofTool"][1])], [[1], [1]])
        data = self.data("five-axis.job.jsonl", "-t", "mill.pptable")
        axes = page.points(data["axes"], data["directionParts"])
        self.assertEqual((axes[0], axes[-1]), ((0, 0.34202, 0.939693), (0, -0.34202, 0.939693)))

    # --- The findings

    def test_findings_have_their_places(self):
        shutil.copytree(
            os.path.join(program.SOURCE, "tests", "golden", "post-lacking"), self.folder,
            dirs_exist_ok=True,
        )
        found = self.data("job", "-t", "table")["findings"]
        names = [(each["key"], each["name"], each["count"], each["line"]) for each in found["list"]]
        # The element of line 2 has no point: MFG_XPOINT was never stated then.
        wanted = [
            ("unevaluated", "MFG_NOWHERE", 3, 2), ("unevaluated", "MFG_OTHER", 3, 2),
            ("cut-off", "MFG_XPOINT$", 3, 2), ("never-given", "MFG_XPOINT", 1, 2),
        ]
        self.assertEqual(sorted(names), sorted(wanted))
        places = {}
        for element, number in zip(page.sums(found["elements"]), page.numbers(found["numbers"])):
            places.setdefault(names[number][1], []).append(element)
        self.assertEqual(places, {"MFG_NOWHERE": [0, 1, 2], "MFG_OTHER": [0, 1, 2],
                                  "MFG_XPOINT$": [0, 1, 2], "MFG_XPOINT": [0]})

    def test_values_that_no_machine_can_mean_are_at_their_own_element(self):
        data = self.job(
            {"nc": "NC_GOTO", "points": [[0, 0, 0]]},
            {"nc": "NC_GOTO", "axis": [0, 0, 3], "points": [[1, 0, 0]]},
        )
        found = data["findings"]
        self.assertEqual([each["key"] for each in found["list"]], ["impossible-value"])
        self.assertEqual(page.sums(found["elements"]), [1])

    def test_lost_calls_are_at_the_element_after_them(self):
        folder = os.path.join(program.SOURCE, "tests", "golden", "post-listing-strict")
        shutil.copy(os.path.join(folder, "part.canon"), self.folder)
        data = self.data("part.canon")
        found = data["findings"]
        names = [(each["key"], each["name"], each["count"], each["line"]) for each in found["list"]]
        # The comment "slot (2)" is a statement of its own; only its first place is known.
        wanted = [("lost-move", "NURBS_FEED", 1, 6), ("unknown-call", "WARBLE", 1, 8),
                  ("bare-comment", "COMMENT", 1, 2)]
        self.assertEqual(names, wanted)
        lines = page.sums(data["inputLines"])
        places = [lines[element] for element in page.sums(found["elements"])]
        # Lines 6 and 8. The coolant of line 7 is off already, so that the next element is the end.
        self.assertEqual(list(zip(page.numbers(found["numbers"]), places)), [(0, 9), (1, 9)])

    # --- The page

    def test_policy_allows_the_parts_of_the_page_only(self):
        self.write("job", program.JOB)
        text = self.view("job")
        scripts = re.findall(r"<script>(.*?)</script>", text, re.DOTALL)
        styles = re.findall(r"<style>(.*?)</style>", text, re.DOTALL)
        wanted = "default-src 'none'; base-uri 'none'; form-action 'none'; script-src "
        wanted += " ".join(map(page.digest, scripts)) + "; style-src " + page.digest(*styles)
        self.assertEqual(page.policy_of(text), wanted)
        self.assertGreater(len(scripts), 10)
        self.assertEqual(len(re.findall("<script", text)), len(scripts) + 2)
        self.assertNotRegex(page.without_data(text), r"<[^>]*\s(?:on\w+|style|src|href)\s*=\s*[\"']")

    def test_licence_of_the_library_is_in_the_page(self):
        self.write("job", program.JOB)
        text = self.view("job")
        licence = re.search(r'<script type="text/plain" id="licence">(.*?)</script>', text, re.DOTALL)
        self.assertIn("three.js authors", licence[1])
        self.assertIn("Permission is hereby granted, free of charge", licence[1])

    def test_no_text_of_a_file_is_markup(self):
        self.write("job", program.JOB)
        sound = page.without_data(self.view("job"))
        evil = "</script><script>alert(1)</script><!--<img src=x onerror=alert(2)>\"'&\u2028\u202e"
        self.write("job", HEADER + json.dumps({
            "activity": evil, "kind": "toolChange",
            "tool": {"parameters": {"MFG_TOOL_NUMBER": {"integer": 1}, "MFG_TOOL_NAME": evil}},
        }) + "\n" + json.dumps({"nc": "NC_TOOL_CHANGE"}) + "\n"
            + json.dumps({"nc": "NC_OUTPUT_COMMENT", "comment": evil}) + "\n" + END)
        table = b"*START_NC_INSTRUCTION NC_TOOL_CHANGE\n<!--\xff %MFG_<i>\n*END\n"
        self.write("<b>\udce4", table)
        text = self.view("job", "-t", "<b>\udce4")
        self.assertEqual(page.without_data(text), sound)
        data = page.DATA.search(text)[2]
        self.assertTrue(data.isascii())
        self.assertNotIn("<", data)
        # U+202E turns the direction of writing: it is shown, not obeyed.
        shown = evil.replace("\u202e", "\\xe2\\x80\\xae").replace("\u2028", "\\xe2\\x80\\xa8")
        lines = page.data_of(text)["text"].splitlines()
        # Of the table's two lines the second one is nothing but an unknown parameter.
        self.assertEqual(lines, ["<!--\\xff", "", shown])
        self.assertEqual(page.data_of(text)["tools"], ["", "T1 " + shown])
        self.assertEqual(page.data_of(text)["table"], "<b>\\xe4")

    def test_scripts_write_no_markup(self):
        folder = os.path.join(program.SOURCE, "tools", "ppword", "view", "page")
        scripts = [name for name in os.listdir(folder) if name.endswith(".js")]
        self.assertEqual(len(scripts), 8)
        for name in scripts:
            with open(os.path.join(folder, name), encoding="utf-8") as file:
                wrong = r"HTML\b|document\.write|\beval\b|\bFunction\(|setTimeout\(.[\"']"
                self.assertNotRegex(file.read(), wrong, name)

    def test_names_of_tools_are_shortened(self):
        tool = {"parameters": {"MFG_TOOL_NAME": "D" * 1000}}
        data = self.job({"activity": "A", "tool": tool}, {"nc": "NC_TOOL_CHANGE"})
        self.assertEqual(data["tools"], ["", "D" * 100])

    def test_size_of_a_motion(self):
        sizes = []
        for count in (500, 1500):
            points = [[round(30 * math.cos(i / 9), 4), round(30 * math.sin(i / 9), 4), i / 100]
                      for i in range(count)]
            self.write("job", HEADER + json.dumps({"nc": "NC_GOTO", "points": points}) + "\n" + END)
            sizes.append(len(self.view("job")))
        bytes_of_motion = (sizes[1] - sizes[0]) / 1000
        print(f"a motion takes {bytes_of_motion:.1f} bytes, a page {sizes[0]} and those of its motions")
        # 43 of them are the line of the text.
        self.assertLess(bytes_of_motion, 85)
        self.assertLess(sizes[0], 1100000)

    def test_forms_of_passes_are_few(self):
        self.example("bracket.canon", "mill.pptable")
        passes = self.data("bracket.canon", "-t", "mill.pptable")["passes"]
        self.assertLess(len(passes["forms"]), 50)


if __name__ == "__main__":
    program.main()
