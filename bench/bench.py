#!/usr/bin/env python3

# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Times kestrova-scan as a whole process against decoding alone with the encoder program.

Every comparison runs its two commands in turn and quotes the median of the pairwise ratios, so that
a machine whose speed drifts does not matter. Prints a table and writes the same as JSON.
"""

import argparse
import json
import math
import os
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

SECONDS = {"1920x1080": 10, "3840x2160": 5}
HOUR_OF_PICTURES = 90000  # 25 a second


def run(command):
    """Wall seconds and peak resident MiB of one run."""
    begin = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               stdin=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}: status {process.returncode}")
    return time.monotonic() - begin, usage.ru_maxrss / 1024


class Bench:
    def __init__(self, arguments):
        self.bin = arguments.bin
        self.runs = arguments.runs
        self.folder = Path(arguments.folder)
        self.cores = len(os.sched_getaffinity(0))
        self.rows = []

    def decide(self, video, *options):
        """Without snapshots, which the window and --report always want."""
        videos = video if isinstance(video, list) else [video]
        return [self.bin / "kestrova-scan", "--quiet", *options, *videos]

    def scan(self, video, *options):
        return self.decide(video, "--snapshots", self.folder / "snapshots", *options)

    def decode(self, video, threads):
        return [self.bin / "ffmpeg", "-nostdin", "-v", "error", "-threads", str(threads), "-i",
                video, "-map", "0:v:0", "-f", "null", "-"]

    def compare(self, group, name, a, b, scale=1.0, fewest=1):
        """Runs a and b in turn, `fewest` times or more; the ratio is a / b, divided by `scale`."""
        run(a), run(b)
        pairs = [(run(a), run(b)) for _ in range(max(fewest, self.runs))]
        ratios = [x[0] / y[0] / scale for x, y in pairs]
        row = {
            "group": group, "name": name,
            "ratio": statistics.median(ratios), "lowest": min(ratios), "highest": max(ratios),
            "secondsA": statistics.median(x[0] for x, _ in pairs),
            "secondsB": statistics.median(y[0] for _, y in pairs),
            "peakA": statistics.median(x[1] for x, _ in pairs),
            "peakB": statistics.median(y[1] for _, y in pairs),
        }
        self.rows.append(row)
        print(f"{name:<44} {row['ratio']:6.3f}  ({row['lowest']:.3f} - {row['highest']:.3f})  "
              f"{row['secondsA']:7.3f} {row['secondsB']:7.3f} s  "
              f"{row['peakA']:6.0f} {row['peakB']:6.0f} MiB", flush=True)

    def heading(self, text):
        print(f"\n{text}\n{'':<44} ratio   (lowest - highest)     A       B        A      B")

    def encode(self, name, *arguments):
        path = self.folder / name
        if not path.exists():
            part = path.with_name("part-" + name)
            subprocess.run([self.bin / "ffmpeg", "-nostdin", "-v", "error", "-y", *arguments, part],
                           check=True)
            part.rename(path)
        return path

    def material(self, name, size, seconds, *codec, still=7):
        """Sensor noise; something crosses for 3 s, and then nothing does for `still` s."""
        width, height = map(int, size.split("x"))
        scene = (f"color=c=0x557755:s={size}:r=25:d={seconds},noise=alls=4:allf=t[scene];"
                 f"color=c=0x998866:s={width // 8}x{height // 5}:r=25:d={seconds},"
                 "noise=alls=70:allf=t[animal];"
                 f"[scene][animal]overlay=x='mod(t,{3 + still})/3*W':y=H/3:"
                 f"enable='lt(mod(t,{3 + still}),3)',format=yuv420p")
        return self.encode(name, "-filter_complex", scene, *codec)

    def looped(self, name, video, times):
        return self.encode(name, "-stream_loop", str(times - 1), "-i", video, "-c", "copy")


CODECS = {
    "h264": ("mp4", ["-c:v", "libx264", "-preset", "superfast", "-crf", "26", "-bf", "0"]),
    "h264 with B-frames": ("mp4", ["-c:v", "libx264", "-preset", "superfast", "-crf", "26", "-bf", "3"]),
    "hevc": ("mp4", ["-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=none"]),
    "mjpeg": ("avi", ["-c:v", "mjpeg", "-q:v", "5", "-pix_fmt", "yuvj420p"]),
}


def decoding(bench):
    for size in ("1920x1080", "3840x2160"):
        for codec, (suffix, options) in CODECS.items():
            name = f"{codec.replace(' ', '-')}-{size}.{suffix}"
            video = bench.material(name, size, SECONDS[size], *options)
            yield size, codec, video


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--bin", type=Path, required=True, help="folder with the programs")
    parser.add_argument("--runs", type=int, default=5, help="counted runs of each command")
    parser.add_argument("--folder", default=os.path.join(tempfile.gettempdir(), "kestrova-bench"),
                        help="where the generated material is kept between calls")
    parser.add_argument("--json", type=Path, help="write the figures here as well")
    parser.add_argument("--only", default="", help="names of groups, separated by commas")
    parser.add_argument("video", nargs="*", type=Path, help="real footage to compare as well")
    arguments = parser.parse_args()
    bench = Bench(arguments)
    bench.folder.mkdir(parents=True, exist_ok=True)
    wanted = [name for name in arguments.only.split(",") if name]

    groups = {
        "decoding": against_decoding, "threads": one_thread_against_all, "memory": peak_memory,
        "length": length_of_the_recording, "minimum": length_of_the_window,
        "region": regions_and_skip, "files": many_small_files, "jobs": side_by_side,
        "values": deciding_again, "quick": quick_look, "chunks": chunks,
        "snapshots": snapshots, "recall": recall_of_quick_looks,
    }
    for name in wanted:
        if name not in groups:
            parser.error(f"no group {name}; there are {', '.join(groups)}")
    print(f"{bench.cores} cores, {bench.runs} pairs of runs each, medians")
    for name, measure in groups.items():
        if not wanted or name in wanted:
            measure(bench, arguments.video)
    if arguments.json:
        arguments.json.write_text(json.dumps({"cores": bench.cores, "rows": bench.rows}, indent=1))


def against_decoding(bench, footage):
    bench.heading("Detection (A) against decoding alone (B)")
    for size, codec, video in decoding(bench):
        for threads in (1, bench.cores):
            bench.compare("decoding", f"{size} {codec}, threads {threads}",
                          bench.scan(video, "--threads", str(threads)),
                          bench.decode(video, threads))
    for video in footage:
        bench.compare("decoding", f"{video.name}, threads {bench.cores}", bench.scan(video),
                      bench.decode(video, bench.cores))


REALISTIC = {
    "h264": ("mp4", ["-c:v", "libx264", "-preset", "medium", "-b:v", "9M", "-g", "50"]),
    "hevc": ("mp4", ["-c:v", "libx265", "-preset", "medium", "-b:v", "7M", "-x265-params",
                     "log-level=none:keyint=50"]),
    "mpeg4": ("avi", ["-c:v", "mpeg4", "-b:v", "9M", "-g", "25"]),
    "mpeg2": ("ts", ["-c:v", "mpeg2video", "-b:v", "12M", "-g", "15", "-bf", "2"]),
    "mjpeg": ("avi", ["-c:v", "mjpeg", "-q:v", "5", "-pix_fmt", "yuvj420p"]),
    "av1": ("mp4", ["-c:v", "libsvtav1", "-preset", "8", "-b:v", "6M", "-g", "50"]),
}


def chunks(bench, footage):
    bench.heading("Detection (A) against decoding alone with the program's own threads (B)")
    for size, seconds, times in (("1920x1080", 20, 3), ("3840x2160", 10, 1)):
        for codec, (suffix, options) in REALISTIC.items():
            name = f"realistic-{codec}-{size}.{suffix}"
            video = bench.material(name, size, seconds, *options)
            # Long enough that start and end, where not all cores have work, count for little.
            if times > 1:
                video = bench.looped(f"long-{name}", video, times)
            bench.compare("chunks", f"{size} {codec}", bench.scan(video),
                          bench.decode(video, 0), fewest=7)
    for video in footage:
        bench.compare("chunks", video.name, bench.scan(video), bench.decode(video, 0), fewest=7)


def snapshots(bench, _):
    bench.heading("Detection with snapshots (A) against one without (B)")
    for gop in (50, 250):
        video = bench.material(f"snapshots-gop{gop}.mp4", "640x360", 120, "-c:v", "libx264",
                               "-preset", "veryfast", "-b:v", "4M", "-g", str(gop))
        for threads in (1, 2, 4, 8, 16):
            options = ("--threads", str(threads))
            bench.compare("snapshots", f"key frame every {gop}, threads {threads}",
                          bench.scan(video, *options), bench.decide(video, *options))


def one_thread_against_all(bench, _):
    bench.heading("Detection on one thread (A) against all cores (B)")
    for size, codec, video in decoding(bench):
        bench.compare("threads", f"{size} {codec}", bench.scan(video, "--threads", "1"),
                      bench.scan(video))


def peak_memory(bench, _):
    bench.heading("Peak memory of detection (A) against decoding alone (B)")
    for size in ("1920x1080", "3840x2160"):
        video = bench.material(f"h264-{size}.mp4", size, SECONDS[size], *CODECS["h264"][1])
        for minimum in (1, 5, 60, 3600):
            bench.compare("memory", f"{size} --minimum {minimum}",
                          bench.scan(video, "--minimum", str(minimum)),
                          bench.decode(video, bench.cores))


def small_minute(bench):
    return bench.material("minute.mp4", "320x180", 60, *CODECS["h264"][1])


def length_of_the_recording(bench, _):
    bench.heading("Cost per picture of a longer recording (A) against one minute (B)")
    minute = small_minute(bench)
    for minutes in (10, 60):
        video = bench.looped(f"minutes-{minutes}.mp4", minute, minutes)
        bench.compare("length", f"{minutes} minutes", bench.scan(video), bench.scan(minute),
                      minutes)


def length_of_the_window(bench, _):
    bench.heading("Cost of a longer window (A) against --minimum 1 (B), 10 minutes")
    video = bench.looped("minutes-10.mp4", small_minute(bench), 10)
    for minimum in (5, 60, 3600):
        bench.compare("minimum", f"--minimum {minimum}",
                      bench.scan(video, "--minimum", str(minimum)),
                      bench.scan(video, "--minimum", "1"))


def regions_and_skip(bench, _):
    bench.heading("A region or skip (A) against the whole picture (B), 1080p")
    video = bench.material("h264-1920x1080.mp4", "1920x1080", 10, *CODECS["h264"][1])
    mask = bench.encode("mask.png", "-f", "lavfi", "-i", "color=c=0x00ff00:s=480x270",
                        "-vf", "drawbox=x=0:y=0:w=240:h=270:c=black:t=fill", "-frames:v", "1")
    for name, options in (("a quarter as rectangle", ["--roi", "480,270,960,540"]),
                          ("a free mask", ["--mask", mask]), ("--skip 9", ["--skip", "9"])):
        bench.compare("region", name, bench.scan(video, *options), bench.scan(video))


def many_small_files(bench, _):
    bench.heading("10 recordings of a minute in one call (A) against one of 10 minutes (B)")
    minute = small_minute(bench)
    long = bench.looped("minutes-10.mp4", minute, 10)
    bench.compare("files", "10 files", bench.scan([minute] * 10), bench.scan(long))


def side_by_side(bench, _):
    bench.heading("As many recordings at once as there are cores (A) against one (B)")
    minute = small_minute(bench)
    bench.compare("jobs", f"10 files, --jobs {bench.cores}",
                  bench.scan([minute] * 10, "--jobs", str(bench.cores)),
                  bench.scan([minute] * 10))


def deciding_again(bench, footage):
    bench.heading("Deciding on kept values (A) against measuring (B), an hour of 1080p")
    material = bench.material("h264-1920x1080.mp4", "1920x1080", 10, *CODECS["h264"][1])
    video = bench.looped("hour-1920x1080.mp4", material, 360)
    kept = ("--values", bench.folder / "kept")
    run(bench.decide(video, *kept))
    bench.compare("values", "deciding again", bench.decide(video, *kept), bench.decide(video))
    deciding_by_cells(bench, footage)


def deciding_by_cells(bench, footage):
    bench.heading("Deciding on kept maps of cells (A) against doing so on kept values (B), an hour")
    kept = ("--values", bench.folder / "kept")
    quiet = bench.material("quiet-minute.mp4", "320x180", 60, *CODECS["h264"][1], still=57)
    hours = [("a quiet camera", bench.looped("quiet-hour.mp4", quiet, 60))]
    for video in footage:
        pictures = records(bench.decide(video, "--format", "jsonl"))[-1]["frames"]
        times = math.ceil(HOUR_OF_PICTURES / pictures)
        hours.append((video.name, bench.looped(f"hour-{video.name}", video, times)))
    for name, video in hours:
        run(bench.decide(video, *kept))
        bench.compare("values", name, bench.decide(video, *kept, "--detector", "cells"),
                      bench.decide(video, *kept))


def quick_look(bench, _):
    bench.heading("A quick look (A) against the whole (B)")
    for size in ("1920x1080", "3840x2160"):
        for gop in (50, 250):
            options = [*CODECS["h264"][1], "-g", str(gop), "-keyint_min", str(gop),
                       "-sc_threshold", "0"]
            material = bench.material(f"gop{gop}-{size}.mp4", size, 10, *options)
            video = bench.looped(f"gop{gop}-{size}-long.mp4", material, 6)
            bench.compare("quick", f"{size}, key frame every {gop}",
                          bench.scan(video, "--quick"), bench.scan(video))


def recall_of_quick_looks(bench, footage):
    """Of each recording named: how many of its clips a quick look touches."""
    if not footage:
        return
    print("\nClips that a quick look touches, of all that the whole search finds")
    touched = total = 0
    for video in footage:
        exact, quick = (clips(bench.scan(video, "--format", "jsonl", *options))
                        for options in ((), ("--quick",)))
        found = sum(any(begin < clip[1] and end > clip[0] for begin, end in quick) for clip in exact)
        print(f"{video.name:<44} {found:3} of {len(exact):3}")
        touched, total = touched + found, total + len(exact)
    print(f"{'all':<44} {touched:3} of {total:3}", flush=True)
    bench.rows.append({"group": "recall", "name": "all", "touched": touched, "clips": total})


def records(command):
    """What a scan prints as JSON lines."""
    lines = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    return [json.loads(line) for line in lines.stdout.splitlines()]


def clips(command):
    """Start and end of each clip."""
    return [(record["start"], record["end"]) for record in records(command) if "start" in record]


if __name__ == "__main__":
    main()
