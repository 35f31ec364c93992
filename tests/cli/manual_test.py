"""The manual page and the help texts tell the same, and what they show as examples runs."""

import json
import os
import re
import shlex
import shutil

import program

NAMES = ("check", "explain", "list", "diff", "document", "post", "verify", "view", "words", "code", "word", "tables", "lsp")
COMMANDS = ["ppword"] + ["ppword " + name for name in NAMES]
OPTION = re.compile(r"^\s*((?:-\w, ?)?--[\w-]+)", re.MULTILINE)


def plain(page):
    """The page with its fonts left out: a line for each line, options as one writes them."""
    text = page.replace("\\-", "-")
    text = re.sub(r"\\f[BIR]", "", text)
    text = re.sub(r'^\.BR (-\w) ", " (--\w+).*$', r"\1,\2", text, flags=re.MULTILINE)
    return re.sub(r"^\.BI? (--[\w-]+).*$", r"\1", text, flags=re.MULTILINE)


class Manual(program.ProgramTest):
    def setUp(self):
        super().setUp()
        with open(os.path.join(program.SOURCE, "docs", "ppword.1"), encoding="ascii") as file:
            self.page = plain(file.read())

    def help_of(self, command):
        arguments = [] if command == "ppword" else [command.split()[1]]
        return self.run_program(*arguments, "--help").stdout

    def options_of(self, command):
        section = self.page.split(f"\n.SS {command}\n")[1]
        section = re.split(r"^\.S[SH] ", section, flags=re.MULTILINE)[0]
        return sorted(OPTION.findall(section))

    def test_every_command_has_the_options_of_its_help(self):
        for command in COMMANDS:
            listed = self.help_of(command).split("Options:")[1]
            listed = re.split(r"\n\n", listed)[0]
            self.assertEqual(self.options_of(command), sorted(OPTION.findall(listed)), command)
            self.assertIn("-h,--help", self.options_of(command))

    def test_every_example_of_the_help_stands_in_the_manual(self):
        manual = self.page.split("\n.SH EXAMPLES\n")[1].splitlines()
        for command in COMMANDS:
            for example in re.findall(r"^  (ppword .*)$", self.help_of(command), re.MULTILINE):
                self.assertIn(example, manual)

    def test_every_example_runs(self):
        shutil.copytree(program.EXAMPLES, self.folder, dirs_exist_ok=True)
        shown = self.page.split("\n.SH EXAMPLES\n")[1]
        examples = re.findall(r"^ppword (.*)$", shown, re.MULTILINE)
        self.assertEqual(len(examples), 55)
        for example in examples:
            done = self.run_program(*shlex.split(example))
            self.assertEqual(done.returncode, 0, example + "\n" + done.stderr)

    def test_every_warning_of_the_help_stands_in_the_manual(self):
        names = re.findall(r"^  ([a-z]+-[a-z]+)  ", self.help_of("ppword check"), re.MULTILINE)
        self.assertEqual(len(names), 4)
        for name in names:
            self.assertIn(f"\n.B {name}\n", self.page)

    def test_every_member_of_a_report_is_described(self):
        described = self.page.split("\n.SH JSON\n")[1].split("\n.TP\n.B post\n")[1]
        words = set(re.findall(r"\w+", described.split("\n.TP\n")[0]))
        listing = os.path.join(program.EXAMPLES, "bracket.canon")
        done = self.run_program("post", listing, "-o", "text", "-v", "--format", "json")
        report = json.loads(done.stderr)
        self.assertGreater(len(report), 20)
        self.assertEqual(set(report) - words, set())

    def test_version_is_that_of_the_program(self):
        version = self.run_program("--version").stdout.strip()
        self.assertIn(f'"{version}"', self.page.splitlines()[0])

    def test_page_has_no_unknown_requests(self):
        known = {"TH", "SH", "SS", "TP", "PP", "B", "BR", "BI", "I", "IR", "RB", "RI", "br", "EX", "EE"}
        self.assertLessEqual(set(re.findall(r"^\.(\w+)", self.page, re.MULTILINE)), known)


if __name__ == "__main__":
    program.main()
