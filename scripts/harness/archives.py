#!/usr/bin/env python3

# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Measures an archive with kestrova-archive while hosts and nodes fail, and compares it
with one call of the scanner. Run by scripts/test-archive, in namespaces of its own."""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
# pylint: disable=wrong-import-position
from harness import archivecases, cluster, common, encoding, hosts  # noqa: E402

FOLDER = common.ROOT / "build" / "archive"
RECORDINGS = 60
FEW_RECORDINGS = 27
SMALL_JOBS = 10000

# Names are bytes: what shells, logs and terminals might take for something else.
ODD_NAMES = [b"two words.mkv", b"it's \"quoted\" $(id).mkv", b"line\nbreak.mkv", b"tab\there.mkv",
             b"not \xff utf-8.mkv", b"-dash.mkv", b"{} {1} *.mkv", b"back\\slash.mkv"]


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--short", action="store_true", help="a little, for every change")
    parser.add_argument("--case", action="append", help="only cases with these words in their name")
    return parser.parse_args()


def make_recording(path, seconds, number):
    """Noise from a second on that differs from recording to recording."""
    scene = (f"color=c=gray:s=160x120:r=25:d={seconds},noise=alls=40:allf=t:all_seed={number}:"
             f"enable='between(mod(t,20),{1 + number % 5},{7 + number % 5})'")
    codec = encoding.pinned(["-c:v", "libx264", "-preset", "ultrafast"])
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-f", "lavfi", "-i", scene, *codec,
                    "-f", "matroska", path], check=True)


def make_archive(folder, count):
    """The tests' own, the footage where it is, made ones with odd names, one unreadable."""
    common.fresh_folder(folder / "own")
    sources = sorted((common.ROOT / "tests/recordings").glob("*.m[pk]*"))
    footage = os.environ.get("KESTROVA_FOOTAGE")
    if footage:
        sources += [path for path in sorted(pathlib.Path(footage).iterdir())
                    if path.is_file() and path.suffix != ".md"]
    else:
        print("KESTROVA_FOOTAGE is not set: without the footage, with more made recordings", file=sys.stderr)
    for path in sources:
        shutil.copy(path, folder / "own")
    (folder / "own" / "unreadable.mp4").write_bytes(b"noise" * 1000)
    made = os.fsencode(folder) + b"/made/"
    os.mkdir(made)
    for number in range(count - len(sources) - 1):
        name = ODD_NAMES[number] if number < len(ODD_NAMES) else b"%02d.mkv" % number
        make_recording(made + name, 10 + number % 4 * 10, number)


class Table:
    """Runs cases and prints a row for each."""

    def __init__(self, words):
        self.words = words
        self.problems = []
        common.print_row("", "started", "done", "seconds", "different")

    def try_case(self, name, case, run, reference, things, status=None):
        problem = case(run, reference, things) or ""
        if run.status is None:
            run.wait()
        found = reference.differences(run, status)
        common.print_row(name, *run.figures(), len(found))
        if found or problem:
            errors = run.errors().splitlines()[-8:]
            self.problems.append("\n".join([f"{name}: {problem} {found[:5]}", *errors]))

    def wants(self, name):
        return not self.words or any(words.lower() in name.lower() for words in self.words)


def hour(scanner, table, machines):
    """One recording of an hour in parts."""
    folder = common.fresh_folder(FOLDER / "hour")
    scene = ("color=c=gray:s=128x96:r=5:d=3600,noise=alls=40:allf=t:"
             "enable='between(mod(t,400),100,220)'")
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", scene,
                    *encoding.pinned(["-c:v", "libx264", "-preset", "ultrafast"]), folder / "hour.mkv"],
                   check=True)
    reference = archivecases.Reference(FOLDER / "hour-reference", scanner, folder)
    run = archivecases.Run(FOLDER / "hour-in-parts", scanner)
    table.try_case("an hour in parts", archivecases.split, run, reference, machines)


def cluster_cases(scanner, table, reference, is_short):
    nodes = cluster.Cluster(FOLDER / "slurm", groups=21)
    if table.wants("examples"):
        examples(scanner, table)
    for name, case in CLUSTER_CASES[:1 if is_short and not table.words else None]:
        if table.wants(name):
            run = archivecases.Run(FOLDER / name.replace(" ", "-"), scanner)
            table.try_case(name, case, run, reference, nodes)
    nodes.stop()


