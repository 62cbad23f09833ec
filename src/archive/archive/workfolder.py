# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""The folder in which this program, its engine and the measuring calls leave what they must tell each other.

Its name is made of what is to be measured and how, so that no other call has the same one. A job is
"CALL-NUMBER PART/PARTS RECORDING". The engine knows jobs by their places in the file "left": no name that
a person gave ever comes near its templates."""

import hashlib
import os
import pathlib
import re
import shlex
import shutil
import stat
import subprocess
import sys
import time

from .commandline import complain, words

# FIRST COUNT: so many of the jobs that are left, from that one on.
GROUP = """cd {work} || exit 1
tail -z -n "+$1" left | head -z -n "$2" | xargs -0 -r -n 1 sh ./measure
"""

# A recording that cannot be read is done: no other try would help. What is full or gone for a while may be
# back after a pause. A crash is tried three times.
MEASURE = """cd {folder} || {{ sleep 10; exit 1; }}
id=${{1%% *}} job=${{1#* }}
set -- {command}
[ "${{job%% *}}" = 1/1 ] || set -- "$@" "--part=${{job%% *}}"
said=$("$@" -- "${{job#* }}" 2>&1 >/dev/null)
status=$? && [ "$status" -ne 3 ] || status=0
[ -z "$said" ] || printf '%s\\n' "$said"
printf '\\n%s\\n' "$id $status" >>{work}/ends/"$(uname -n)"
[ "$status" -ne 0 ] || exit 0
if [ "$status" -le 130 ]; then
    printf '%s' "$said" >{work}/failed/"$id"
    sleep 10
elif [ "$(cat {work}/ends/* | grep -cE "^$id 1(3[1-9]|4.)$")" -ge 3 ]; then
    exit 0
fi
exit "$status"
"""


class WorkFolder:
    def __init__(self, arguments, options):
        given = words(arguments, sorted({*options.measuring, "list", "null"}))
        key = os.fsencode("\0".join([os.getcwd(), *given, "--", *arguments.recordings]))
        key += b"".join(pathlib.Path(mask).read_bytes() for mask in arguments.mask or []
                        if os.path.isfile(mask))
        self.values = os.path.abspath(arguments.values)
        self.name = f"archive-{hashlib.sha256(key).hexdigest()[:12]}"
        self.folder = f"{self.values}/{self.name}"
        self.log = f"{self.folder}/log"
        self.call = f"{int(time.time()):x}x{os.getpid():x}"
        os.makedirs(self.folder, exist_ok=True)
        if self.is_planted():
            sys.exit(complain(f"{self.folder} is another user's, who may have put anything there"))
        self.lock_file = os.open(f"{self.folder}/lock", os.O_RDWR | os.O_CREAT)

    def is_planted(self):
        """Whether somebody else has put it where anybody may put something, but nobody may replace what is not
        theirs. The scripts in it are run."""
        is_shared = os.stat(self.values).st_mode & stat.S_ISVTX
        return bool(is_shared) and os.lstat(self.folder).st_uid not in (0, os.geteuid())

    def lock(self, is_waiting):
        """Whether no other call is at work, if need be after waiting for it. The engine gets the lock, too: it
        may outlive this program."""
        if not subprocess.run(["flock", "--nonblock", str(self.lock_file)], pass_fds=[self.lock_file],
                              check=False).returncode:
            return True
        if is_waiting:
            complain("waiting for an earlier call, which is still at work")
            subprocess.run(["flock", str(self.lock_file)], pass_fds=[self.lock_file], check=True)
        return is_waiting

    def begin(self, command):
        """Makes room for a new call, whose jobs are measured with this command."""
        for part in ("ends", "failed"):
            shutil.rmtree(f"{self.folder}/{part}", ignore_errors=True)
            os.mkdir(f"{self.folder}/{part}")
        work = shlex.quote(self.folder)
        self.store("group", os.fsencode(GROUP.format(work=work)))
        self.store("measure", os.fsencode(MEASURE.format(
            folder=shlex.quote(os.getcwd()), command=shlex.join(command), work=work)))

    def store(self, name, data):
        """Writes a file, as a whole or not at all."""
        path = f"{self.folder}/{name}"
        with open(f"{path}.part", "wb") as file:
            file.write(data)
            file.flush()
            os.fsync(file.fileno())
        os.replace(f"{path}.part", path)

    def failure(self, number):
        """Why the scanner could not measure a job when it last tried, as it said it; empty if it did not."""
        try:
            return pathlib.Path(self.folder, "failed", f"{self.call}-{number}").read_text(errors="replace")
        except FileNotFoundError:
            return ""


class Ends:
    """The statuses with which the jobs of this call have ended so far, on whatever host."""

    def __init__(self, work):
        self.line = re.compile(rb"^%s-(\d+) (\d+)$" % work.call.encode(), re.MULTILINE)
        self.folder = pathlib.Path(work.folder, "ends")
        self.read_up_to = {}
        self.statuses = {}
        self.count = 0

    def read(self):
        """What has come since the last time."""
        for path in self.folder.iterdir():
            with open(path, "rb") as file:
                file.seek(self.read_up_to.get(path, 0))
                text = file.read()
            text = text[:text.rfind(b"\n") + 1]
            self.read_up_to[path] = self.read_up_to.get(path, 0) + len(text)
            for number, status in self.line.findall(text):
                self.statuses.setdefault(int(number), []).append(int(status))
                self.count += 1
        return self

    def of(self, number):
        return self.statuses.get(number, [])

    def good(self, numbers):
        """How many of these jobs are done."""
        return sum(0 in self.of(number) for number in numbers)
