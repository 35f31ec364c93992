"""Calls of the system that fail: what is said, and what is left."""

import errno
import json
import os

import program
from program import APT, JOB, REPORT, VERIFIED

FULL = "standard output cannot be written: No space left on device\n"
DOUBT = "is written, but its place on the disk is not certain: Input/output error\n"
# SQLite does not store the number of an error in its journal.
IN_DATABASE = "disk I/O error"
FOLDER_IS_NOT_SYNCHRONISED = f"fsync:folder:0:{errno.EIO}"
FILE_IS_NOT_SYNCHRONISED = f"fsync:file:0:{errno.EIO}"


class PlaceOfText(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.write("job", JOB)
        self.write("apt", "old\n")

    def test_text_in_a_folder_that_is_not_synchronised_is_written(self):
        done = self.run_with_fault(FOLDER_IS_NOT_SYNCHRONISED, "post", "job", "-o", "apt")
        self.check(done, 5, "", f"{REPORT}{VERIFIED}apt: written\nppword: error: apt {DOUBT}")
        self.assertEqual((self.files(), self.read("apt")), (["apt", "job"], APT))

    def test_programs_get_the_reason(self):
        done = self.run_with_fault(
            FOLDER_IS_NOT_SYNCHRONISED, "post", "job", "-o", "apt", "--format", "json"
        )
        self.assertEqual(done.returncode, 5)
        report = json.loads(done.stderr)
        self.assertEqual(
            (report["written"], report["notCertain"]),
            (True, [{"file": "apt", "reason": "Input/output error"}]),
        )
        self.assertNotIn(
            "notCertain", self.run_program("post", "job", "-o", "apt", "--format", "json").stderr
        )

    def test_map_is_written_too(self):
        done = self.run_with_fault(
            FOLDER_IS_NOT_SYNCHRONISED, "post", "job", "-o", "apt", "--map", "map"
        )
        doubts = f"ppword: error: apt {DOUBT}ppword: error: map {DOUBT}"
        self.check(done, 5, "", f"{REPORT}{VERIFIED}apt: written\n{doubts}")
        self.assertEqual(self.files(), ["apt", "job", "map"])

    def test_text_that_is_not_synchronised_leaves_the_old_file(self):
        done = self.run_with_fault(FILE_IS_NOT_SYNCHRONISED, "post", "job", "-o", "apt")
        self.check(done, 3, "", "ppword: error: apt cannot be written: Input/output error\n")
        self.assertEqual((self.files(), self.read("apt")), (["apt", "job"], "old\n"))

    def test_folder_that_cannot_be_opened_leaves_the_old_file(self):
        os.mkdir(os.path.join(self.folder, "out"))
        self.write("out/apt", "old\n")
        fault = f"open:out:0:{errno.EACCES}"
        done = self.run_with_fault(fault, "post", "job", "-o", "out/apt")
        self.check(done, 3, "", "ppword: error: out/apt cannot be written: Permission denied\n")
        self.assertEqual((os.listdir(f"{self.folder}/out"), self.read("out/apt")), (["apt"], "old\n"))


class Records(program.ProgramTest):
    """Each text is synchronised, and the records of all jobs once, in a file as in a pipe."""

    JOBS = 5

    def post(self, fault):
        names = [f"part{number}.jsonl" for number in range(self.JOBS)]
        for name in names:
            self.write(name, JOB)
        command = ("post", *names, "--output-dir", "out", "--format", "jsonl")
        with open(os.path.join(self.folder, "records"), "w", encoding="ascii") as records:
            return self.run_with_fault(fault, *command, stdout=records)

    def test_file_of_records_is_synchronised_once(self):
        self.check(self.post(f"fsync:file:{self.JOBS + 1}:{errno.EIO}"), 0)
        records = [json.loads(line) for line in self.read("records").splitlines()]
        self.assertEqual([record["status"] for record in records], [0] * (self.JOBS + 1))
        self.assertEqual(records[-1]["totals"]["written"], self.JOBS)

    def test_records_that_are_not_synchronised_are_an_error(self):
        done = self.post(f"fsync:file:{self.JOBS}:{errno.EIO}")
        self.assertEqual(done.returncode, 3)
        message = "standard output cannot be written: Input/output error"
        self.assertEqual(
            json.loads(done.stderr),
            {"status": 3, "diagnostics": [{"severity": "error", "message": message}]},
        )
        self.assertEqual(len(os.listdir(os.path.join(self.folder, "out"))), self.JOBS)


class PlaceOfDocument(program.ProgramTest):
    def commands(self):
        return self.run_program("document", "show", "d", "pp-commands").stdout

    def test_new_document_in_a_folder_that_is_not_synchronised_is_written(self):
        done = self.run_with_fault(FOLDER_IS_NOT_SYNCHRONISED, "document", "new", "d")
        self.check(done, 5, "", f"ppword: error: d {DOUBT}")
        self.assertEqual(self.files(), ["d"])
        self.assertEqual(self.run_program("document", "show", "d").returncode, 0)

    def test_new_document_in_a_folder_that_cannot_be_opened_is_not_there(self):
        os.mkdir(os.path.join(self.folder, "out"))
        done = self.run_with_fault(f"open:out:0:{errno.EACCES}", "document", "new", "out/d")
        self.check(done, 3, "", "ppword: error: out/d cannot be written: Permission denied\n")
        self.assertEqual(os.listdir(f"{self.folder}/out"), [])

    def test_new_document_that_is_not_synchronised_is_not_there(self):
        done = self.run_with_fault(FILE_IS_NOT_SYNCHRONISED, "document", "new", "d")
        self.check(done, 3, "", f"ppword: error: d cannot be written: {IN_DATABASE}\n")
        self.assertEqual(self.files(), [])

    def test_change_is_written_when_what_comes_after_its_commit_fails(self):
        self.run_program("document", "new", "d")
        add = ("document", "add-command", "d", "NC_GOTO")
        done = self.run_with_fault(FOLDER_IS_NOT_SYNCHRONISED, *add)
        doubt = DOUBT.replace("Input/output error", IN_DATABASE)
        self.check(done, 5, "", f"ppword: error: d {doubt}")
        self.assertIn("NC_GOTO", self.commands())
        self.assertEqual(self.files(), ["d"])

    def test_change_that_is_not_synchronised_is_undone(self):
        self.run_program("document", "new", "d")
        before = self.commands()
        add = ("document", "add-command", "d", "NC_GOTO")
        for calls in range(2):
            fault = f"fsync:file:{calls}:{errno.EIO}"
            self.check(
                self.run_with_fault(fault, *add),
                3,
                "",
                f"ppword: error: d cannot be written: {IN_DATABASE}\n",
            )
            self.assertEqual(self.commands(), before)


class SuccessThatCannotBePrinted(program.ProgramTest):
    def run_document(self, *arguments):
        with open("/dev/full", "w", encoding="ascii") as full:
            return self.run_program("document", *arguments, stdout=full)

    def test_saved_document_gives_5(self):
        message = f"ppword: error: d is written, but {FULL}"
        self.check(self.run_document("new", "d"), 5, "", message)
        self.check(self.run_document("add-command", "d", "NC_GOTO"), 5, "", message)
        report = json.loads(self.run_document("reset", "d", "--format", "json").stderr)
        self.assertEqual(
            report,
            {
                "status": 5,
                "diagnostics": [
                    {"severity": "error", "message": message[len("ppword: error: ") : -1]}
                ],
            },
        )
        shown = self.run_program("document", "show", "d", "pp-commands")
        self.assertIn("NC_GOTO", shown.stdout)

    def test_nothing_saved_gives_3(self):
        self.run_program("document", "new", "d")
        for action in ("show", "upgrade"):
            self.check(self.run_document(action, "d"), 3, "", f"ppword: error: {FULL}")


class MessagesThatCannotBePrinted(program.ProgramTest):
    def run_in_silence(self, *arguments):
        with open("/dev/full", "w", encoding="ascii") as full:
            return self.run_program(*arguments, stderr=full)

    def test_exit_status_is_the_same(self):
        self.write("job", JOB)
        for form in ("text", "json"):
            self.check(self.run_in_silence("post", "job", "-o", "apt", "--format", form), 0)
            self.assertEqual(self.read("apt"), APT)
            self.check(self.run_in_silence("post", "job", "-o", "no/apt", "--format", form), 3)
        self.check(self.run_in_silence("post", "job", "--output-dir", "out"), 0)
        self.check(self.run_in_silence("post", "absent"), 1)
        self.check(self.run_in_silence("post", "--nosuch"), 2)


class Tables(program.ProgramTest):
    ERROR = "ERR_5009: the PP word table cannot be opened: "
    COMMANDS = (
        ["check", "table"],
        ["check", "--lint", "table"],
        ["check", "table", "--format", "json"],
        ["list", "table", "formats"],
        ["words", "table"],
        ["diff", "table", "other"],
        ["post", "job", "-t", "table"],
        ["post", "job", "-t", "table", "-o", "apt", "--map", "map"],
    )

    def setUp(self):
        super().setUp()
        self.write("table", "*START_FORMAT MFG_XPOINT\n%.3f\n*END\n*START_SYNTAXES\nRAPID\n*END\n")
        self.write("other", "*START_FORMAT MFG_XPOINT\n%.2f\n*END\n")
        self.write("job", JOB)

    def test_table_that_cannot_be_opened_again_is_an_error(self):
        for command in self.COMMANDS:
            sound = self.run_program(*command)
            for openings in range(100):
                done = self.run_with_fault(f"open:table:{openings}:{errno.EMFILE}", *command)
                if (done.returncode, done.stdout) == (sound.returncode, sound.stdout):
                    break
                self.assertEqual(done.returncode, 2 if command[0] == "diff" else 1, command)
                said = done.stdout if "json" in command else done.stderr
                self.assertIn("Too many open files", said, (command, openings))
            self.assertGreater(openings, 1, command)
            self.assertLess(openings, 99, command)

    def test_table_that_cannot_be_read_to_its_end_is_an_error(self):
        self.write("table", "*START_FORMAT MFG_XPOINT\n%.3f\n*END\n" * 5000)
        for command in (["check", "table"], ["check", "--lint", "table"]):
            self.check(
                self.run_with_fault("fread::0:9", *command),
                1,
                "table: refused\n",
                f"table: error {self.ERROR}Bad file descriptor\n",
            )


if __name__ == "__main__":
    program.main()
