"""Runs of many jobs: their files, their records, and what one that fails does to the others."""

import json
import os
import signal
import subprocess
import time

import program
from program import APT, JOB, TABLE, VERIFIED

RESOURCE = ',"resource":{"name":"M","table":"part0.apt"}}\n'
END = "ppword post: {}\nTry 'ppword post --help'.\n"


class ManyJobs(program.ProgramTest):
    def write_jobs(self, count):
        names = [f"part{number}.jsonl" for number in range(count)]
        for number, name in enumerate(names):
            self.write(name, JOB.replace("[1,2,3]", f"[{number},2,3]"))
        return names

    def folder_files(self, folder="out"):
        return sorted(os.listdir(os.path.join(self.folder, folder)))

    def post(self, *arguments):
        return self.run_program("post", *arguments, "--output-dir", "out")

    def records(self, *arguments):
        done = self.post(*arguments, "--format", "jsonl")
        self.assertEqual(done.stderr, "")
        records = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertEqual({record["layout"] for record in records}, {1})
        return done.returncode, records[:-1], records[-1]

    def check_mistake(self, mistake, *arguments):
        self.check(self.run_program("post", *arguments), 2, "", END.format(mistake))
        self.assertNotIn("out", self.files())


class Texts(ManyJobs):
    def test_each_job_has_a_file(self):
        names = self.write_jobs(3)
        done = self.post(*names)
        reports = "".join(
            f"part{n}.jsonl: 2 elements, 2 lines\n{VERIFIED}out/part{n}.apt: written\n" for n in range(3)
        )
        totals = "3 jobs: 3 written, 0 not written; 6 elements, 6 lines\n"
        self.check(done, 0, "", reports + totals)
        self.assertEqual(self.folder_files(), ["part0.apt", "part1.apt", "part2.apt"])
        self.assertEqual(self.read("out/part1.apt"), APT)

    def test_processes_write_what_one_writes(self):
        names = self.write_jobs(150)
        for processes in ("1", "4", "256"):
            done = self.post(*names, "-j", processes)
            self.assertEqual((done.returncode, done.stdout), (0, ""))
            self.assertEqual(
                done.stderr.splitlines()[-1],
                "150 jobs: 150 written, 0 not written; 300 elements, 300 lines",
            )
            texts = [self.read(f"out/part{number}.apt") for number in range(150)]
            wanted = [APT.replace("    1.00000,", f"{number:11.5f},") for number in range(150)]
            self.assertEqual(texts, wanted)
            self.assertEqual(len(self.folder_files()), 150)

    def test_every_job_has_a_document_and_a_table_of_its_own(self):
        header = '{"job":1,"program":"P","units":"mm","designParameters":{"LEN":%d}}\n'
        lines = '{"nc":"NC_GOTO","points":[[1,2,3]]}\n{"nc":"NC_RAPID"}\n{"end":true}\n'
        self.write("table", "*START_NC_INSTRUCTION NC_RAPID\nRAPID/%(LEN)\n*END\n")
        for value in (1, 2):
            self.write(f"p{value}.jsonl", header % value + lines)
        self.write("other.jsonl", JOB.replace("}\n{\"end", '}\n{"nc":"NC_RAPID"}\n{"end'))
        done = self.post("p1.jsonl", "other.jsonl", "p2.jsonl", "-t", "table")
        self.assertEqual(done.returncode, 0, done.stderr)
        for value in (1, 2):
            alone = self.run_program("post", f"p{value}.jsonl", "-t", "table")
            self.assertEqual(self.read(f"out/p{value}.apt"), alone.stdout)
            self.assertEqual(float(alone.stdout.splitlines()[-1].partition("/")[2]), value)
        alone = self.run_program("post", "other.jsonl", "-t", "table")
        self.assertEqual(self.read("out/other.apt"), alone.stdout)
        self.assertNotRegex(alone.stdout.splitlines()[-1], r"\d")

    def test_reports_of_a_table_are_the_same_for_every_job(self):
        names = self.write_jobs(3)
        table = os.path.join(program.EXAMPLES, "mill.pptable")
        alone = self.run_program("post", names[0], "-t", table, "-v")
        many = self.post(*names, "-t", table, "-v")
        first = alone.stderr.split("load report:\n")[1].split(names[0])[0]
        self.assertIn("NC_TOOL_CHANGE", first)
        self.assertEqual(many.stderr.count(first), 3)

    def test_an_older_text_is_replaced_and_others_stay(self):
        os.mkdir(os.path.join(self.folder, "out"))
        self.write("out/part0.apt", "old\n")
        self.write("out/rest", "rest\n")
        self.assertEqual(self.post(*self.write_jobs(1)).returncode, 0)
        self.assertEqual(self.read("out/part0.apt"), APT.replace("1.00000", "0.00000", 1))
        self.assertEqual(self.read("out/rest"), "rest\n")


