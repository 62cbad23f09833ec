# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Which hosts are of use: asked at the start, when the file of hosts has changed, and when hosts fail."""

import dataclasses
import os
import pathlib
import re
import shlex
import subprocess
import tempfile
import time

from .commandline import SCANNER, complain, printable

ANSWER = 20  # seconds in which a host must say that it is of use
PAUSE = 15  # seconds between two times when all hosts are asked because some fail

# 8/user@host. Nothing in it means more to GNU parallel, ssh or a shell than a name does.
LOGIN = re.compile(r"(?:[1-9]\d*/)?((?:\w[\w.-]*@)?\w[\w.-]*|:)", re.ASCII)

# Says "good", or why not. What a login script prints stands in front. Behind the version's first line stands what
# the machine's kernel offers.
QUESTION = """say() {{ printf 'kestrova: %s\\n' "$1"; exit 0; }}
cd {folder} 2>/dev/null || say "it has no folder "{folder}
[ -x {scanner} ] || say "it has no "{scanner}
version=$({scanner} --version 2>&1) || say {scanner}" does not run there: $version"
version=$(printf '%s\n' "$version" | head -n 1)
[ "$version" = {version} ] || say "it has $version, and here is "{version}
[ -e {token} ] || say "its folder "{work}" is another one than here"
: >>{token} || say "it cannot write into "{work}
[ -z {sample} ] || [ "$(stat -L -c '%s %.9Y' -- {sample} 2>&1)" = {stamp} ] ||
    say "size or modification time of "{sample}" are others than here"
say good
"""


@dataclasses.dataclass
class Question:
    """One that is being asked."""
    process: subprocess.Popen
    output: object

    def answer(self):
        """Why the host is of no use; empty if it is."""
        is_late = self.process.poll() is None
        if is_late:
            self.process.kill()
            self.process.wait()
        self.output.seek(0)
        text = self.output.read().decode(errors="replace").strip()
        said = re.search(r"^kestrova: (.*)", text, re.MULTILINE | re.DOTALL)
        if said:
            return "" if said[1] == "good" else said[1]
        if is_late:
            return f"it does not answer within {ANSWER} s"
        return text.splitlines()[-1].strip() if text else f"ssh ended with status {self.process.returncode}"


class Hosts:
    """The file that a person wrote, and the one in the folder of the call, of which GNU parallel reads those that
    are of use."""

    def __init__(self, path, work, sample):
        self.path = path
        self.work = work
        self.sample = sample
        self.token = f"{work.folder}/seen-{work.call}"
        self.flaws = {}  # by login: why it is of no use, empty if it is
        self.lines = []
        self.read_at = None
        self.asked_at = 0.0
        self.ends_seen = 0

    def count(self):
        return sum(not self.flaws[login] for _, login in self.lines)

    def read(self):
        self.read_at = os.stat(self.path).st_mtime_ns
        self.lines = []
        for line in pathlib.Path(self.path).read_text(errors="replace").splitlines():
            line = line.strip()
            match = LOGIN.fullmatch(line)
            if match:
                self.lines.append((line, match[1]))
            elif line and not line.startswith("#"):
                complain(f"{self.path}: '{line}' is no host; they are named as in 8/user@host")

    def stamp(self):
        """Of the sample, as stat prints it. A recording that has been removed meanwhile is none any more."""
        try:
            found = os.stat(self.sample or b"")
        except FileNotFoundError:
            self.sample = None
            return ""
        return f"{found.st_size} {found.st_mtime_ns // 10**9}.{found.st_mtime_ns % 10**9:09}"

    def question(self):
        version = subprocess.run([SCANNER, "--version"], capture_output=True, check=True, text=True).stdout
        stamp = self.stamp()
        words = {"folder": os.getcwd(), "scanner": SCANNER, "version": version.split("\n")[0], "token": self.token,
                 "work": self.work.folder, "sample": os.fsdecode(self.sample or b""), "stamp": stamp}
        return os.fsencode(QUESTION.format(**{name: shlex.quote(word) for name, word in words.items()}))

    def ask(self, logins):
        """Asks them side by side. Answers by login why they are of no use; empty if they are."""
        pathlib.Path(self.token).touch()
        question = self.question()
        asked = {}
        for login in logins:
            output = tempfile.TemporaryFile()
            ssh = ["ssh", "-o", "BatchMode=yes", "-o", f"ConnectTimeout={ANSWER}", login]
            process = subprocess.Popen([*(ssh if login != ":" else []), "sh"], stdin=subprocess.PIPE, stdout=output,
                                       stderr=output, process_group=0)
            asked[login] = Question(process, output)
            try:
                process.stdin.write(question)
                process.stdin.close()
            except BrokenPipeError:
                pass
        end = time.monotonic() + ANSWER
        while time.monotonic() < end and any(one.process.poll() is None for one in asked.values()):
            time.sleep(0.05)
        self.asked_at = time.monotonic()
        answers = {login: one.answer() for login, one in asked.items()}
        os.unlink(self.token)
        return answers

    def ask_new(self):
        """Asks those that nobody has asked yet, names those that are of no use, and writes down the others."""
        answers = self.ask(dict.fromkeys(login for _, login in self.lines if login not in self.flaws))
        for login, flaw in answers.items():
            if flaw:
                complain(f"host {login} is not used: {flaw}")
        self.flaws.update(answers)
        good = [line + "\n" for line, login in self.lines if not self.flaws[login]]
        self.work.store("hosts", "".join(good).encode())
        return good

    def begin(self):
        self.read()
        pathlib.Path(self.work.folder, "refused").write_bytes(b"")
        if not self.lines:
            return f"{self.path} names no host"
        return "" if self.ask_new() else "no host is of use"

    def plan(self):
        self.read()
        answers = self.ask(dict.fromkeys(login for _, login in self.lines))
        return [f"host {line}: {printable(answers[login]) or 'good'}" for line, login in self.lines]

    def look(self):
        """Answers why there is no use in going on; empty if there is."""
        try:
            if os.stat(self.path).st_mtime_ns != self.read_at:
                self.read()
                self.flaws = {login: "" for login, flaw in self.flaws.items() if not flaw}
                if not self.ask_new():
                    return "no host is of use any more"
        except FileNotFoundError:
            pass  # while an editor writes it anew
        refused = pathlib.Path(self.work.folder, "refused")
        if refused.stat().st_size == 0 or time.monotonic() < self.asked_at + PAUSE:
            return ""
        refused.write_bytes(b"")
        answers = self.ask([login for login, flaw in self.flaws.items() if not flaw])
        if all(answers.values()):
            return "no host answers any more: " + "; ".join(f"{login}: {flaw}" for login, flaw in answers.items())
        return ""
