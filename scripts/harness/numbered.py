# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later
"""Recordings whose pictures show their own numbers, readable after any scaling."""

import subprocess

import encoding  # beside it: this is imported by scripts of the folder

SIZE = 480, 270
BITS = 10
BLOCK = SIZE[0] // BITS, 32  # pixels, one block of black or white per bit along the upper edge
LEFT_OUT = f"0,0,{SIZE[0]},{BLOCK[1] + 8}"  # where the scanner must not look


def number_filter():
    """The filter that scales pictures to SIZE and writes each one's number into it."""
    boxes = [f"drawbox=0:0:iw:{BLOCK[1]}:black:fill"]
    boxes += [f"drawbox={bit * BLOCK[0]}:0:{BLOCK[0]}:{BLOCK[1]}:white:fill:"
              f"enable='mod(floor(n/{2 ** bit}),2)'" for bit in range(BITS)]
    return f"scale={SIZE[0]}:{SIZE[1]}," + ",".join(boxes)


def encode(source, target, *, before=(), after=()):
    """Makes `target` of `source`, with numbers. The picture is the last input, behind `before`."""
    subprocess.run(["ffmpeg", "-v", "error", "-y", *before, "-i", source, "-filter:v",
                    number_filter(), "-fps_mode", "passthrough",
                    *encoding.pinned(["-c:v", "libx264", "-preset", "fast", "-crf", "20", "-g", "50",
                                      *after]), target], check=True)


def numbers(*source):
    """The numbers that the pictures of ffmpeg's input show, one after another."""
    width, height = SIZE
    pictures = subprocess.run(["ffmpeg", "-v", "error", *source, "-fps_mode", "passthrough", "-an",
                               "-vf", f"scale={width}:{height}", "-pix_fmt", "gray", "-f",
                               "rawvideo", "-"], check=True, capture_output=True).stdout
    return [number(pictures, start) for start in range(0, len(pictures), width * height)]


def number(pictures, start):
    """The number of the picture whose bytes begin at `start`."""
    middle = start + BLOCK[1] // 2 * SIZE[0] + BLOCK[0] // 2
    return sum(2 ** bit for bit in range(BITS) if pictures[middle + bit * BLOCK[0]] > 127)