class Failures(ManyJobs):
    def test_one_job_does_not_stop_the_others(self):
        names = self.write_jobs(3)
        self.write("part1.jsonl", JOB.replace("NC_GOTO", "NC GOTO"))
        os.mkdir(os.path.join(self.folder, "out"))
        self.write("out/part1.apt", "old\n")
        for processes in ("1", "3"):
            status, records, totals = self.records(*names, "absent.jsonl", "-j", processes)
            self.assertEqual(status, 1)
            by_file = {record["file"]: record for record in records}
            self.assertEqual(
                [by_file[name]["status"] for name in [*names, "absent.jsonl"]], [0, 1, 0, 1]
            )
            self.assertEqual(by_file["part1.jsonl"]["written"], False)
            self.assertEqual(by_file["absent.jsonl"]["diagnostics"][0]["severity"], "error")
            self.assertEqual(
                totals,
                {
                    "layout": 1,
                    "status": 1,
                    "totals": {
                        "jobs": 4,
                        "written": 2,
                        "notWritten": 2,
                        "elements": 4,
                        "lines": 4,
                    },
                },
            )
            self.assertEqual(self.read("out/part1.apt"), "old\n")
            self.assertEqual(self.folder_files(), ["part0.apt", "part1.apt", "part2.apt"])

    def test_strict_refuses_one(self):
        names = self.write_jobs(2)
        self.write("part1.jsonl", JOB.replace('{"end"', '{"nc":"NC_REAMING"}\n{"end"'))
        status, records, _ = self.records(*names, "--strict")
        self.assertEqual(
            (status, [(each["file"], each["status"], each["written"]) for each in records]),
            (1, [("part0.jsonl", 0, True), ("part1.jsonl", 1, False)]),
        )
        self.assertEqual(self.folder_files(), ["part0.apt"])

    def test_file_that_cannot_be_written(self):
        names = self.write_jobs(2)
        os.makedirs(os.path.join(self.folder, "out", "part0.apt", "x"))
        done = self.post(*names)
        self.assertEqual(done.returncode, 3)
        self.assertIn("ppword: error: out/part0.apt cannot be written: Is a directory\n", done.stderr)
        self.assertEqual(self.read("out/part1.apt"), APT)

    def test_folder_that_cannot_be_created(self):
        self.write("out", "")
        done = self.post(*self.write_jobs(1))
        self.check(done, 3, "", "ppword: error: out cannot be written: Not a directory\n")

    def last_child(self, parent):
        """Waits until a process has one child left."""
        command = ["ps", "-o", "pid=", "-o", "stat=", "--ppid", str(parent)]
        while True:
            listed = subprocess.run(command, capture_output=True, text=True, check=False).stdout
            rows = [line.split() for line in listed.splitlines()]
            running = [pid for pid, state in rows if not state.startswith("Z")]
            if len(running) <= 1:
                return int(running[0])
            time.sleep(0.05)

    def test_process_that_is_killed_loses_its_jobs_only(self):
        names = self.write_jobs(4)
        fifo = os.path.join(self.folder, "part0.jsonl")
        os.remove(fifo)
        os.mkfifo(fifo)
        command = [program.PPWORD, "post", *names, "--output-dir", "out", "-j", "2"]
        with subprocess.Popen(
            [*command, "--format", "jsonl"],
            cwd=self.folder,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
        ) as process:
            # The process that waits for the pipe has no record yet; the others have.
            records = [json.loads(process.stdout.readline()) for _ in range(3)]
            self.addCleanup(process.kill)
            os.kill(self.last_child(process.pid), signal.SIGKILL)
            rest, errors = process.communicate(timeout=60)
        self.assertEqual((process.returncode, errors), (4, ""))
        lost, totals = map(json.loads, rest.splitlines())
        self.assertEqual(
            lost,
            {
                "layout": 1,
                "status": 4,
                "file": "part0.jsonl",
                "output": "out/part0.apt",
                "written": False,
                "diagnostics": [
                    {
                        "severity": "error",
                        "message": "out/part0.apt is not certain to be written: its process was "
                        "ended by the signal 9 (Killed)",
                    }
                ],
            },
        )
        self.assertEqual(totals["totals"]["written"], 3)
        self.assertEqual({record["status"] for record in records}, {0})

    def test_closed_pipe_ends_in_silence(self):
        for processes in ("1", "2"):
            reader, writer = os.pipe()
            os.close(reader)
            done = self.run_program(
                "post",
                *self.write_jobs(5),
                *("--output-dir", "out", "--format", "jsonl", "-j", processes),
                stdout=writer,
            )
            os.close(writer)
            self.check(done, 3)


