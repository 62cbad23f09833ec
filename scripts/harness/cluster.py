# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""A Slurm cluster of one controller and three nodes that share this machine and its folders."""

import os
import pathlib
import subprocess
import time

from harness import hosts

SETTINGS = """ClusterName=kestrova
SlurmctldHost={host}({address})
AuthType=auth/munge
CredType=cred/munge
AuthInfo=cred_expire=10
SlurmUser=root
SlurmdUser=root
StateSaveLocation={folder}/state
SlurmdSpoolDir={folder}/%n
SlurmctldPidFile={folder}/slurmctld.pid
SlurmdPidFile={folder}/%n.pid
SlurmctldLogFile={folder}/slurmctld.log
SlurmdLogFile={folder}/%n.log
SwitchType=switch/none
MpiDefault=none
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
SchedulerParameters=sched_interval=2,batch_sched_delay=0
SlurmdTimeout=10
ReturnToService=2
MaxArraySize={groups}
{nodes}
PartitionName=short Nodes=ALL Default=YES State=UP
"""
NODE = "NodeName=node{number} NodeHostname={host} NodeAddr={address} Port={port} CPUs=2 RealMemory=4000"


class Cluster:
    """`groups` is one more than the most tasks of an array."""

    def __init__(self, folder, groups):
        self.folder = folder
        self.daemons = {}
        host = os.uname().nodename
        nodes = [NODE.format(number=number, host=host, address=hosts.CONTROLLER, port=17000 + number)
                 for number in (1, 2, 3)]
        (folder / "state").mkdir(parents=True)
        (folder / "slurm.conf").write_text(SETTINGS.format(
            host=host, address=hosts.CONTROLLER, folder=folder, groups=groups, nodes="\n".join(nodes)))
        (folder / "cgroup.conf").write_text("CgroupPlugin=cgroup/v1\n")
        os.environ["SLURM_CONF"] = str(folder / "slurm.conf")
        self.start_munge()
        self.start("slurmctld", "slurmctld", "-D", "-f", folder / "slurm.conf")
        for number in (1, 2, 3):
            self.start_node(f"node{number}")
        self.wait_for_nodes()

    def start(self, name, *command):
        with open(self.folder / f"{name}.output", "wb") as output:
            self.daemons[name] = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output,
                                                  stderr=output)

    def start_munge(self):
        key = self.folder / "munge.key"
        key.write_bytes(os.urandom(1024))
        key.chmod(0o400)
        self.start("munged", "munged", "--foreground", "--force", f"--key-file={key}",
                   f"--pid-file={self.folder}/munged.pid", f"--log-file={self.folder}/munged.log",
                   f"--seed-file={self.folder}/munged.seed")
        wait_for(lambda: pathlib.Path("/run/munge/munge.socket.2").exists(), 10, "munged")

    def start_node(self, name):
        self.start(name, *hosts.MACHINE, "slurmd", "-D", "-N", name, "-f", self.folder / "slurm.conf")

    def wait_for_nodes(self):
        def is_up():
            listed = subprocess.run(["sinfo", "-h", "-o", "%D %t"], check=False, capture_output=True)
            return listed.stdout.split() == [b"3", b"idle"]
        wait_for(is_up, 40, "Slurm")

    def kill_node(self, name):
        """Ends a node with all that it runs."""
        self.daemons[name].kill()
        self.daemons[name].wait()

    def stop(self):
        for name in list(self.daemons):
            self.kill_node(name)


def wait_for(condition, seconds, what):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            raise RuntimeError(f"gave up waiting for {what}")
        time.sleep(0.05)