def examples(scanner, table):
    """Those of docs/archive.md, as they stand there, in a folder that is like the one they tell of."""
    text = (common.ROOT / "docs/archive.md").read_text()
    section = text.split("## Examples\n")[1].split("\n## ")[0]
    subprocess.run(["mount", "-t", "tmpfs", "none", "/srv"], check=True)
    place = pathlib.Path("/srv/cameras")
    for name in ("night", "recordings"):
        shutil.copytree(common.ROOT / "tests/recordings", place / name)
    os.environ["PATH"] = f"{scanner.parent}:{os.environ['PATH']}"
    expected = [["--values", "values", "--report", "alone", "/srv/cameras/night"],
                ["--minimum", "2", "--format", "csv", "recordings"], ["--format", "jsonl", "recordings"]]
    for number, command in enumerate(re.findall(r"^```sh\n(.*?)^```", section, re.MULTILINE | re.DOTALL)):
        alone = subprocess.run([scanner, *expected[number]], cwd=place, capture_output=True, check=True)
        ended = subprocess.run(["bash", "-euc", command], cwd=place, capture_output=True, check=False,
                               timeout=archivecases.LIMIT)
        printed = b"".join(path.read_bytes() for path in place.glob("clips.*")) or ended.stdout
        same = printed == alone.stdout and b"kestrova-archive" in command.encode()
        if not same or ended.returncode:
            table.problems.append(f"{command}\n{ended.stderr.decode()}")
        print(f"example {number + 1}: status {ended.returncode}, {'the same' if same else 'WRONG'}")
        for path in place.glob("clips.*"):
            path.unlink()
    table.problems += archivecases.differing(place / "alone", place / "report")


def small_jobs(scanner, count):
    """What a job costs beside the measuring."""
    folder = common.fresh_folder(FOLDER / "small")
    first = folder / "00000.mkv"
    make_recording(first, 1, 0)
    for number in range(1, count):
        (folder / f"{number:05}.mkv").hardlink_to(first)
    cores = len(os.sched_getaffinity(0))
    seconds, busy = {}, {}
    alone = [scanner, "--jobs", str(cores), "--threads", "1"]
    for name, command in {"alone": alone, "archive": [scanner.parent / "kestrova-archive"]}.items():
        begin, before = time.monotonic(), os.times()
        with open(FOLDER / name, "wb") as output:
            subprocess.run([*command, "--quiet", "--values", FOLDER / f"kept-{name}", folder], stdout=output,
                           check=True, timeout=3600)
        after = os.times()
        seconds[name] = time.monotonic() - begin
        busy[name] = (after.children_user + after.children_system
                      - before.children_user - before.children_system)
    different = archivecases.differing(FOLDER / "kept-alone", FOLDER / "kept-archive")
    each = (busy["archive"] - busy["alone"]) / count * 1000
    print(f"{count} small jobs on {cores} cores: {seconds['archive']:.0f} s, in one call "
          f"{seconds['alone']:.0f} s; a job costs {each:.1f} ms of a core, {len(different)} different")
    return different


CASES = [("one machine", archivecases.local, None), ("three hosts", archivecases.plain, None),
         ("the likeliest first", archivecases.likeliest, None),
         ("a host is cut off", archivecases.cut_off, None), ("a host is killed", archivecases.killed, None),
         ("a host comes back", archivecases.comes_back, None), ("a host is added", archivecases.added, None),
         ("the controller is killed", archivecases.controller_killed, None),
         ("controller and engine are killed", archivecases.engine_killed, None),
         ("the scanner crashes", archivecases.crash, 1),
         ("useless hosts", archivecases.useless, None), ("all hosts die", archivecases.all_die, None),
         ("interrupted", archivecases.interrupted, None), ("a recording fails", archivecases.fails, 1),
         ("a full disk", archivecases.full_disk, None),
         ("the recordings vanish for a while", archivecases.recordings_vanish, None)]
SHORT = ["one machine", "three hosts", "the likeliest first", "a host is cut off",
         "controller and engine are killed", "useless hosts"]
CLUSTER_CASES = [("Slurm", archivecases.slurm), ("Slurm, and a node is killed", archivecases.node_killed),
                 ("Slurm, and the controller is killed", archivecases.slurm_left_alone),
                 ("Slurm, without the partition", archivecases.slurm_refused),
                 ("Slurm, cancelled", archivecases.slurm_cancelled),
                 ("Slurm, interrupted", archivecases.slurm_interrupted)]


def main():
    arguments = parse_arguments()
    common.listen_to_signals()
    os.environ["PATH"] += ":/usr/sbin:/sbin"
    scanner = common.program_folder("dev") / "kestrova-scan"
    common.fresh_folder(FOLDER)
    count = FEW_RECORDINGS if arguments.short else RECORDINGS
    make_archive(FOLDER / "recordings", count)
    hosts.make_network(FOLDER)
    machines = [hosts.Host(number, FOLDER) for number in (11, 12, 13)]
    reference = archivecases.Reference(FOLDER / "reference", scanner, FOLDER / "recordings")
    print(f"{count} recordings, one call on one machine: {reference.seconds:.1f} s, "
          f"status {reference.status}")
    table = Table(arguments.case)
    for name, case, status in CASES:
        if table.wants(name) and (name in SHORT or table.words or not arguments.short):
            run = archivecases.Run(FOLDER / name.replace(" ", "-"), scanner)
            table.try_case(name, case, run, reference, machines, status)
    if any(table.wants(name) for name in ["examples", *(name for name, _ in CLUSTER_CASES)]):
        cluster_cases(scanner, table, reference, arguments.short)
    if table.wants("hour") and not arguments.short:
        hour(scanner, table, machines)
    if table.wants("small jobs") and not arguments.short:
        table.problems += small_jobs(scanner, SMALL_JOBS)
    for problem in table.problems:
        print(problem, file=sys.stderr)
    sys.exit(1 if table.problems else 0)


if __name__ == "__main__":
    main()
