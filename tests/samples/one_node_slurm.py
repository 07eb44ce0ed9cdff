"""A Slurm of one node on the loopback: its own folder, key, ports and user, and nothing left of it afterwards."""
import ctypes
import os
import pathlib
import pwd
import shutil
import signal
import socket
import subprocess
import tempfile
import time

PROGRAMS = ("munged", "slurmctld", "slurmd", "sbatch", "squeue", "scancel", "sinfo")
PATIENCE = 300  # seconds until a test gives up; nothing is measured by them

PR_SET_PDEATHSIG, PR_SET_CHILD_SUBREAPER = 1, 36


def prctl(option, value):
    ctypes.CDLL(None).prctl(option, value, 0, 0, 0)


def free_ports(count):
    held = [socket.socket() for _ in range(count)]
    for one in held:
        one.bind(("127.0.0.1", 0))
    ports = [one.getsockname()[1] for one in held]
    for one in held:
        one.close()
    return ports


def children():
    listed = pathlib.Path(f"/proc/self/task/{os.getpid()}/children").read_text(encoding="ascii")
    return [int(number) for number in listed.split()]


def wait_until(true, what):
    end = time.monotonic() + PATIENCE
    while not true():
        if time.monotonic() > end:
            raise TimeoutError(what)
        time.sleep(0.2)


class NotHere(Exception):
    """What a test needs cannot be set up on this machine, and why."""


class OneNodeSlurm:
    """Use it in a with statement. NotHere where it cannot be set up."""

    def __enter__(self):
        os.environ["PATH"] += ":/usr/sbin:/sbin"
        missing = [program for program in PROGRAMS if not shutil.which(program)]
        if missing:
            raise NotHere(f"not installed: {', '.join(missing)}")
        self.daemons = []
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="slurm"))
        self.folder.chmod(0o755)
        # What outlives its parent becomes a child of this process, and can be ended by its number.
        prctl(PR_SET_CHILD_SUBREAPER, 1)
        try:
            self.begin()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if len(self.daemons) == 3:
            self.run("scancel", "--me", check=False)
        for daemon in reversed(self.daemons):
            daemon.terminate()
        for daemon in self.daemons:
            try:
                daemon.wait(30)
            except subprocess.TimeoutExpired:
                daemon.kill()
                daemon.wait()
        while left := children():
            for number in left:
                os.kill(number, signal.SIGKILL)
                os.waitpid(number, 0)
        shutil.rmtree(self.folder, ignore_errors=True)

    def begin(self):
        for name in ("munge", "state", "spool"):
            (self.folder / name).mkdir(mode=0o755)
        key = self.folder / "munge/key"
        key.write_bytes(os.urandom(1024))
        key.chmod(0o400)
        munge = self.folder / "munge"
        self.daemon("munged", "--foreground", f"--key-file={key}", f"--socket={munge}/socket",
                    f"--pid-file={munge}/pid", f"--log-file={munge}/log", f"--seed-file={munge}/seed")
        self.wait_for((munge / "socket").exists, "munged")
        self.write_settings()
        self.daemon("slurmctld", "-D")
        self.daemon("slurmd", "-D")
        self.wait_for(lambda: self.run("sinfo", "-h", "-o", "%T", check=False).stdout.strip() == "idle", "slurmd")

    def wait_for(self, true, what):
        """Until it is true, or a daemon has ended, which means that it may not run here."""
        wait_until(lambda: true() or any(daemon.poll() is not None for daemon in self.daemons), what)
        if not true():
            raise NotHere(f"{what} does not come up: {self.log()[-500:]}")

    def write_settings(self):
        node = socket.gethostname().split(".")[0]
        user = pwd.getpwuid(os.geteuid()).pw_name
        control, worker = free_ports(2)
        (self.folder / "slurm.conf").write_text(f"""
ClusterName=test
SlurmctldHost={node}(127.0.0.1)
SlurmUser={user}
SlurmdUser={user}
AuthType=auth/munge
AuthInfo=socket={self.folder}/munge/socket
CredType=cred/munge
SlurmctldPort={control}
SlurmdPort={worker}
StateSaveLocation={self.folder}/state
SlurmdSpoolDir={self.folder}/spool
SlurmctldPidFile={self.folder}/slurmctld.pid
SlurmdPidFile={self.folder}/slurmd.pid
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
MpiDefault=none
SwitchType=switch/none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
ReturnToService=2
MailProg=/bin/true
NodeName={node} NodeAddr=127.0.0.1 CPUs={os.cpu_count()} State=UNKNOWN
PartitionName=all Nodes=ALL Default=YES MaxTime=INFINITE State=UP
""", encoding="utf-8")

    def environment(self):
        return dict(os.environ, SLURM_CONF=f"{self.folder}/slurm.conf")

    def daemon(self, program, *options):
        """Starts one that ends with this process."""
        with open(self.folder / "log", "ab") as log:
            self.daemons.append(subprocess.Popen(
                [program, *options], env=self.environment(), stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                preexec_fn=lambda: prctl(PR_SET_PDEATHSIG, signal.SIGTERM)))

    def log(self):
        return (self.folder / "log").read_text(encoding="utf-8", errors="replace")

    def run(self, *words, check=True, **options):
        ended = subprocess.run(words, env=dict(self.environment(), **options.pop("environment", {})),
                               capture_output=True, text=True, timeout=PATIENCE, **options)
        if check and ended.returncode:
            raise AssertionError(f"{words}: {ended.stderr}\n{self.log()[-1000:]}")
        return ended

    def wait_for_jobs(self):
        """Until the queue is empty."""
        wait_until(lambda: not self.run("squeue", "-h").stdout.strip(), "the queue does not become empty")
