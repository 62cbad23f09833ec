# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""What spreads the jobs: GNU parallel on this machine or on hosts, or Slurm."""

import contextlib
import os
import pathlib
import re
import shlex
import signal
import subprocess

from .commandline import complain
from .hosts import Hosts

TRIES = 5  # of GNU parallel for a job, and one more for each host, which may be gone
PATIENCE = 15  # seconds in which an engine that is told to end must have ended

# A host that is gone says nothing, so it is asked. One that refuses would take job after job.
REACH = """ssh -o BatchMode=yes -o ConnectTimeout=15 -o ServerAliveInterval=5 -o ServerAliveCountMax=3 "$@"
status=$?
[ "$status" -ne 255 ] || { echo >>refused; sleep 10; }
exit "$status"
"""


def engine_of(arguments, work, sample):
    """`sample` is a recording by which machines are compared."""
    if arguments.slurm:
        return Slurm(arguments, work)
    return Parallel(arguments, work, Hosts(arguments.hosts, work, sample) if arguments.hosts else None)


class Engine:
    """Does the first `count` jobs of the file "left" with the script "group", in a process group of its own."""

    def __init__(self, arguments, work):
        self.arguments = arguments
        self.work = work
        self.process = None
        self.output = f"{work.folder}/engine"

    def prepare(self):
        """Answers why there is no use in starting; empty if there is."""
        return ""

    def start(self, count):
        with open(self.work.log, "ab") as log, open(self.output, "wb") as said:
            self.process = subprocess.Popen(
                self.command(count), cwd=self.work.folder, stdin=subprocess.DEVNULL, stdout=self.stdout(log, said),
                stderr=said, process_group=0, pass_fds=[self.work.lock_file],
                env={**os.environ, "PARALLEL_SHELL": "/bin/sh"})

    def look(self):
        """To be called now and then while it runs. Answers why it must not go on; empty if it may."""
        return ""

    def kill(self):
        with contextlib.suppress(ProcessLookupError):
            os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()

    def verdict(self):
        """Once it has ended: why there is no use in another round; empty if there is."""
        return ""

    def said(self):
        """The last line of what the engine itself had to say."""
        lines = pathlib.Path(self.output).read_text(errors="replace").splitlines()
        return next((line.strip() for line in reversed(lines) if line.strip()), "")

    def is_left_alone(self):
        """Whether jobs of an earlier call run without it."""
        return False


class Parallel(Engine):
    """GNU parallel takes its command for a template, in which braces run programs: the only name in it, that of
    the folder, stands there in octal numbers."""

    def __init__(self, arguments, work, hosts):
        super().__init__(arguments, work)
        self.hosts = hosts

    def prepare(self):
        return self.hosts.begin() if self.hosts else ""

    def plan(self, _):
        if self.hosts:
            return self.hosts.plan()
        return ["GNU parallel would measure them on this machine."]

    def command(self, count):
        self.work.store("places", b"".join(b"%d\n" % place for place in range(1, count + 1)))
        self.work.store("reach", REACH.encode())
        jobs = self.arguments.jobs[-1:] if self.arguments.jobs else []
        where = ["--sshloginfile=hosts", "--ssh=sh ./reach"] if self.hosts else [f"--jobs={n}" for n in jobs]
        folder = "".join(f"\\{byte:03o}" for byte in os.fsencode(self.work.folder))
        return ["parallel", "--arg-file=places", f"--retries={TRIES + (self.hosts.count() if self.hosts else 0)}",
                "--ungroup", *where, f"cd \"$(printf '{folder}')\" || sleep 10; exec sh ./group {{}} 1"]

    @staticmethod
    def stdout(log, _):
        return log

    def look(self):
        return self.hosts.look() if self.hosts else ""

    def stop(self):
        """GNU parallel ends its jobs, here and elsewhere, when it is interrupted."""
        with contextlib.suppress(ProcessLookupError):
            self.process.send_signal(signal.SIGINT)
        with contextlib.suppress(subprocess.TimeoutExpired):
            self.process.wait(PATIENCE)
        self.kill()


class Slurm(Engine):
    """An array whose tasks each do a group of jobs."""

    def group_size(self, count):
        """So many jobs a task that the array is not too large."""
        settings = subprocess.run(["scontrol", "show", "config"], capture_output=True, check=True).stdout
        return -(-count // (int(re.search(rb"\nMaxArraySize\s*=\s*(\d+)", settings)[1]) - 1))

    def plan(self, count):
        tasks = -(-count // self.group_size(count)) if count else 0
        return [f"Slurm would measure them in {tasks} tasks."]

    def command(self, count):
        size = self.group_size(count)
        work = shlex.quote(self.work.folder)
        return ["sbatch", "--wait", "--parsable", "--requeue", "--ntasks=1", "--cpus-per-task=1", "--output=/dev/null",
                f"--array=1-{-(-count // size)}", "--dependency=singleton", f"--job-name={self.work.name}",
                *self.arguments.slurm_args,
                f"--wrap=exec >>{work}/log 2>&1; "
                f"sh {work}/group $(((SLURM_ARRAY_TASK_ID - 1) * {size} + 1)) {size}"]

    @staticmethod
    def stdout(_, said):
        return said

    def states(self, *which):
        asked = subprocess.run(["squeue", "--noheader", "--me", "--array", "--format=%T", *which], check=False,
                               capture_output=True, text=True)
        return asked.stdout.split()

    def is_left_alone(self):
        return bool(self.states(f"--name={self.work.name}"))

    def verdict(self):
        """What somebody took out of the queue is not put there again."""
        number = re.match(r"\d+", pathlib.Path(self.output).read_text(errors="replace"))
        is_cancelled = number and "CANCELLED" in self.states("--states=all", f"--jobs={number[0]}")
        return f"tasks of Slurm's job {number[0]} were cancelled" if is_cancelled else ""

    def stop(self):
        """The waiting process goes first, so that it says nothing of what has been cancelled."""
        self.kill()
        if subprocess.run(["scancel", "--me", f"--name={self.work.name}"], check=False).returncode:
            complain(f"scancel failed; the array {self.work.name} may still be in the queue")
