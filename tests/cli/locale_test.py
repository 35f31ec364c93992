"""The same text under a locale with a decimal comma, which LOCPATH must hold."""

import os
import subprocess
import sys

import program
from program import APT, JOB, REPORT

COMMA = {"LC_ALL": "de_DE.UTF-8", "LANGUAGE": "de"}


class DecimalComma(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.environment = {**os.environ, **COMMA}

    def test_locale_is_there(self):
        script = "import locale; locale.setlocale(locale.LC_ALL, ''); print(locale.localeconv()"
        done = subprocess.run(
            [sys.executable, "-c", script + "['decimal_point'])"],
            env=self.environment,
            capture_output=True,
            check=True,
        )
        self.assertEqual(done.stdout, b",\n")

    def test_text_and_report_are_the_same(self):
        self.write("job", JOB)
        done = self.run_program("post", "job", env=self.environment)
        self.check(done, 0, APT, REPORT + "  not verified\nstandard output: written\n")

    def test_formats_of_a_table_print_points(self):
        self.write("job", JOB)
        self.write("table", "*START_FORMAT MFG_XPOINT\n%.3e\n*END\n")
        done = self.run_program("post", "job", "-t", "table", env=self.environment)
        self.assertEqual(
            done.stdout,
            "GOTO/1.000e+00,    2.00000,    3.00000\nGOTO/4.000e+00,    5.00000,    6.00000\n",
        )

    def test_numbers_of_a_job_have_points(self):
        self.write("job", JOB.replace("[1,2,3]", "[1.5,-2.25,0.125]"))
        done = self.run_program("post", "job", env=self.environment)
        self.assertEqual(
            done.stdout.splitlines()[0], "GOTO/    1.50000,   -2.25000,    0.12500"
        )

    def test_table_errors_speak_the_users_language(self):
        self.write("table", "*START_LIST\n*END\n")
        done = self.run_program("check", "table", env=self.environment)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout, "table: refused\n")
        message = done.stderr.encode("latin-1").decode().splitlines()[0]
        self.assertEqual(
            message,
            "table:1:13: error ERR_5006: *START_LIST nennt keinen Parameter; schreiben Sie "
            '"*START_LIST MFG_NAME"',
        )

    def test_language_can_be_chosen_apart_from_the_locale(self):
        environment = {**self.environment, "LANGUAGE": "C"}
        self.check(
            self.run_program("check", "absent", env=environment),
            1,
            "absent: refused\n",
            "absent: error ERR_5009: the PP word table cannot be opened: No such file or "
            "directory\n",
        )


if __name__ == "__main__":
    program.main()
