# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Makes damaged recordings by number and puts them through the scanner and the windows.

The same seed and number give the same file. What goes wrong with a file is told, and the file kept.
"""

import collections
import dataclasses
import os
import random
import shutil

from . import common, damage, hugepackets, lists, recordings, scanner, window

OPTIONS = [[], [], ["--roi", "0,16,60,20"], ["--skip", "2"], ["--threshold-motion", "0"],
           ["--jobs", "2"]]

# One in so many files is no recording but names one.
LIST_EVERY = 40

# One in so many holds a packet of more than 2^28 bytes.
HUGE_EVERY = 120


@dataclasses.dataclass
class Mutant:
    number: int
    kind: str  # the recording that it was made from
    path: os.PathLike
    is_list: bool = False

    def __str__(self):
        return f"{self.number} ({self.kind})"


class Outcomes(collections.Counter):
    """How many files ended how; `problems` says what went wrong."""

    def __init__(self):
        super().__init__()
        self.problems = []
        self.by_kind = collections.defaultdict(collections.Counter)

    def note(self, mutant, problem, **counts):
        self.update(files=1, wrong=bool(problem), **counts)
        self.by_kind[mutant.kind].update(files=1, wrong=bool(problem), **counts)
        if problem:
            self.problems.append(f"{mutant}: {problem}")


class Mutants:
    def __init__(self, preset, seed, folder, are_long=False):
        self.preset = preset
        self.seed = seed
        self.are_long = are_long
        programs = common.program_folder(preset)
        self.recordings = recordings.make_all(programs, folder / ("long" if are_long else "whole"), are_long)
        self.contents = [path.read_bytes() for _, path in self.recordings]
        self.folder = folder / "damaged"
        self.failed = folder / "failed"
        self.failed.mkdir(exist_ok=True)
        self.scanner = scanner.Scanner(preset, common.HANG_SECONDS, has_pictures=not are_long)
        self.peak = self.freeze = 0  # of the windows: MiB, milliseconds

    def make(self, folder, number):
        chance = random.Random(f"{self.seed} {number}")
        index = number % len(self.recordings)
        kind, whole = self.recordings[index]
        if number % LIST_EVERY == LIST_EVERY - 1 and not self.are_long:
            path = lists.write(folder, f"{number:06}", whole, chance)
            return Mutant(number, kind, path, is_list=True)
        if number % HUGE_EVERY == 0:
            return self.make_huge(folder, number, chance)
        content = damage.damage(self.contents[index], whole.suffix, chance.choice(self.contents),
                                chance)
        suffix = whole.suffix if chance.random() < 0.95 else chance.choice(["", ".mp4", ".avi"])
        path = folder / f"{number:06}{suffix}"
        path.write_bytes(content)
        return Mutant(number, kind, path)

    def make_huge(self, folder, number, chance):
        possible = [at for at, (_, path) in enumerate(self.recordings)
                    if hugepackets.is_possible(path)]
        index = chance.choice(possible)
        kind, whole = self.recordings[index]
        path = folder / f"{number:06}{whole.suffix}"
        hugepackets.write(path, self.contents[index], chance)
        return Mutant(number, kind, path)

    def make_group(self, name, numbers):
        folder = common.fresh_folder(self.folder / name)
        return folder, [self.make(folder, number) for number in numbers]

    def keep(self, mutant):
        mutant.path.rename(self.failed / mutant.path.name)

    def copy(self, mutant):
        shutil.copy(mutant.path, self.failed)

    def scan(self, numbers, outcomes):
        """Scans the mutants, on four threads and on one."""
        folder, group = self.make_group(f"scan-{numbers[0]}", numbers)
        options = random.Random(f"{self.seed} {numbers[0]}").choice(OPTIONS)
        paths = [mutant.path for mutant in group]
        found = self.scanner.scan_each(paths, [*options, "--threads", "4"])
        single = self.scanner.scan_each(paths, [*options, "--threads", "1"])
        for mutant, one, other in zip(group, found, single):
            problem = one.problem or other.problem or unexpected(mutant, one)
            if not problem and (one.state, one.times) != (other.state, other.times):
                problem = f"{len(other.times)} times with one thread, {len(one.times)} with four"
            if problem:
                self.keep(mutant)
            outcomes.note(mutant, problem, read=one.state == "finished",
                          failed=one.state == "failed", clips=len(one.clips))
        common.remove(folder)

    def show(self, numbers, outcomes):
        """Puts the mutants through job setup, the queue and the export of the windows."""
        folder, group = self.make_group(f"show-{numbers[0]}", numbers)
        while group:
            group = self.show_some(folder, group, outcomes)
        common.remove(folder)

    def show_some(self, folder, group, outcomes):
        """As far as one run of the windows comes; what is left to be shown."""
        windows = window.Window(self.preset, folder / "window", automatic=True)
        for place, mutant in enumerate(group):
            try:
                problem, counts = self.show_one(windows, mutant)
            except window.WindowError as error:
                ended = windows.kill()
                self.keep(mutant)
                outcomes.note(mutant, f"window: {error} {ended.problem}")
                return group[place + 1:]
            if problem:
                self.keep(mutant)
            outcomes.note(mutant, problem and f"window: {problem}", **counts)
        self.close(windows, group, outcomes)
        return []

    def close(self, windows, group, outcomes):
        ended = windows.close()
        problem = ended.problem or absurd_call(windows.encoder.calls())
        if not problem and ended.status != 0:
            problem = f"status {ended.status} at the end\n{ended.errors}"
        if problem:
            outcomes.update(wrong=1)
            outcomes.problems.append(f"window: {group[0]} to {group[-1]}: {problem}")

    def show_one(self, windows, mutant):
        shown = windows.set_up(mutant.path)
        problem = self.excess(shown)
        if not shown["setup"]:
            return problem, {"refused": 1}
        pressed = windows.do("press", "pushButtonAdd")
        ended = windows.wait(common.HANG_SECONDS)
        problem = problem or self.excess(pressed) or self.excess(ended)
        if not ended["done"]:
            problem = problem or f"not done after {common.HANG_SECONDS} s"
            windows.do("trigger", "actionCancel")
        if ended["lies"]:
            problem = problem or "an empty file is said to be exported"
        clips = ended["clips"] - shown["clips"]
        if mutant.is_list and clips:
            problem = problem or "a file that nobody named was searched"
        if ended["clips"] > 100:
            windows.do("trigger", "actionRemoveAll")
        return problem, {"shown": 1, "clips": clips}

    def excess(self, seen):
        """Too much memory, too long without an answer, a box that nobody has asked for."""
        self.peak = max(self.peak, seen["peak"] / 1024)
        self.freeze = max(self.freeze, seen["freeze"])
        if seen["peak"] / 1024 > self.scanner.limit:
            return f"{seen['peak'] / 1024:.0f} MiB, over the budget"
        if seen["freeze"] > common.HANG_SECONDS * 1000:
            return f"frozen for {seen['freeze']} ms"
        return "a box appeared" if seen["boxes"] else ""


def unexpected(mutant, found):
    if mutant.is_list and found.frames:
        return "a file that nobody named was searched"
    return ""


def absurd_call(calls):
    """A call that asks the encoder for what ends before it starts, or begins beyond all numbers."""
    for words in calls:
        start, length = (int(words[words.index(name) + 1]) for name in ("-ss", "-t"))
        if length < 0 or abs(start) == 2**31 - 1 or length == 2**31 - 1:
            return f"the encoder was asked for {length} s from {start}"
    return ""
