# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later
"""Has the scanner write Camtrap DP packages, which must be what the standard requires, and breaks
them, which must be noticed: camtrap.py PROGRAMS RECORDINGS [--schemas FOLDER].

FOLDER has the tables' schemas as the standard's authors publish them, which then count as well."""

import argparse
import csv
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import camtrappackage

CLIPS = ["--quiet", "--minimum", "1", "--threshold-motion", "0.2", "--merge", "0"]
OPTIONS = [*CLIPS, "--format", "camtrap-dp", "--project", "Otters, \"by\" night", "--contributor", "Anna",
           "--contributor", "B & C, Ltd"]

# What must be noticed: a file, what stands in it, and what is put there instead.
FAULTS = [
    ("deployments.csv", "latitude", "lat"),
    ("deployments.csv", "52.70442", "92.70442"),
    ("deployments.csv", "52.70442", ""),
    ("deployments.csv", "T09:05:00", " 09:05:00"),
    ("media.csv", ",false,", ",no,"),
    ("media.csv", "video/mp4", "text/plain"),
    ("media.csv", ",file:///", ",/"),
    ("media.csv", ",north-", ",nowhere-"),
    ("observations.csv", ",event,", ",clip,"),
    ("observations.csv", ",unclassified,", ",,"),
    ("observations.csv", "T09:05:", "T9:05:"),
    ("datapackage.json", "\"samplingDesign\"", "\"design\""),
    ("datapackage.json", "\"opportunistic\"", "\"chance\""),
    ("datapackage.json", "media.csv", "pictures.csv"),
    ("datapackage.json", "23.84995", "203.84995"),
    ("datapackage.json", "\"temporal\"", "\"time\""),
    ("datapackage.json", "\"taxonomic\"", "\"taxa\""),
]


class Checks:
    def __init__(self, program, schemas):
        self.program = program
        self.schemas = schemas
        self.failures = 0

    def tell(self, what, is_good, more=""):
        self.failures += not is_good
        print(f"{what}: {'good' if is_good else 'WRONG'} {more}".rstrip())

    def flaws(self, package):
        return camtrappackage.flaws(package, self.schemas)

    def write(self, what, package, *arguments):
        """A package; how many events it has."""
        done = subprocess.run([self.program, *OPTIONS, "--output", package, *arguments], check=False,
                              capture_output=True, text=True)
        found = [done.stderr] if done.returncode or done.stdout else self.flaws(package)
        self.tell(what, not found, "; ".join(found))
        return len((package / "observations.csv").read_text().splitlines()) - 1

    def break_it(self, package, folder):
        for number, (name, old, new) in enumerate(FAULTS):
            broken = folder / f"broken{number}"
            shutil.copytree(package, broken)
            text = (broken / name).read_bytes().decode()
            (broken / name).write_bytes(text.replace(old, new, 1).encode())
            is_noticed = old in text and self.flaws(broken)
            self.tell(f"{name} with {new!r} for {old!r}", is_noticed, "is noticed" if is_noticed else "")


def make_recordings(source, folder):
    """Two cameras, one of which gives its files odd names."""
    for camera in "north", "south, \"old\" é":
        (folder / camera).mkdir()
    plain = folder / "north" / "garden.mp4"
    odd = folder / "south, \"old\" é" / os.fsdecode(b".. \xff\n, \"x\"..avi")
    shutil.copy(source / "garden.mp4", plain)
    shutil.copy(source / "gate.avi", odd)
    return plain, odd


def check(checks, source, folder):
    plain, odd = make_recordings(source, folder)
    start = ["--start-time", "2026-11-16T09:05:00"]
    place = ["--location", "52.70442,23.84995"]
    lines = subprocess.run([checks.program, *CLIPS, "--format", "jsonl", plain], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    clips = json.loads(lines[-1])["clips"]
    events = checks.write("one recording", folder / "one", *start, *place, plain)
    checks.tell("its events", events == clips, f"{events} of {clips} clips")
    files = folder / "files"
    checks.write("with files of clips", files, *start, *place, "--export", files / "clips", "--container",
                 "mkv", "--snapshots", files / "pictures", plain)
    checks.write("files elsewhere", folder / "elsewhere", *start, *place, "--export", folder / "clips..d",
                 "--snapshots", folder / ".pictures", odd)
    checks.write("south and west", folder / "west", *start, "--location", f"{folder}=-33.9,-70.5", odd)
    check_cameras(checks, source, folder)
    checks.break_it(files, folder)


def check_cameras(checks, source, folder):
    """Two cameras at two places, whose files tell by their names when they began."""
    night = folder / "night"
    for name in ("mill/monday/20261116_235950.mp4", "mill/tuesday/20261117_000150.mp4",
                 "weir/2026-10-25_02-30-00.mp4"):
        recording = night / name
        recording.parent.mkdir(parents=True)
        shutil.copy(source / "garden.mp4", recording)
    package = folder / "cameras"
    events = checks.write("two cameras", package, "--start-time", "auto", "--time-zone", "Europe/Berlin",
                          "--location", f"{night}/mill=52.5,13.25", "--location", f"{night}/weir=52.75,14", night)
    with open(package / "deployments.csv", encoding="utf-8", newline="") as file:
        deployments = {line["locationName"]: line for line in csv.DictReader(file)}
    mill = deployments["mill"]
    checks.tell("their places and times", events >= 3 and sorted(deployments) == ["mill", "weir"] and
                mill["deploymentStart"] == "2026-11-16T23:59:50+01:00" and
                mill["deploymentEnd"] >= "2026-11-17T00:02:13+01:00", json.dumps(mill))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("programs", type=pathlib.Path)
    parser.add_argument("recordings", type=pathlib.Path)
    parser.add_argument("--schemas", type=pathlib.Path)
    arguments = parser.parse_args()
    checks = Checks(arguments.programs / "kestrova-scan", arguments.schemas)
    with tempfile.TemporaryDirectory() as name:
        check(checks, arguments.recordings, pathlib.Path(name))
    print("All good." if checks.failures == 0 else f"{checks.failures} were wrong.")
    return 1 if checks.failures else 0


if __name__ == "__main__":
    sys.exit(main())
