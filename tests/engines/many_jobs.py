"""Two hundred jobs and their texts, what runs examples/many-jobs on them, and what breaks a run in its middle."""

import errno
import os
import subprocess
import time

import program
from program import APT, JOB

EXAMPLE = os.path.join(program.EXAMPLES, "many-jobs")
COUNT = 200
# In the order of the names, this is job 102 of 200: "part 0", "part 1", "part 10", "part 100", ...
MIDDLE = "jobs/part 19.jsonl"
WRAPPER = """#!/bin/sh
line=$$
for argument; do line="$line|$argument"; done
printf '%s\n' "$line" >>'LOG'
exec 'PPWORD' "$@"
"""


class ManyJobsTest(program.ProgramTest):
    def setUp(self):
        super().setUp()
        for folder in ("jobs", "jobs/deeper"):
            os.mkdir(os.path.join(self.folder, folder))
        for number in range(COUNT):
            self.write(f"jobs/part {number}.jsonl", JOB.replace("[1,2,3]", f"[{number},2,3]"))
        self.write("jobs/notes.txt", "not a job\n")
        self.write("table", program.TABLE)
        # Processes of ppword are counted, and found, by what this one writes.
        self.write_program("ppword", WRAPPER.replace("LOG", self.path("log")).replace("PPWORD", program.PPWORD))
        self.environment = {
            **os.environ,
            **{"PPWORD": self.path("ppword"), "CHUNK": "10", "HOME": self.folder, "SHELL": "/bin/sh"},
        }

    def path(self, name):
        return os.path.join(self.folder, name)

    def write_program(self, name, text):
        self.write(name, text)
        os.chmod(self.path(name), 0o755)

    def start(self, *command):
        return subprocess.Popen(
            command,
            cwd=self.folder,
            env=self.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
            start_new_session=True,
        )

    def run_command(self, *command):
        """The exit status and all that was printed."""
        process = self.start(*command)
        self.addCleanup(process.kill)
        printed = process.communicate(timeout=300)[0]
        return process.returncode, printed

    def texts(self, folder="texts"):
        return {
            name: self.read(f"{folder}/{name}")
            for name in os.listdir(self.path(folder))
            if name.endswith(".apt")
        }

    def check_texts(self, folder="texts"):
        """All texts are there, as worked out by hand."""
        wanted = {
            f"part {number}.apt": APT.replace("    1.00000,", f"{number:11.5f},") for number in range(COUNT)
        }
        self.assertEqual(self.texts(folder), wanted)

    def processes(self):
        """Of each process of ppword since the last call, its number and its jobs."""
        try:
            lines = self.read("log").splitlines()
            os.remove(self.path("log"))
        except FileNotFoundError:
            lines = []
        rows = [line.split("|") for line in lines]
        return [(int(row[0]), [text for text in row[1:] if text.endswith(".jsonl")]) for row in rows]

    def jobs_of(self, processes):
        return sorted(job for _, jobs in processes for job in jobs)

    def wait_in_the_middle(self):
        """Turns the job in the middle into a pipe: who posts it waits. Returns what ends that."""
        job = self.read(MIDDLE)
        os.remove(self.path(MIDDLE))
        os.mkfifo(self.path(MIDDLE))

        def restore():
            os.remove(self.path(MIDDLE))
            self.write(MIDDLE, job)

        return restore

    def wait_until_read(self, process=None):
        """Returns, when the pipe is open, the process of ppword that opened it; fails when `process` ends before."""
        end = time.monotonic() + 120
        while not self.opened():
            if time.monotonic() > end or (process and process.poll() is not None):
                self.fail("no process read the job:\n" + (process.communicate(5)[0] if process else ""))
            time.sleep(0.02)
        for line in self.read("log").splitlines():
            if f"|{MIDDLE}|" in line:
                return int(line.partition("|")[0])
        return None

    def opened(self):
        try:
            pipe = os.open(self.path(MIDDLE), os.O_WRONLY | os.O_NONBLOCK)
        except OSError as error:
            self.assertEqual(error.errno, errno.ENXIO)
            return False
        self.addCleanup(os.close, pipe)
        return True
