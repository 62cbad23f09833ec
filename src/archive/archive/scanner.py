# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""The calls of kestrova-scan. Recordings' names are bytes."""

import os
import re
import subprocess
import sys
import tempfile

from .commandline import SCANNER, complain, words

SAMPLE = 1000  # recordings among which the oldest is sought


class Scanner:
    def __init__(self, arguments, options, work):
        self.arguments = arguments
        self.work = work
        self.inputs = [*words(arguments, ["list", "null"]), "--", *arguments.recordings]
        self.options = words(arguments, sorted(options.all - {"list", "null", "jobs"}))
        self.jobs = arguments.jobs or [len(os.sched_getaffinity(0))]
        self.measuring = [f"--values={work.values}", *words(arguments, options.measuring)]

    def names(self):
        """All recordings, and 1 where a folder or a list could not be read, which has been said."""
        command = [SCANNER, "--quiet", "--names", *self.options, *words(self.arguments, ["jobs"]), *self.inputs]
        named = subprocess.run(command, stdout=subprocess.PIPE, check=False)
        if named.returncode not in (0, 1):
            sys.exit(named.returncode)
        return named.stdout.split(b"\0")[:-1], named.returncode

    @staticmethod
    def listed(recordings):
        """A list of these that no other call has; to be passed on."""
        names = tempfile.TemporaryFile()
        names.write(b"".join(name + b"\0" for name in recordings))
        names.flush()
        return names

    def unmeasured(self, recordings):
        """Those of them that have no good values yet. What is no file is none of them."""
        if not recordings:
            return []
        with open(self.work.log, "ab") as log, self.listed(recordings) as names:
            command = [SCANNER, "--quiet", "--unmeasured", f"--jobs={self.jobs[-1]}", *self.measuring,
                       "--null", f"--list=/dev/fd/{names.fileno()}"]
            found = subprocess.run(command, stdout=subprocess.PIPE, stderr=log, check=True,
                                   pass_fds=[names.fileno()]).stdout
        return found.split(b"\0")[:-1]

    def likeliest(self, recordings):
        """The parts in which these are measured, with their names, the likeliest of all first; none where that
        cannot be told."""
        split = [f"--split={self.arguments.split}"] if self.arguments.split else []
        with open(self.work.log, "ab") as log, self.listed(recordings) as names:
            command = [SCANNER, "--quiet", "--unmeasured", "--promising-first", *split, f"--jobs={self.jobs[-1]}",
                       *self.measuring, "--null", f"--list=/dev/fd/{names.fileno()}"]
            found = subprocess.run(command, stdout=subprocess.PIPE, stderr=log, check=False,
                                   pass_fds=[names.fileno()])
        if found.returncode:
            complain(f"which are likeliest cannot be told (kestrova-scan ended with status {found.returncode}); "
                     "all are measured in order")
        jobs = found.stdout.split(b"\0")[:-1]
        return [tuple(job.split(b" ", 1)) for job in jobs] if split else [(b"1/1", name) for name in jobs]

    def measure_command(self):
        return [SCANNER, "--quiet", "--threads=1", *self.measuring]

    def start_deciding(self, recordings):
        jobs = self.jobs if self.arguments.finish_here else self.arguments.jobs or []
        with self.listed(recordings) as names:
            command = [SCANNER, *self.options, *[f"--jobs={count}" for count in jobs],
                       f"--values={self.arguments.values}", "--null", f"--list=/dev/fd/{names.fileno()}"]
            return subprocess.Popen(command, pass_fds=[names.fileno()])

    def parts_of(self, name):
        """In how many parts a recording is measured."""
        if not self.arguments.split:
            return 1
        probe = ["ffprobe", "-v", "error", "-protocol_whitelist", "file", "-show_entries", "format=duration"]
        length = subprocess.run([*probe, "-of", "csv=p=0", b"file:" + name], capture_output=True, check=False,
                                stdin=subprocess.DEVNULL).stdout.strip()
        is_known = re.fullmatch(rb"[\d.]+", length)
        parts = int(-(-float(length) // (60 * self.arguments.split))) if is_known else 1
        return min(max(parts, 1), 9999)

    @staticmethod
    def oldest(recordings):
        """The one of them that is least likely to be written just now; none of none."""
        return min((name for name in recordings[:SAMPLE] if os.path.isfile(name)), key=os.path.getmtime,
                   default=None)
