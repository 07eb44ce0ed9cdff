"""A machine that is reached by ssh: this one, by a server on the loopback with keys, port and folder of its own."""
import getpass
import os
import pathlib
import shutil
import subprocess
import tempfile

from one_node_slurm import NotHere, free_ports, wait_until

CONFIGURATION = """
ListenAddress 127.0.0.1:{port}
HostKey {folder}/host
AuthorizedKeysFile {folder}/user.pub
PidFile none
StrictModes no
UsePAM no
"""


class LoopbackSsh:
    """`login` is what names the machine, `command` the ssh that reaches it."""

    def __enter__(self):
        server = shutil.which("sshd", path=os.environ["PATH"] + ":/usr/sbin")
        if not server or not shutil.which("ssh"):
            raise NotHere("there is no ssh server")
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="ssh"))
        self.log = self.folder / "log"
        port = free_ports(1)[0]
        for key in ("host", "user"):
            subprocess.run(["ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", self.folder / key], check=True)
        (self.folder / "sshd_config").write_text(CONFIGURATION.format(port=port, folder=self.folder))
        if os.geteuid() == 0:
            os.makedirs("/run/sshd", exist_ok=True)  # an empty folder that the server asks for
        self.server = subprocess.Popen([server, "-D", "-f", self.folder / "sshd_config", "-E", self.log])
        self.command = (f"ssh -p {port} -i {self.folder}/user -o StrictHostKeyChecking=no -o LogLevel=ERROR "
                        f"-o UserKnownHostsFile=/dev/null -o BatchMode=yes")
        self.login = getpass.getuser() + "@127.0.0.1"
        try:
            wait_until(self.answers, "the ssh server does not answer")
        except BaseException:
            self.__exit__()
            raise
        return self

    def answers(self):
        if self.server.poll() is not None:
            raise NotHere("the ssh server ends: " + self.log.read_text())
        told = subprocess.run([*self.command.split(), self.login, "true"], capture_output=True, check=False)
        return told.returncode == 0

    def logins(self):
        return self.log.read_text().count("Accepted publickey")

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()
        shutil.rmtree(self.folder)
