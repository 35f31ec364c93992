"""examples/many-jobs with make and with GNU parallel, here and over a stand-in for ssh; the scripts for Slurm with a
stand-in for sbatch. cluster_test.py has the real ones."""

import os
import signal
import time

import program
from many_jobs import COUNT, EXAMPLE, MIDDLE, ManyJobsTest

SSH = """#!/bin/sh
echo run >>'LOG'
while [ "$1" != -- ]; do shift; done
shift
exec sh -c "$*"
"""
# Runs the tasks one after the other, and reports the number that a further job can name.
SBATCH = """#!/bin/bash
dependency=none array=none
while [[ $1 == -* ]]; do
  case $1 in
    --array=*) array=${1#--array=} ;;
    --dependency=*) dependency=${1#--dependency=} ;;
  esac
  shift
done
if [[ $array == none ]]; then
  "$@" && status=0 || status=$?
  echo "$dependency: $status" >>sbatch.log
else
  for ((SLURM_ARRAY_TASK_ID = 0; SLURM_ARRAY_TASK_ID <= ${array#0-}; ++SLURM_ARRAY_TASK_ID)); do
    SLURM_ARRAY_TASK_ID=$SLURM_ARRAY_TASK_ID "$@" || true
  done
fi
echo 71
"""


class Make(ManyJobsTest):
    def make(self):
        return ("make", "-s", "-f", os.path.join(EXAMPLE, "makefile"), "TABLE=table", "JOBS=jobs", "TEXTS=texts")

    def make_older(self, folder, hours):
        past = time.time() - 3600 * hours
        for name in os.listdir(self.path(folder)):
            os.utime(self.path(f"{folder}/{name}"), (past, past))

    def test_only_what_is_outdated_is_posted(self):
        self.assertEqual(self.run_command(*self.make(), "PROCESSES=2"), (0, ""))
        self.check_texts()
        self.assertEqual([len(jobs) for _, jobs in self.processes()], [COUNT])
        self.assertEqual(self.run_command(*self.make()), (0, ""))
        self.assertEqual(self.processes(), [])
        self.write("texts/part 7.apt", "old\n")
        os.utime(self.path("texts/part 7.apt"), (0, 0))
        os.remove(self.path("texts/part 8.apt"))
        self.assertEqual(self.run_command(*self.make()), (0, ""))
        self.assertEqual(self.jobs_of(self.processes()), ["jobs/part 7.jsonl", "jobs/part 8.jsonl"])
        self.check_texts()
        self.make_older("jobs", 3)
        self.make_older("texts", 2)
        os.utime(self.path("table"), (0, 0))
        self.assertEqual(self.run_command(*self.make()), (0, ""))
        self.assertEqual(self.processes(), [])
        os.utime(self.path("table"))
        self.assertEqual(self.run_command(*self.make()), (0, ""))
        self.assertEqual(len(self.jobs_of(self.processes())), COUNT)

    def test_run_that_is_killed_goes_on(self):
        restore = self.wait_in_the_middle()
        process = self.start(*self.make())
        os.kill(self.wait_until_read(process), signal.SIGKILL)
        printed = process.communicate(timeout=60)[0]
        self.assertEqual(process.returncode, 2, printed)
        self.assertIn("signal 9", printed)
        done = self.texts()
        self.assertTrue(0 < len(done) < 102, len(done))
        self.processes()
        restore()
        self.assertEqual(self.run_command(*self.make()), (0, ""))
        self.assertEqual(len(self.jobs_of(self.processes())), COUNT - len(done))
        self.check_texts()

    def test_job_that_fails_is_posted_again(self):
        job = self.read(MIDDLE)
        self.write(MIDDLE, job.replace("NC_GOTO", "NC GOTO"))
        status, printed = self.run_command(*self.make())
        self.assertEqual(status, 2)
        self.assertIn(f"{MIDDLE}:2:", printed)
        self.assertEqual(len(self.texts()), COUNT - 1)
        self.processes()
        self.write(MIDDLE, job)
        self.assertEqual(self.run_command(*self.make()), (0, ""))
        self.assertEqual(self.jobs_of(self.processes()), [MIDDLE])
        self.check_texts()


