# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Hosts that are network namespaces on a bridge, each with an ssh server of its own. For a process that is
alone in its network, mount and process namespaces: whatever is left ends with it."""

import os
import pathlib
import subprocess
import time

NETWORK = "10.0.0"  # as in the examples of docs/archive.md
USER = "anna"
CONTROLLER = f"{NETWORK}.254"

CLIENT = """Host {network}.*
    IdentityFile {folder}/key
    StrictHostKeyChecking no
    UserKnownHostsFile /dev/null
    LogLevel ERROR
"""


def call(*command):
    subprocess.run([str(word) for word in command], check=True, stdin=subprocess.DEVNULL)


def make_network(folder):
    """The bridge, and keys and settings by which root gets from here to every host."""
    call("ip", "link", "set", "lo", "up")
    call("mount", "--make-rshared", "/")  # what is mounted later is there on all hosts
    call("mount", "-t", "tmpfs", "none", "/run")
    users = folder / "passwd"
    users.write_text(pathlib.Path("/etc/passwd").read_text() + f"{USER}:x:0:0::{folder}:/bin/sh\n")
    call("mount", "--bind", users, "/etc/passwd")
    for name in ("netns", "sshd", "munge"):
        os.mkdir(f"/run/{name}")
    call("ip", "link", "add", "bridge0", "type", "bridge")
    call("ip", "link", "set", "bridge0", "up")
    call("ip", "address", "add", f"{CONTROLLER}/24", "dev", "bridge0")
    for key in ("key", "hostkey"):
        call("ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", folder / key)
    call("mount", "-t", "tmpfs", "none", "/etc/ssh/ssh_config.d")
    pathlib.Path("/etc/ssh/ssh_config.d/hosts.conf").write_text(
        CLIENT.format(network=NETWORK, folder=folder))


# Whatever runs on a machine is in a process namespace, and ends with this process.
MACHINE = ["unshare", "--uts", "--pid", "--fork", "--kill-child", "--mount-proc", "--propagation",
           "slave"]


class Host:
    """One machine. It shares all folders with the controller."""

    def __init__(self, number, folder):
        self.name = f"host{number}"
        self.address = f"{NETWORK}.{number}"
        self.link = f"link{number}"
        self.folder = folder
        call("ip", "netns", "add", self.name)
        call("ip", "link", "add", self.link, "type", "veth", "peer", "name", "eth0", "netns", self.name)
        call("ip", "link", "set", self.link, "master", "bridge0", "up")
        call("ip", "-n", self.name, "address", "add", f"{self.address}/24", "dev", "eth0")
        for device in ("eth0", "lo"):
            call("ip", "-n", self.name, "link", "set", device, "up")
        self.start()

    def start(self):
        """Starts the ssh server and waits until it answers."""
        options = [f"-oAuthorizedKeysFile={self.folder}/key.pub", "-oStrictModes=no", "-oUsePAM=no",
                   "-oPermitRootLogin=yes", "-oMaxStartups=100"]
        server = f'hostname {self.name}; exec /usr/sbin/sshd -D -f /dev/null -h "$0" "$@"'
        self.machine = subprocess.Popen(
            ["ip", "netns", "exec", self.name, *MACHINE, "sh", "-c", server, f"{self.folder}/hostkey",
             *options], stderr=subprocess.DEVNULL)
        for _ in range(100):
            if subprocess.run(["ssh", "-oBatchMode=yes", f"{USER}@{self.address}", "true"], check=False,
                              stderr=subprocess.DEVNULL).returncode == 0:
                return
            time.sleep(0.1)
        raise RuntimeError(f"{self.name} does not answer")

    def cut_off(self):
        """Its packets vanish: nobody is told."""
        call("ip", "link", "set", self.link, "down")

    def plug_in(self):
        call("ip", "link", "set", self.link, "up")

    def hide(self, path, what):
        """What is at this path there, and only there, from now on: a file, or an empty folder."""
        first = pathlib.Path(f"/proc/{self.machine.pid}/task/{self.machine.pid}/children").read_text().split()[0]
        how = ["--bind", what] if what else ["-t", "tmpfs", "none"]
        call("nsenter", "--mount", f"--target={first}", "mount", *how, path)

    def kill(self):
        """Ends all that runs on it."""
        self.machine.kill()
        self.machine.wait()
