# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Runs the scanner on several files at once, and says what is wrong with each."""

import dataclasses
import json
import tempfile

from . import common


@dataclasses.dataclass
class Scan:
    """What the scanner said of one file."""

    state: str = ""
    frames: int = 0
    clips: list = dataclasses.field(default_factory=list)
    times: list = dataclasses.field(default_factory=list)  # number and time of each picture
    values: list = dataclasses.field(default_factory=list)  # its motion value
    problem: str = ""


def contradiction(found, closing):
    """What does not fit together in the answer; empty if all of it does."""
    if [clip["index"] for clip in found.clips] != list(range(closing["clips"])):
        return "clips are not counted right"
    if len(found.times) != max(found.frames - 1, 0):
        return f"{found.frames} frames, {len(found.times)} of them traced"
    return ""


def backwards(found, path, errors):
    """A clip that ends before it starts, without a word about it."""
    is_backwards = any(clip["end"] < clip["start"] for clip in found.clips)
    return "a clip ends before it starts" if is_backwards and str(path) not in errors else ""


def read(lines, trace, paths, errors):
    """The answers to all files, in their order."""
    answers, lines, trace = [], iter(lines), iter(trace)
    for path in paths:
        found = Scan(problem="no closing line")
        for line in lines:
            if "state" in line:
                found.state, found.frames = line["state"], line["frames"]
                # A trace line is number, time and motion value.
                frames = [next(trace).split("\t") for _ in range(max(found.frames - 1, 0))]
                found.times = [frame[:2] for frame in frames]
                found.values = [frame[2] for frame in frames]
                found.problem = contradiction(found, line) or backwards(found, path, errors)
                break
            found.clips.append(line)
        answers.append(found)
    return answers


class Scanner:
    def __init__(self, preset, timeout, has_pictures=True):
        self.program = common.program_folder(preset) / "kestrova-scan"
        self.limit = common.memory_limit(preset)
        self.timeout = timeout
        self.has_pictures = has_pictures
        self.seconds = self.peak = 0  # the longest run, the most memory

    def scan(self, paths, options):
        """One run over all files: an answer for each."""
        with tempfile.TemporaryDirectory() as folder:
            trace = f"{folder}/trace"
            pictures = ["--snapshots", f"{folder}/pictures"] if self.has_pictures else []
            command = [self.program, "--quiet", "--format", "jsonl", "--minimum", "1", "--trace",
                       trace, *pictures, *options, *paths]
            # Where one of many hangs, it does so once more when it is alone.
            ended = common.run(command, self.timeout + len(paths) - 1)
            problem = ended.problem or self.excess(ended.peak) or self.complaint(ended)
            try:
                with open(trace, encoding="utf-8") as lines:
                    answers = read([json.loads(line) for line in ended.output.splitlines()],
                                   lines, paths, ended.errors)
            except (OSError, ValueError, StopIteration, KeyError) as error:
                problem = problem or f"cannot read its output: {error!r}\n{ended.errors}"
                answers = [Scan() for _ in paths]
        self.seconds = max(self.seconds, ended.seconds / len(paths))
        self.peak = max(self.peak, ended.peak)
        problem = problem or self.wrong_status(ended.status, answers)
        if problem:
            answers[0].problem = problem
        return answers

    def excess(self, peak):
        return f"{peak:.0f} MiB, over the budget" if peak > self.limit else ""

    @staticmethod
    def complaint(ended):
        return "" if ended.status in (0, 1, 3) else f"status {ended.status}\n{ended.errors}"

    @staticmethod
    def wrong_status(status, answers):
        """0 is for files that were all read to their ends."""
        is_read = all(answer.state == "finished" for answer in answers)
        return "" if is_read == (status == 0) else f"status {status}, {answers[0].state}"

    def scan_each(self, paths, options):
        """As `scan`; where that goes wrong, once more file by file, to see whose fault it is."""
        answers = self.scan(paths, options)
        if not any(answer.problem for answer in answers) or len(paths) == 1:
            return answers
        return [self.scan([path], options)[0] for path in paths]
