"""examples/many-jobs with a real Slurm, and with GNU parallel over a real ssh: daemons of their own on the loopback
address, with all their files in a scratch folder, which end with the test. Needs to be root."""

import os
import signal
import socket
import subprocess
import time
import unittest

import program
from many_jobs import COUNT, EXAMPLE, MIDDLE, ManyJobsTest

SSHD = "/usr/sbin/sshd"
SLURM = """ClusterName=test
SlurmctldHost=localhost(127.0.0.1)
SlurmctldPort={control_port}
SlurmdPort={node_port}
SlurmUser=root
CommunicationParameters=NoCtldInAddrAny,NoInAddrAny
AuthType=auth/munge
AuthInfo=socket={folder}/munge.socket
StateSaveLocation={folder}/state
SlurmdSpoolDir={folder}/spool
SlurmctldPidFile={folder}/slurmctld.pid
SlurmdPidFile={folder}/slurmd.pid
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
SchedulerParameters=batch_sched_delay=0,sched_interval=1
NodeName=node NodeHostname={host} NodeAddr=127.0.0.1 Port={node_port} CPUs=2
PartitionName=all Nodes=node Default=YES
"""


def free_port():
    with socket.socket() as taken:
        taken.bind(("127.0.0.1", 0))
        return taken.getsockname()[1]


class Daemons(ManyJobsTest):
    """Daemons end with the test, and when the test is killed."""

    def daemon(self, *command):
        log = open(self.path(f"daemon.{os.path.basename(command[0])}"), "wb")
        self.addCleanup(log.close)
        process = subprocess.Popen(
            ("setpriv", "--pdeathsig", "KILL", *command),
            env=self.environment,
            stdin=subprocess.DEVNULL,
            stdout=log,
            stderr=log,
        )
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)

    def wait_for(self, what, is_there):
        end = time.monotonic() + 60
        while not is_there():
            if time.monotonic() > end:
                logs = [self.read(name) for name in self.files() if name.startswith("daemon.")]
                self.fail(f"no {what} in a minute\n" + "\n".join(logs))
            time.sleep(0.1)

    def ask(self, *command):
        return subprocess.run(
            command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False
        ).stdout


class Slurm(Daemons):
    def setUp(self):
        super().setUp()
        self.start_munge()
        for folder in ("state", "spool"):
            os.mkdir(self.path(folder))
        ports = {"control_port": free_port(), "node_port": free_port()}
        host = socket.gethostname().partition(".")[0]
        self.write("slurm.conf", SLURM.format(folder=self.folder, host=host, **ports))
        self.environment["SLURM_CONF"] = self.path("slurm.conf")
        self.daemon("slurmctld", "-D")
        self.daemon("slurmd", "-D", "-N", "node")
        self.wait_for("idle node", lambda: "idle" in self.ask("sinfo", "--noheader", "-o", "%T"))
        # Before the daemons end.
        self.addCleanup(self.ask, "scancel", "--full", "--signal=KILL", "--user=root")

    def start_munge(self):
        os.mkdir(self.path("munge"), 0o700)
        # Who uses the socket needs to reach it.
        os.chmod(self.folder, 0o711)
        self.write("munge/key", os.urandom(1024))
        os.chmod(self.path("munge/key"), 0o600)
        files = [f"--{kind}-file={self.path('munge')}/{kind}" for kind in ("key", "pid", "log", "seed")]
        self.daemon("munged", "--foreground", f"--socket={self.path('munge.socket')}", *files)
        self.wait_for("socket of munge", lambda: "munge.socket" in self.files())

    def submit(self):
        """The number of the merging job."""
        script = os.path.join(EXAMPLE, "slurm-submit.sh")
        status, printed = self.run_command(script, "table", "jobs", "texts")
        self.assertEqual(status, 0, printed)
        return printed.strip()

    def finish(self, job):
        """Waits for the end of the merging job; returns its exit status."""
        self.wait_for("end of the jobs", lambda: self.ask("squeue", "--noheader") == "")
        shown = self.ask("scontrol", "show", "job", job).split()
        exit_code, = [text for text in shown if text.startswith("ExitCode=")]
        return exit_code.partition("=")[2]

    def test_task_that_is_killed_is_repeated(self):
        restore = self.wait_in_the_middle()
        job = self.submit()
        os.kill(self.wait_until_read(), signal.SIGKILL)
        self.assertEqual(self.finish(job), "1:0")
        self.assertIn("task 10 did not succeed\n", self.read("texts/records/slurm-merge.sh.log"))
        self.assertLess(len(self.texts()), COUNT)
        self.assertEqual(len(self.jobs_of(self.processes())), COUNT)
        restore()
        self.assertEqual(self.finish(self.submit()), "0:0")
        (_, repeated), = self.processes()
        self.assertEqual((len(repeated), MIDDLE in repeated), (10, True))
        self.check_texts()
        self.assertEqual(len(self.read("texts/records.jsonl").splitlines()), COUNT)


@unittest.skipUnless(os.path.exists(SSHD), f"{SSHD} is not installed")
class Ssh(Daemons):
    def setUp(self):
        super().setUp()
        # The only path that sshd does not take from its settings; it belongs to no file.
        os.makedirs("/run/sshd", exist_ok=True)
        for name in ("host", "user"):
            command = ["ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", self.path(name)]
            subprocess.run(command, check=True)
        self.port = free_port()
        settings = (
            f"Port={self.port}",
            "ListenAddress=127.0.0.1",
            f"HostKey={self.path('host')}",
            f"AuthorizedKeysFile={self.path('user.pub')}",
            *("StrictModes=no", "PermitRootLogin=yes", "UsePAM=no", "PidFile=none"),
        )
        self.daemon(SSHD, "-D", "-e", "-f", "/dev/null", *[f"-o{each}" for each in settings])
        self.wait_for("sshd", lambda: "listening" in self.read("daemon.sshd"))

    def parallel(self):
        known = f"-oStrictHostKeyChecking=no -oUserKnownHostsFile={self.path('known')}"
        ssh = f"ssh -F none -p {self.port} -i {self.path('user')} -oIdentitiesOnly=yes -q {known}"
        script = os.path.join(EXAMPLE, "parallel.sh")
        options = ("--sshlogin", "2/127.0.0.1", "--ssh", ssh)
        return (script, "table", "jobs", "texts", *options)

    def test_process_on_another_machine_that_is_killed_is_repeated(self):
        restore = self.wait_in_the_middle()
        process = self.start(*self.parallel())
        os.kill(self.wait_until_read(process), signal.SIGKILL)
        printed = process.communicate(timeout=120)[0]
        self.assertEqual(process.returncode, 1, printed)
        self.assertLess(len(self.texts()), COUNT)
        self.assertEqual(len(self.jobs_of(self.processes())), COUNT)
        restore()
        self.assertEqual(self.run_command(*self.parallel())[0], 0)
        (_, repeated), = self.processes()
        self.assertEqual((len(repeated), MIDDLE in repeated), (10, True))
        self.check_texts()


if __name__ == "__main__":
    program.main()
