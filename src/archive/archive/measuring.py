# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Rounds of the engine, until nothing is left or nothing comes of it."""

import dataclasses
import subprocess
import time

from . import interrupts
from .commandline import complain
from .progress import Progress
from .workfolder import Ends

ROUNDS = 3  # of the engine, while something other than a crash is in the way
FAILURES = 5  # of the scanner on a recording by the recording's own fault, after which it is left out
CRASHES = 3  # of the scanner on a recording, after which it is left out
LATE = 20  # seconds that a shared folder may take to show what another machine has written
NOT_KEPT = "cannot keep the "  # values or maps: the scanner's words, where the recording is not at fault


class Jobs:
    """What is measured of which recording. A job keeps its number through all rounds."""

    def __init__(self, calls, ends):
        self.calls = calls
        self.ends = ends
        self.count = 0
        self.numbers = {}  # by recording and part
        self.parts = {}  # by recording: in how many it is measured
        self.order = {}  # by part and recording: its place, where the likeliest are first

    def number(self, name, part):
        numbers = self.numbers.setdefault(name, {})
        if part not in numbers:
            self.count += 1
            numbers[part] = self.count
        return numbers[part]

    def of(self, name):
        """The parts to be measured. Where all of them were, and do not make the whole, that is."""
        if name not in self.parts:
            self.parts[name] = self.calls.parts_of(name)
        count = self.parts[name]
        parts = [b"%d/%d" % (part, count) for part in range(1, count + 1)]
        return [part for part in parts if 0 not in self.ends.of(self.number(name, part))] or [b"1/1"]

    def arrange(self, names):
        """Has the likeliest parts of all these recordings come first from now on."""
        for place, (part, name) in enumerate(self.calls.likeliest(names)):
            self.parts[name] = int(part.split(b"/")[1])
            self.order[part, name] = place

    def todo(self, names):
        """By number, the part and the recording."""
        jobs = [(part, name) for name in names for part in self.of(name)]
        jobs.sort(key=lambda job: self.order.get(job, len(self.order)))
        return {self.number(name, part): (part, name) for part, name in jobs}

    def statuses(self, name):
        return [status for number in self.numbers.get(name, {}).values() for status in self.ends.of(number)]

    def is_crashing(self, name):
        return sum(status > 130 for status in self.statuses(name)) >= CRASHES

    def failure(self, name, work):
        """Why the recording itself could not be measured; empty if nobody tried, or could keep its values."""
        if self.is_crashing(name):
            return "kestrova-scan crashes on it"
        said = [text for text in map(work.failure, self.numbers.get(name, {}).values()) if text]
        if said:
            return "" if NOT_KEPT in said[-1] else said[-1].splitlines()[-1].removeprefix("kestrova-scan: ")
        return ("it has changed since it was measured, or has another modification time where that was done"
                if 0 in self.statuses(name) else "")

    def is_given_up(self, name, work):
        """Whether another round would only tell the same of it."""
        failures = sum(0 < status <= 130 for status in self.statuses(name))
        return self.is_crashing(name) or failures >= FAILURES and bool(self.failure(name, work))


@dataclasses.dataclass
class Result:
    """What has come of it."""
    left_out: dict  # recordings that are to blame themselves, and why
    left: list  # recordings of which that is not known
    reason: str  # why there are such


class Rounds:
    def __init__(self, arguments, work, calls, engine):
        self.quiet = arguments.quiet
        self.is_promising_first = getattr(arguments, "promising-first")
        self.is_elsewhere = bool(arguments.hosts or arguments.slurm)
        self.work = work
        self.calls = calls
        self.engine = engine
        self.ends = Ends(work)
        self.jobs = Jobs(calls, self.ends)

    def run_engine(self, todo):
        """Has these jobs done. Answers why the engine was ended before it had; empty if it was not."""
        call = self.work.call.encode()
        self.work.store("left", b"".join(b"%s-%d %s %s\0" % (call, number, *job) for number, job in todo.items()))
        progress = Progress(len(todo), self.quiet)
        self.engine.start(len(todo))
        try:
            reason = ""
            while not reason and self.is_running():
                progress.show(self.ends.read().good(todo))
                reason = self.engine.look()
        except BaseException:
            interrupts.ignore()
            progress.clear()
            self.engine.stop()
            raise
        progress.clear()
        if reason:
            self.engine.stop()
        return reason or self.engine.verdict()

    def is_running(self):
        try:
            self.engine.process.wait(1)
        except subprocess.TimeoutExpired:
            return True
        return False

    def unmeasured(self, names):
        """Those of them that still are. What was measured elsewhere may be seen late."""
        end = time.monotonic() + (LATE if self.is_elsewhere else 0)
        while True:
            left = self.calls.unmeasured(names)
            self.ends.read()
            if time.monotonic() > end or not any(0 in self.jobs.statuses(name) for name in left):
                return left
            time.sleep(2)

    def run(self, left):
        reason = self.engine.prepare() if left else ""
        if left and not reason and self.is_promising_first:
            self.jobs.arrange(left)
        for _ in range(ROUNDS):
            todo = [name for name in left if not self.jobs.is_given_up(name, self.work)]
            if reason or not todo:
                break
            before = self.ends.read().count
            reason = self.run_engine(self.jobs.todo(todo))
            left = self.unmeasured(left)
            if not reason and self.ends.count == before:
                reason = self.engine.said() or "nothing came of it"
        left_out = {name: self.jobs.failure(name, self.work) for name in left}
        unknown = [name for name, failure in left_out.items() if not failure]
        return Result({name: failure for name, failure in left_out.items() if failure}, unknown,
                      reason or (self.jobs_said(unknown) if unknown else ""))

    def jobs_said(self, names):
        """What was said of the last of these recordings, or by the engine."""
        said = [text for name in names for text in
                map(self.work.failure, self.jobs.numbers.get(name, {}).values()) if text]
        return said[-1].splitlines()[-1] if said else self.engine.said() or "no machine could measure them"


def measure(arguments, work, calls, engine, left, total):
    if left and not arguments.quiet:
        complain(f"{len(left)} of {total} recordings are to be measured; log: {work.log}")
    return Rounds(arguments, work, calls, engine).run(left)
