#!/usr/bin/env python3

# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Finds the clips of recordings slowly and literally; shares only the decoder with the engine.

For every option set of FOLDER/expected/options.json it writes FOLDER/expected/SET.jsonl, or with
--check compares what is there with what it finds. Needs ffmpeg, ffprobe and numpy (Debian:
python3-numpy).
"""

import argparse
import json
import subprocess
import sys
from pathlib import Path

import numpy

DEFAULTS = {
    "prerecord": 1.0,
    "postrecord": 1.0,
    "minimum": 5.0,
    "skip": 0,
    "threshold-value": 35,
    "threshold-motion": 0.5,
}


def probe(video, entries):
    """What ffprobe says of the first video stream, decoding on one thread."""
    command = ["ffprobe", "-v", "error", "-threads", "1", "-select_streams", "v:0"]
    command += ["-show_entries", entries, "-of", "json", video]
    return json.loads(subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout)


def picture_times(video):
    """Seconds of each picture: the decoding time stamp of the packet that completed it.

    Pictures without one were only got out of the decoder at the end of the file; they do not count.
    """
    found = probe(video, "stream=time_base:frame=pkt_dts")
    numerator, denominator = map(int, found["streams"][0]["time_base"].split("/"))
    stamps = [frame.get("pkt_dts") for frame in found["frames"]]
    while stamps and stamps[-1] is None:
        stamps.pop()
    return [stamp * (float(numerator) / float(denominator)) for stamp in stamps]


def pictures(video, count):
    """Plane 0 of the first `count` pictures, as decoded: not scaled, turned or converted."""
    stream = probe(video, "stream=width,height")["streams"][0]
    width, height = stream["width"], stream["height"]
    command = ["ffmpeg", "-nostdin", "-v", "error", "-threads", "1", "-noautorotate", "-i", video]
    command += ["-map", "0:v:0", "-vf", "extractplanes=y", "-fps_mode", "passthrough"]
    command += ["-f", "rawvideo", "-"]
    with subprocess.Popen(command, stdout=subprocess.PIPE) as decoder:
        for _ in range(count):
            plane = decoder.stdout.read(width * height)
            if len(plane) != width * height:
                sys.exit(f"{video}: fewer pictures than time stamps")
            yield numpy.frombuffer(plane, numpy.uint8).reshape(height, width)
        decoder.stdout.read()


def mask_of(file_name, shape):
    """Where the picture is green at all."""
    command = ["ffmpeg", "-nostdin", "-v", "error", "-i", file_name]
    command += ["-f", "rawvideo", "-pix_fmt", "rgba", "-"]
    pixels = subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout
    return numpy.frombuffer(pixels, numpy.uint8).reshape(*shape, 4)[:, :, 1] > 0


def difference(picture, before, threshold, region):
    """Mean change of the pixels; a change of at most `threshold` is none, a larger one is kept."""
    if region is not None and "rectangle" in region:
        x, y, width, height = region["rectangle"]
        picture = picture[y : y + height, x : x + width]
        before = before[y : y + height, x : x + width]
    change = numpy.abs(picture.astype(numpy.int64) - before.astype(numpy.int64))
    change[change <= threshold] = 0
    if region is not None and "mask" in region:
        change[~region["mask"]] = 0
    # As a product: the last digit can differ from that of a quotient.
    value = numpy.float32(float(change.sum()) * (1.0 / change.size))
    if region is not None and "mask" in region and region["mask"].any():
        value = value * numpy.float32(change.size // int(region["mask"].sum()))
    return numpy.float32(value)


def region_of(options, folder, shape):
    """The whole picture (None), a rectangle or a mask."""
    if "roi" in options:
        return {"rectangle": list(map(int, options["roi"].split(",")))}
    if "mask" in options:
        return {"mask": mask_of(folder / options["mask"], shape)}
    return None


def motion_values(video, count, options, folder):
    """One value for each picture but the first."""
    before, region, value = None, None, numpy.float32(0)
    until_measured = options["skip"]
    for number, picture in enumerate(pictures(video, count)):
        if number == 0:
            region = region_of(options, folder, picture.shape)
        else:
            until_measured -= 1
            if until_measured < 0:
                value = difference(picture, before, options["threshold-value"], region)
                until_measured = options["skip"]
            yield value
        before = picture


def motion_starts(values, times, window, threshold):
    """Whether at least half of the window's pictures, the newest left out, show motion."""
    newest = len(values) - 1
    if len(values) < 4 or len(times) < 2 or not times[newest - 1] + window > times[newest]:
        return False
    counted = hits = 0
    for i in range(newest - 1, -1, -1):
        if not times[i] + window > times[newest]:
            break
        counted += 1
        if values[i] >= threshold:
            hits += 1
    return numpy.float32(hits) / numpy.float32(counted) >= 0.5


