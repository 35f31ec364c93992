"""The page of ppword view in a browser: what is drawn and shown, clicks, keys, the policy."""

import base64
import functools
import json
import math
import os
import shutil
import unittest

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

import page
import program

HERE = os.path.dirname(os.path.abspath(__file__))
EVIL = "</script><script>injected=1</script><!--<img src=x onerror=injected=2>\"'&"
# A square, and a line across its middle.
SQUARE = [[0, 0, 0], [100, 0, 0], [100, 100, 0], [0, 100, 0], [100, 0, 0]]
# What drawing needs here: no card, no sandbox for a test that root runs.
ARGUMENTS = (
    "--headless=new", "--no-sandbox", "--disable-dev-shm-usage", "--use-gl=angle",
    "--use-angle=swiftshader", "--enable-unsafe-swiftshader", "--hide-scrollbars",
    "--force-device-scale-factor=1", "--window-size=1400,900",
)


def start(*more):
    options = webdriver.ChromeOptions()
    for argument in (*ARGUMENTS, *more):
        options.add_argument(argument)
    options.binary_location = "/usr/bin/chromium"
    options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


class Page(program.ProgramTest):
    @classmethod
    def setUpClass(cls):
        cls.browser = start()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    # --- Pages

    @classmethod
    @functools.lru_cache
    def page_of(cls, name, *arguments):
        """The page of an example, written once."""
        case = cls("page_of")
        case.setUp()
        try:
            shutil.copytree(program.EXAMPLES, case.folder, dirs_exist_ok=True)
            return case.page_of_job(name, *arguments)
        finally:
            case.doCleanups()

    def page_of_job(self, name, *arguments):
        done = self.run_program("view", name, *arguments, "-o", "page.html")
        self.assertEqual(done.returncode, 0, done.stderr)
        with open(os.path.join(self.folder, "page.html"), encoding="utf-8") as file:
            return file.read()

    def page_of_elements(self, *elements):
        lines = ['{"job":1,"program":"P","units":"mm"}', *map(json.dumps, elements), '{"end":true}']
        self.write("job", "\n".join(lines) + "\n")
        return self.page_of_job("job")

    def open(self, text, browser=None, name="page.html"):
        self.browser.get_log("performance")
        self.write(name, text)
        browser = browser or self.browser
        browser.get("file://" + os.path.join(self.folder, name))
        WebDriverWait(browser, 20).until(lambda found: self.drawn(found) is not None)

    def drawn(self, browser=None):
        """How many calls, lines and triangles the last picture took."""
        data = (browser or self.browser).execute_script(
            "const {calls, lines, triangles} = document.getElementById('canvas').dataset;"
            "return [calls, lines, triangles].map(Number)"
        )
        return None if None in data else data

    def find(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def texts(self, selector):
        return [each.text for each in self.browser.find_elements(By.CSS_SELECTOR, selector)]

    def press(self, *keys):
        for key in keys:
            ActionChains(self.browser).send_keys(key).perform()

    def settle(self):
        """Waits for two pictures."""
        self.browser.execute_async_script(
            "const done = arguments[0];"
            "requestAnimationFrame(() => requestAnimationFrame(() => setTimeout(done)))"
        )

    def chosen(self):
        """The number and the text of the chosen line; nothing when none is chosen."""
        # At once: scrolling makes other rows.
        rows = self.browser.execute_script(
            "return [...document.querySelectorAll('.row[aria-selected=true]')].map((row) =>"
            "  ['.number', '.words'].map((part) => row.querySelector(part).textContent))"
        )
        self.assertLess(len(rows), 2)
        return (int(rows[0][0]), rows[0][1]) if rows else None

    def click(self, x, y):
        """Clicks in the picture, so many pixels from its middle."""
        ActionChains(self.browser).move_to_element_with_offset(self.find("#canvas"), x, y).click().perform()

    def requests(self):
        """The addresses that were asked for since the page was opened."""
        found = []
        for entry in self.browser.get_log("performance"):
            message = json.loads(entry["message"])["message"]
            if message["method"] == "Network.requestWillBeSent":
                found.append(message["params"]["request"]["url"])
        return found

    def complaints(self):
        return [entry["message"] for entry in self.browser.get_log("browser")
                if entry["level"] == "SEVERE"]

    # --- Choosing

    def test_click_on_a_motion_shows_its_line(self):
        self.open(self.page_of_elements({"nc": "NC_GOTO", "points": SQUARE}))
        self.press("1")
        self.settle()
        self.click(0, 0)
        self.assertEqual(self.chosen(), (5, "GOTO/  100.00000,    0.00000,    0.00000"))
        self.assertIn("line 2 of job, point 5", self.find("#details").text)
        self.click(0, 20)
        self.assertIsNone(self.chosen())

    def test_click_on_a_side_of_the_square(self):
        self.open(self.page_of_elements({"nc": "NC_GOTO", "points": SQUARE}))
        self.press("1")
        self.settle()
        # The square fills nine tenths of the picture's smaller side.
        size = self.find("#canvas").size
        self.click(round(0.45 * min(size["width"], size["height"])), 9)
        self.assertEqual(self.chosen(), (3, "GOTO/  100.00000,  100.00000,    0.00000"))

    def test_click_on_a_line_shows_its_motion(self):
        self.open(self.page_of("bracket.canon", "-t", "mill.pptable"))
        calls, lines, _ = self.drawn()
        self.find("#line-16").click()
        self.settle()
        self.assertEqual(self.chosen(), (17, "GOTO/    0.0000,    0.0000,   60.0000"))
        # Its place is marked: there is no motion before it.
        self.assertEqual(self.drawn()[0], calls + 1)
        self.find("#line-24").click()
        self.settle()
        self.assertGreater(self.drawn()[2], 0)
        facts = self.find("#details").text
        for fact in ("NC_GOTO", "line 33 of bracket.canon", "rapid", "X 0.0000 Y 0.0000 Z 60.0000",
                     "X -35.0000 Y 0.0000 Z 60.0000", "35.0000 millimetres", "mill.pptable:129:1",
                     "GOTO/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT"):
            self.assertIn(fact, facts)
        self.assertEqual(
            self.find("#status").text.split("\n"),
            ["line 25 of 596", "NC_GOTO", "X -35.0000 Y 0.0000 Z 60.0000", "tool T1", "rapid"],
        )
        self.assertEqual(self.drawn()[1], lines)

    def test_passes_are_those_of_explain(self):
        shutil.copytree(program.EXAMPLES, self.folder, dirs_exist_ok=True)
        for name, table, place, first in (
            ("arcs.job.jsonl", "mill.pptable", "7", 4), ("drilling.job.jsonl", "mill.pptable", "14:3", 12),
            ("five-axis.job.jsonl", "mill-turn.pptable", "14:2", 13),
        ):
            explained = self.run_program("explain", "--job", f"{name}:{place}", "-t", table)
            wanted = explained.stdout.encode("latin-1").decode().split("\n\u00ab")[1:]
            self.assertGreater(len(wanted), 0)
            self.open(self.page_of(name, "-t", table))
            for i, passes in enumerate(wanted):
                self.browser.execute_script(f"document.getElementById('line-{first + i}').click()")
                shown = self.find(".passes").get_attribute("textContent")
                self.assertEqual(shown.rstrip("\n"), "\u00ab" + passes.rstrip("\n"))

    # --- Keys

    def test_keys_choose(self):
        self.open(self.page_of("drilling.job.jsonl", "-t", "mill.pptable"))
        steps = (
            (Keys.ARROW_DOWN, 1), (Keys.ARROW_DOWN, 2), (Keys.ARROW_UP, 1), (Keys.END, 28),
            (Keys.HOME, 1), (Keys.ARROW_RIGHT, 11), (Keys.ARROW_RIGHT, 12), (Keys.ARROW_LEFT, 11),
        )
        for key, line in steps:
            self.press(key)
            self.assertEqual(self.chosen()[0], line)
        self.press(Keys.ESCAPE)
        self.assertIsNone(self.chosen())

    def test_keys_turn_the_picture(self):
        self.open(self.page_of("drilling.job.jsonl", "-t", "mill.pptable"))
        seen = {self.letters()}
        for count, key in enumerate(("1", "2", "3", "4", "+", "f"), 2):
            self.press(key)
            self.settle()
            seen.add(self.letters())
            # "4" looks as at first, and so does "f" after it.
            self.assertEqual(len(seen), min(count, 4) + (count > 5))

    def letters(self):
        """Where the letters of the axes are."""
        return tuple(self.browser.execute_script(
            "return [...document.querySelectorAll('.axis')].map((each) => each.style.transform)"))

    def test_every_key_of_the_help_is_a_key(self):
        self.open(self.page_of("drilling.job.jsonl", "-t", "mill.pptable"))
        self.press("?")
        self.assertTrue(self.find("#help").get_attribute("open"))
        self.assertEqual(len(self.texts("#keys tr")), 28)
        self.find("#help summary").click()
        self.assertIn("three.js authors", self.find("#licence-text").text)
        self.press(Keys.ESCAPE)
        self.assertFalse(self.find("#help").get_attribute("open"))

    def test_whole_page_is_reached_with_the_tabulator(self):
        self.open(self.page_of("drilling.job.jsonl", "-t", "mill.pptable"))
        reached = []
        for _ in range(18):
            self.press(Keys.TAB)
            focus = self.browser.switch_to.active_element
            reached.append(focus.get_attribute("id") or focus.tag_name)
        wanted = ["search", "view-fit", "view-top", "view-front", "view-side", "view-corner", "theme",
                  "help-open", "lines", "canvas", "summary", "kind-rapid", "kind-cycle", "tool-0", "tool-1", "side"]
        self.assertEqual(reached[:len(wanted)], wanted)

    # --- Search and findings

    def test_search(self):
        self.open(self.page_of("bracket.canon", "-t", "mill.pptable"))
        self.press("/", "loadtl/")
        self.assertEqual(self.find("#matches").text, "1 of 3")
        self.assertEqual(self.chosen(), (21, "LOADTL/1"))
        self.assertEqual(self.texts("mark"), ["LOADTL/"])
        self.press(Keys.ENTER)
        self.assertEqual((self.find("#matches").text, self.chosen()[1]), ("2 of 3", "LOADTL/2"))
        ActionChains(self.browser).key_down(Keys.SHIFT).send_keys(Keys.ENTER).key_up(Keys.SHIFT).perform()
        self.assertEqual(self.chosen()[1], "LOADTL/1")
        self.press("0000")
        self.assertEqual(self.find("#matches").text, "not found")

    def test_hostile_names_are_texts(self):
        text = self.page_of_elements(
            {"activity": EVIL, "kind": "toolChange", "tool": {"parameters": {
                "MFG_TOOL_NUMBER": {"integer": 1}, "MFG_TOOL_NAME": EVIL}}},
            {"nc": "NC_TOOL_CHANGE"},
            {"nc": "NC_OUTPUT_COMMENT", "comment": EVIL},
        )
        self.open(text)
        self.press("/")
        self.press(EVIL)
        # The catalogue prints the name of a tool too.
        self.assertEqual(self.find("#matches").text, "1 of 2")
        self.press(Keys.ENTER)
        self.assertEqual(self.chosen()[1], EVIL)
        self.assertEqual(self.texts("#tools label"), ["T1 " + EVIL])
        self.assertIn(EVIL, self.find("#status").text)
        counts = self.browser.execute_script(
            "return [document.images.length, document.scripts.length, window.injected ?? null]")
        self.assertEqual(counts, [0, text.count("<script"), None])
        self.assertEqual(self.complaints(), [])

    def test_findings_are_marked(self):
        folder = os.path.join(program.SOURCE, "tests", "golden", "post-lacking")
        shutil.copytree(folder, self.folder, dirs_exist_ok=True)
        self.open(self.page_of_job("job", "-t", "table"))
        self.assertEqual(len(self.texts(".finding")), 4)
        self.assertIn("warning unevaluated", self.texts(".finding")[0])
        self.assertEqual(self.texts(".flag").count("\u25b2"), 3)
        self.press("w", "w")
        self.assertIn("a parameter cannot be evaluated: MFG_NOWHERE", self.find("#details").text)
        self.browser.find_elements(By.CLASS_NAME, "finding")[3].click()
        self.assertIn("line 2 of job", self.find("#details").text)

    # --- What is shown

    def test_legend_hides_motions(self):
        self.open(self.page_of("bracket.canon", "-t", "mill.pptable"))
        counts = []
        for choice in ("#kind-rapid", "#kind-rapid", "#tool-2"):
            self.find(choice).click()
            self.settle()
            counts.append(self.drawn()[1])
        # 59 traverses, of which the first only says where the tool is; 418 moves at feed rate; 3 axes.
        self.assertEqual(counts[:2], [418 + 3, 58 + 418 + 3])
        self.assertLess(counts[2], counts[1])

    def test_hidden_tools_have_no_signs(self):
        self.open(self.page_of("drilling.job.jsonl", "-t", "mill.pptable"))
        # Five holes.
        self.assertEqual(self.find("#canvas").get_attribute("data-points"), "5")
        self.find("#tool-1").click()
        self.settle()
        self.assertEqual(self.find("#canvas").get_attribute("data-points"), "0")

    def test_light_and_dark(self):
        text = self.page_of("drilling.job.jsonl", "-t", "mill.pptable")
        grounds = []
        for scheme in ("light", "dark"):
            media = {"features": [{"name": "prefers-color-scheme", "value": scheme}]}
            self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", media)
            self.open(text)
            grounds.append(self.ground())
            self.press("l")
            grounds.append(self.ground())
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": []})
        light, dark = grounds[:2]
        self.assertNotEqual(light, dark)
        self.assertEqual(grounds, [light, dark, dark, light])

    def ground(self):
        return self.find("#text").value_of_css_property("background-color")

    def test_picture_is_the_one_that_was_looked_at(self):
        self.open(self.page_of("helix.job.jsonl", "-t", "mill-turn.pptable"))
        self.find("#legend summary").click()
        self.browser.execute_script("document.activeElement.blur()")
        self.settle()
        shown = self.find("#picture").screenshot_as_png
        stored = os.path.join(HERE, "view", "helix.png")
        if "PPWORD_NEW_PICTURES" in os.environ:
            with open(stored, "wb") as file:
                file.write(shown)
        with open(stored, "rb") as file:
            looked_at = file.read()
        # What is compared is not blind: without the arcs, and from above, the picture is another.
        self.find("#legend summary").click()
        self.find("#kind-arc").click()
        self.find("#legend summary").click()
        self.settle()
        without_arcs = self.find("#picture").screenshot_as_png
        self.press("1")
        self.settle()
        from_above = self.find("#picture").screenshot_as_png
        found = self.differences(looked_at, shown, without_arcs, from_above)
        print("pictures differ by", [round(each, 2) for each in found])
        self.assertLess(found[0], 0.6)
        self.assertGreater(min(found[1:]), 1.5)

    def differences(self, stored, *shown):
        """How much pictures differ from a stored one: of the grey values, 0 to 255, the average.

        All are made smaller first, so that how a line is smoothed makes no difference.
        """
        pictures = [base64.b64encode(each).decode() for each in (stored, *shown)]
        self.browser.get("about:blank")
        return self.browser.execute_async_script(COMPARE, pictures)

    # --- Safety and size

    def test_page_asks_for_nothing_and_keeps_its_policy(self):
        self.open(self.page_of("bracket.canon", "-t", "mill.pptable"))
        self.press(Keys.ARROW_RIGHT, "w", "1", "l")
        self.assertEqual(self.requests(), ["file://" + os.path.join(self.folder, "page.html")])
        self.assertEqual(self.complaints(), [])

    def test_policy_stops_what_is_not_of_the_page(self):
        self.open(self.page_of("drilling.job.jsonl", "-t", "mill.pptable"))
        self.browser.execute_script(
            "const script = document.createElement('script');"
            "script.textContent = 'window.injected = 1';"
            "const image = document.createElement('img');"
            "image.src = 'http://127.0.0.1:9/x.png';"
            "image.setAttribute('onerror', 'window.injected = 2');"
            "document.body.append(script, image);"
        )
        self.settle()
        self.assertIsNone(self.browser.execute_script("return window.injected ?? null"))
        self.assertEqual(len([each for each in self.complaints() if "Content Security Policy" in each]), 3)

    def test_many_motions_take_few_calls(self):
        count = 200000
        text = self.page_of_elements({"nc": "NC_GOTO", "points": [[0, 0, 0], [1, 0, 0]]})
        data = page.data_of(text)
        angles = [i / 200 for i in range(count)]
        data["text"] = "".join(f"GOTO/{i}\n" for i in range(count))
        data["ofShape"] = page.column([0] + [1] * (count - 1))
        data["inputLines"] = page.column([2] + [0] * (count - 1))
        data["passes"]["ofLine"] = page.column([0] * count)
        data["ofPoint"] = ["", ""]
        data["points"] = [
            page.steps([round(1e5 * (20 + i / 5000) * part(angle)) for i, angle in enumerate(angles)])
            for part in (math.cos, math.sin, math.tanh)
        ]
        self.open(page.with_data(text, data))
        calls, lines, triangles = self.drawn()
        self.assertEqual(lines, count - 1 + 3)
        self.assertLessEqual(calls, 4)
        self.assertEqual(triangles, 0)
        self.press(Keys.END)
        self.settle()
        self.assertEqual(self.chosen()[0], count)
        self.assertLessEqual(self.drawn()[0], 8)
        self.assertLess(self.drawn()[2], 100)
        self.assertLess(len(self.browser.find_elements(By.CLASS_NAME, "row")), 100)
        self.press("1")
        self.settle()
        self.click(0, 0)

    def test_empty_path(self):
        self.open(self.page_of_elements())
        self.press(Keys.ARROW_DOWN, Keys.ARROW_RIGHT, "w", "f", Keys.END)
        self.assertIsNone(self.chosen())
        self.assertEqual(self.find("#status").text, "0 lines, 0 findings")
        self.assertEqual(self.complaints(), [])

    def test_without_drawing_the_text_is_there(self):
        text = self.page_of("drilling.job.jsonl", "-t", "mill.pptable")
        browser = start("--disable-3d-apis")
        try:
            self.write("page.html", text)
            browser.get("file://" + os.path.join(self.folder, "page.html"))
            shown = browser.find_element(By.ID, "no-picture").text
            self.assertTrue(shown.startswith("This browser draws no picture: WebGL is switched off"))
            ActionChains(browser).send_keys(Keys.ARROW_DOWN).perform()
            self.assertIn("NC_START_MACRO", browser.find_element(By.ID, "details").text)
            self.assertNotIn("undefined", browser.find_element(By.TAG_NAME, "body").text)
        finally:
            browser.quit()


COMPARE = """
const [pictures, done] = arguments;
function load(data) {
  const image = new Image();
  return new Promise((ready) => {
    image.onload = () => ready(image);
    image.src = "data:image/png;base64," + data;
  });
}
function greys(image, width, height) {
  const canvas = document.createElement("canvas");
  Object.assign(canvas, { width, height });
  const context = canvas.getContext("2d");
  context.imageSmoothingQuality = "high";
  context.drawImage(image, 0, 0, width, height);
  const { data } = context.getImageData(0, 0, width, height);
  return Array.from({ length: width * height }, (_, i) => (data[4 * i] + data[4 * i + 1] + data[4 * i + 2]) / 3);
}
Promise.all(pictures.map(load)).then((images) => {
  const [stored, ...shown] = images.map((image) => greys(image, 120, 120));
  done(shown.map((greys) => greys.reduce((sum, grey, i) => sum + Math.abs(grey - stored[i]), 0) / greys.length));
});
"""


if __name__ == "__main__":
    program.main()
