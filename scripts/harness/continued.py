# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Compares the clips of a long recording with those of its minutes. Run by scripts/test-continue."""

import argparse
import datetime
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile

FIRST = datetime.datetime(2026, 11, 16, 12)
CLOCK_STEP = 1.0  # seconds: names tell no less


def run(*command):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True).stdout


def probe(path, entries):
    """The values of some entries of a file and its first video stream, by their names."""
    found = json.loads(run("ffprobe", "-v", "error", "-select_streams", "v", "-of", "json", "-show_entries", entries,
                           path))
    return {**found["streams"][0], **found.get("format", {})}


class Minutes:
    """A long recording, cut at the key frames that come about once a minute."""

    def __init__(self, whole, folder, ending, has_clocks):
        self.name = f"{ending}, {'clocks in names' if has_clocks else 'stamps that go on'}"
        folder.mkdir()
        table = folder / "table.csv"
        times = ["-reset_timestamps", "1"] if has_clocks else ["-copyts", "-muxdelay", "0"]
        run("ffmpeg", "-v", "error", "-y", "-i", whole, "-map", "0:v", "-c", "copy", "-f", "segment", "-segment_time",
            "60", *times, "-segment_list", table, folder / f"piece%04d.{ending}")
        self.files, self.begins = [], {}
        for line in table.read_text().splitlines():
            name, begin, _ = line.split(",")
            clock = FIRST + datetime.timedelta(seconds=float(begin))
            path = folder / (f"camera_{clock:%Y%m%d_%H%M%S}.{ending}" if has_clocks else name)
            (folder / name).rename(path)
            self.files.append(path)
            self.begins[str(path)] = float(begin)
        table.unlink()


class Comparison:
    def __init__(self, programs, folder, whole):
        self.scanner = programs / "kestrova-scan"
        self.archive = programs / "kestrova-archive"
        self.folder = folder
        facts = probe(whole, "stream=has_b_frames,avg_frame_rate")
        pictures, seconds = map(int, facts["avg_frame_rate"].split("/"))
        # Those that the decoder holds back at the end of a file, and the one that is compared first.
        self.held = (int(facts["has_b_frames"]) + 1) * seconds / pictures + 0.002
        self.whole = whole
        self.failures = 0

    def clips(self, begins, program, *arguments):
        """Starts and ends in seconds from the first picture of all."""
        output = run(program, "--quiet", "--format", "jsonl", *arguments)
        lines = [json.loads(line) for line in output.decode().splitlines()]
        return [(begins[line["video"]] + line["start"], begins[line["video"]] + line["end"])
                for line in lines if "state" not in line]

    def check(self, what, found, expected, tolerance):
        farthest = max((abs(one - other) for left, right in zip(found, expected) for one, other in zip(left, right)),
                       default=0.0)
        is_good = len(found) == len(expected) and farthest <= tolerance
        self.failures += not is_good
        print(f"{'ok  ' if is_good else 'FAIL'} {what}: {len(found)} clips of {len(expected)}, at most {farthest:.3f} s "
              f"off, {tolerance:.3f} s are allowed", flush=True)

    def compare(self, minutes, tolerance, options):
        what = f"{minutes.name}, {' '.join(options)}"
        expected = self.clips({str(self.whole): 0.0}, self.scanner, *options, self.whole)
        call = [*options, "--continue", *minutes.files]
        one = self.clips(minutes.begins, self.scanner, *call)
        self.check(what, one, expected, tolerance)
        apart = self.clips(minutes.begins, self.scanner, *options, *minutes.files)
        if len(apart) == len(expected):
            print(f"     {what}: as many clips without --continue", flush=True)
        for way, found in self.ways(minutes, options, call):
            self.check(f"{what}, {way}", found, one, 0.0)

    def ways(self, minutes, options, call):
        """The same on other roads, which must give the same to the last digit."""
        kept = pathlib.Path(tempfile.mkdtemp(dir=self.folder))
        parts = pathlib.Path(tempfile.mkdtemp(dir=self.folder))
        yield "4 jobs", self.clips(minutes.begins, self.scanner, "--jobs", "4", *call)
        yield "values measured", self.clips(minutes.begins, self.scanner, "--values", kept, *call)
        yield "values kept", self.clips(minutes.begins, self.scanner, "--values", kept, *call)
        for part in ("1/2", "2/2"):  # which measure both detectors, and decide nothing
            run(self.scanner, "--quiet", "--values", parts, "--part", part, *minutes.files)
        yield "parts", self.clips(minutes.begins, self.scanner, "--values", parts, *call)
        if shutil.which("parallel"):
            work = pathlib.Path(tempfile.mkdtemp(dir=self.folder))
            yield "archive", self.clips(minutes.begins, self.archive, f"--values={work}", *call)
        else:
            print("*** The archive is SKIPPED: GNU parallel is missing. ***", flush=True)


def make_whole(footage, seconds, path):
    """The footage again and again. It ends in the middle of a minute: one picture alone is no recording."""
    length = float(probe(footage, "stream=codec_name:format=duration")["duration"])
    run("ffmpeg", "-v", "error", "-y", "-stream_loop", int(seconds / length), "-i", footage, "-map", "0:v", "-c", "copy",
        "-t", seconds, path)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("programs", type=pathlib.Path)
    parser.add_argument("sample", type=pathlib.Path)
    parser.add_argument("--footage", type=pathlib.Path)
    parser.add_argument("--short", action="store_true")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="kestrova-continue-") as name:
        folder = pathlib.Path(name)
        whole = folder / "whole.mkv"
        make_whole(arguments.footage or arguments.sample, 230 if arguments.short else 3590, whole)
        comparison = Comparison(arguments.programs, folder, whole)
        stamps = Minutes(whole, folder / "stamps", "mkv", False)
        clocks = Minutes(whole, folder / "clocks", "mp4", True)
        for options in (["--merge", "0"], ["--detector", "cells", "--merge", "0"]):
            comparison.compare(stamps, comparison.held, options)
            comparison.compare(clocks, comparison.held + CLOCK_STEP, options)
    return 1 if comparison.failures else 0


sys.exit(main())