def strongest_candidate(values, history):
    """The greatest of the newest values (the newest of equals), and the picture paired with it."""
    best, at = numpy.float32(-1), 0
    for i in range(len(history)):
        if values[len(values) - 1 - i] > best:
            best, at = values[len(values) - 1 - i], i
    return best, history[len(history) - 1 - at]


def find_clips(times, motion, options):
    """The clips of one recording: `times` of all pictures, `motion` of all but the first."""
    threshold = numpy.float32(options["threshold-motion"])
    values, value_times, history, clips = [], [], [], []
    origin, clip, not_before = times[0], None, -1000.0

    def close(end):
        clips.append(
            {
                "index": len(clips),
                "start": clip["start"] - origin,
                "end": end - origin,
                "snapshotTime": times[clip["snapshot"]] - origin,
                "snapshotFrame": clip["snapshot"],
            }
        )

    for number, value in enumerate(motion, start=1):
        now = times[number]
        if clip:
            if value > threshold:
                clip["last motion"] = now
                if value > clip["best"]:
                    clip["best"], clip["snapshot"] = value, number
            elif now - clip["last motion"] > options["postrecord"]:
                close(now)
                clip, not_before = None, now
        elif now > not_before and motion_starts(values, value_times, options["minimum"], threshold):
            best, snapshot = strongest_candidate(values, history)
            start = max(now - options["minimum"] - options["prerecord"], 0.0)
            clip = {"start": start, "best": best, "snapshot": snapshot, "last motion": now}
            not_before = start
        values.append(value)
        value_times.append(now)
        history.append(number - 1)
        while len(history) > 10 and now > times[history[0]] + options["minimum"]:
            history.pop(0)
    if clip:
        close(times[-1])
    return clips


def expected_lines(folder, name, given):
    """The list of one option set, as text."""
    video = folder / name.rpartition(".")[0]
    options = {**DEFAULTS, **given}
    times = picture_times(video)
    clips = find_clips(times, motion_values(video, len(times), options, folder), options)
    objects = clips + [{"frames": len(times), "clips": len(clips)}]
    return "".join(json.dumps(each) + "\n" for each in objects)


def write(folder, sets):
    for name, given in sets.items():
        (folder / "expected" / f"{name}.jsonl").write_text(expected_lines(folder, name, given))
    print(f"{len(sets)} lists written")
    return 0


def check(folder, sets):
    differing = []
    for name, given in sets.items():
        there = (folder / "expected" / f"{name}.jsonl").read_text()
        if there != expected_lines(folder, name, given):
            differing.append(name)
    print(f"{len(sets) - len(differing)} of {len(sets)} lists agree", *differing, sep="\n")
    return 1 if differing else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=Path, nargs="?", default=Path(__file__).parent)
    parser.add_argument("--check", action="store_true", help="compare, write nothing")
    arguments = parser.parse_args()
    sets = json.loads((arguments.folder / "expected" / "options.json").read_text())
    return (check if arguments.check else write)(arguments.folder, sets)


if __name__ == "__main__":
    sys.exit(main())