class Parallel(ManyJobsTest):
    def setUp(self):
        super().setUp()
        # Where it notes that its user has read how to cite it.
        os.makedirs(self.path(".parallel"))
        self.write(".parallel/will-cite", "")

    def parallel(self, texts, *options):
        return (os.path.join(EXAMPLE, "parallel.sh"), "table", "jobs", texts, "-j", "2", *options)

    def undisturbed(self):
        self.assertEqual(self.run_command(*self.parallel("all texts")), (0, ""))
        self.check_texts("all texts")
        self.assertEqual([len(jobs) for _, jobs in self.processes()], [10] * 20)
        return self.texts("all texts")

    def logged(self):
        """Of each process that the log has, its exit status and signal."""
        rows = [line.split("\t") for line in self.read("texts/parallel.log").splitlines()[1:]]
        return sorted((int(row[6]), int(row[7])) for row in rows)

    def test_process_that_is_killed_is_repeated(self):
        wanted = self.undisturbed()
        restore = self.wait_in_the_middle()
        process = self.start(*self.parallel("texts"))
        os.kill(self.wait_until_read(process), signal.SIGKILL)
        printed = process.communicate(timeout=60)[0]
        self.assertEqual((process.returncode, printed), (1, "Killed\n"))
        self.assertEqual(self.logged(), [(0, 0)] * 19 + [(137, 0)])
        self.assertNotEqual(self.texts(), wanted)
        self.processes()
        restore()
        self.assertEqual(self.run_command(*self.parallel("texts")), (0, ""))
        (_, repeated), = self.processes()
        self.assertEqual((len(repeated), MIDDLE in repeated), (10, True))
        self.assertEqual(self.texts(), wanted)

    def test_run_that_is_killed_goes_on(self):
        wanted = self.undisturbed()
        restore = self.wait_in_the_middle()
        process = self.start(*self.parallel("texts", "-j", "1"))
        self.wait_until_read(process)
        os.killpg(process.pid, signal.SIGKILL)
        process.communicate(timeout=60)
        self.assertEqual(self.logged(), [(0, 0)] * 10)
        self.assertEqual(len(self.texts()), 100)
        self.processes()
        restore()
        self.assertEqual(self.run_command(*self.parallel("texts")), (0, ""))
        again = self.jobs_of(self.processes())
        self.assertEqual((len(again), MIDDLE in again), (100, True))
        self.assertEqual(self.texts(), wanted)

    def test_finished_run_does_nothing_again_and_another_one_does(self):
        self.assertEqual(self.run_command(*self.parallel("texts")), (0, ""))
        self.processes()
        self.assertEqual(self.run_command(*self.parallel("texts")), (0, ""))
        self.assertEqual(self.processes(), [])
        os.rename(self.path("jobs/part 0.jsonl"), self.path("jobs/another.jsonl"))
        self.assertEqual(self.run_command(*self.parallel("texts")), (0, ""))
        self.assertEqual(len(self.jobs_of(self.processes())), COUNT)

    def test_other_machines(self):
        self.write_program("ssh", SSH.replace("LOG", self.path("ssh.log")))
        options = ("--sshlogin", "2/one,2/two", "--ssh", f"'{self.path('ssh')}'")
        self.assertEqual(self.run_command(*self.parallel("texts", *options)), (0, ""))
        self.check_texts()
        hosts = [line.split("\t")[1] for line in self.read("texts/parallel.log").splitlines()[1:]]
        self.assertEqual((len(hosts), set(hosts)), (20, {"one", "two"}))
        self.assertGreaterEqual(len(self.read("ssh.log").splitlines()), 20)


class SlurmScripts(ManyJobsTest):
    def submit(self):
        self.write_program("sbatch", SBATCH)
        self.environment["PATH"] = self.folder + ":" + os.environ["PATH"]
        script = os.path.join(EXAMPLE, "slurm-submit.sh")
        return self.run_command(script, "table", "jobs", "texts")

    def test_tasks_and_merged_records(self):
        self.assertEqual(self.submit(), (0, "71\n"))
        self.check_texts()
        self.assertEqual(self.read("sbatch.log"), "afterany:71: 0\n")
        records = self.read("texts/records.jsonl").splitlines()
        self.assertEqual((len(records), records), (COUNT, sorted(records)))
        self.processes()
        self.assertEqual(self.submit(), (0, "71\n"))
        self.assertEqual(self.processes(), [])
        self.assertEqual(self.read("texts/records.jsonl").splitlines(), records)

    def test_task_that_fails_is_named_and_repeated(self):
        job = self.read(MIDDLE)
        self.write(MIDDLE, job.replace("NC_GOTO", "NC GOTO"))
        self.assertEqual(self.submit(), (0, "task 10 did not succeed\n71\n"))
        self.assertEqual(self.read("sbatch.log"), "afterany:71: 1\n")
        self.processes()
        self.write(MIDDLE, job)
        self.assertEqual(self.submit(), (0, "71\n"))
        (_, repeated), = self.processes()
        self.assertEqual((len(repeated), MIDDLE in repeated), (10, True))
        self.check_texts()


if __name__ == "__main__":
    program.main()