class Options(ManyJobs):
    def test_mistakes_write_nothing(self):
        one, two = self.write_jobs(2)
        self.check_mistake("more than one JOB needs --output-dir DIR", one, two)
        self.check_mistake("-j needs --output-dir DIR", one, "-j", "2")
        self.check_mistake("-q and -v exclude each other", one, "-q", "-v")
        folder = ("--output-dir", "out")
        self.check_mistake(
            "the texts of part0.jsonl and ./part0.jsonl would both be out/part0.apt",
            one, "./part0.jsonl", *folder,
        )
        self.check_mistake("--output-dir needs files, not the standard input", one, "-", *folder)
        for option in (("-o", "x"), ("--map", "x"), ("--listing",)):
            self.check_mistake("--output-dir takes no -o, --map or --listing", one, *option, *folder)
        for number in ("0", "-1", "257", "x", "1.5"):
            self.check_mistake(
                f"--jobs: '{number}' is not a number of processes from 1 to 256",
                one, f"-j{number}", *folder,
            )
        self.check_mistake("--output-dir: a file name is expected, not an empty text", one, "--output-dir", "")

    def test_mistakes_for_programs(self):
        def mistake(*arguments):
            done = self.run_program("post", *arguments)
            self.assertEqual((done.returncode, done.stdout), (2, ""))
            report = json.loads(done.stderr)
            self.assertEqual(report["status"], 2)
            return report["diagnostics"][0]["message"]

        one = self.write_jobs(1)[0]
        self.assertEqual(
            mistake(one, "--output-dir", "out", "--format", "json"),
            "ppword post: --output-dir reports each job as it ends: use --format jsonl",
        )
        self.assertEqual(
            mistake(one, "--format=jsonl"), "ppword post: --format jsonl needs --output-dir DIR"
        )
        self.assertEqual(
            mistake(one, "--format", "json", "--wrong"), "ppword post: there is no option '--wrong'"
        )
        text = self.run_program("check", "--format", "jsonl", one)
        self.assertEqual(text.returncode, 2)
        self.assertIn("--format: 'jsonl' is neither text nor json", text.stderr)

    def test_no_text_replaces_an_input(self):
        self.write("part0.apt", JOB)
        done = self.run_program("post", "part0.apt", "--output-dir", ".")
        mistake = "the output ./part0.apt would replace the input part0.apt"
        self.check(done, 2, "", END.format(mistake))
        self.assertEqual(self.read("part0.apt"), JOB)
        self.write("part1.jsonl", JOB)
        self.write("part1.apt", TABLE)
        done = self.run_program("post", "part1.jsonl", "-t", "part1.apt", "--output-dir", ".")
        mistake = "the output ./part1.apt would replace the input part1.apt"
        self.check(done, 2, "", END.format(mistake))

    def test_two_texts_of_one_file_are_a_mistake(self):
        one, two = self.write_jobs(2)
        os.mkdir(os.path.join(self.folder, "d"))
        os.symlink("part1.apt", os.path.join(self.folder, "d", "part0.apt"))
        done = self.run_program("post", one, two, "--output-dir", "d")
        mistake = "the texts of part0.jsonl and part1.jsonl would both be d/part1.apt"
        self.check(done, 2, "", END.format(mistake))

    def test_no_text_replaces_what_another_job_names(self):
        one = self.write_jobs(1)[0]
        os.makedirs(os.path.join(self.folder, "PPTables"))
        self.write("PPTables/part0.apt", TABLE)
        self.write("table.jsonl", JOB.replace("}\n", RESOURCE, 1))
        environment = {**os.environ, "PPWORD_RESOURCE_PATH": self.folder}
        done = self.run_program(
            "post", one, "table.jsonl", "--output-dir", "PPTables", env=environment
        )
        mistake = f"the output PPTables/part0.apt would replace the input {self.folder}/PPTables/part0.apt"
        self.check(done, 2, "", END.format(mistake))
        self.assertEqual(self.read("PPTables/part0.apt"), TABLE)
        self.write("document.jsonl", JOB.replace("}\n", ',"document":"d/part0.apt"}\n', 1))
        os.mkdir(os.path.join(self.folder, "d"))
        self.run_program("document", "new", "d/part0.apt")
        done = self.run_program("post", one, "document.jsonl", "--output-dir", "d")
        mistake = "the output d/part0.apt would replace the input d/part0.apt"
        self.check(done, 2, "", END.format(mistake))

    def test_mistake_in_one_job_names_it(self):
        one = self.write_jobs(1)[0]
        done = self.post(one, "--units", "inch")
        self.assertEqual(done.returncode, 2)
        self.assertRegex(done.stderr, r"^part0.jsonl: error: --units, .* a job states its own\n1 job: 0 written")

    def test_few_open_files_make_small_groups(self):
        names = self.write_jobs(100)
        done = self.run_program(
            "post", *names, "--output-dir", "out", "-q", prefix=("prlimit", "--nofile=45")
        )
        self.check(done, 0)
        self.assertEqual(len(self.folder_files()), 100)

    def test_quiet_reports_failures_only(self):
        names = self.write_jobs(2)
        self.check(self.post(*names, "-q"), 0)
        self.check(self.run_program("post", names[0], "-o", "text", "--quiet"), 0)
        done = self.post(*names, "absent", "-q")
        self.check(
            done,
            1,
            "",
            "absent: error: cannot be opened: No such file or directory\n"
            "3 jobs: 2 written, 1 not written; 4 elements, 4 lines\n",
        )

    def test_quiet_records_end_with_the_totals(self):
        names = self.write_jobs(2)
        counts = {"jobs": 2, "written": 2, "notWritten": 0, "elements": 4, "lines": 4}
        wanted = {"layout": 1, "status": 0, "totals": counts}
        self.assertEqual(self.records(*names, "-q"), (0, [], wanted))
        status, records, totals = self.records(*names, "absent", "-q", "-j", "2")
        self.assertEqual((status, [each["file"] for each in records]), (1, ["absent"]))
        counts = {**counts, "jobs": 3, "notWritten": 1}
        self.assertEqual(totals, {"layout": 1, "status": 1, "totals": counts})


if __name__ == "__main__":
    program.main()
