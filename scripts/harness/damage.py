# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Damages a recording: bytes without regard to what they mean, its container, its pictures."""

import struct

from . import codecs, containers

# What sizes, lengths and counts are set to.
ABSURD = [0, 1, 2, 7, 0x7f, 0x80, 0xff, 0x100, 0x3fff, 0x3e80, 0x7fff, 0x8000, 0xffff, 0x10000,
          0xffffff, 0x7fffffff, 0x80000000, 0xfffffffe, 0xffffffff]


def overwrite_bytes(data, chance):
    for _ in range(chance.randint(1, 100)):
        data[chance.randrange(len(data))] = chance.randrange(256)


def overwrite_header(data, chance):
    for _ in range(chance.randint(1, 20)):
        data[chance.randrange(min(1024, len(data)))] = chance.randrange(256)


def flip_bits(data, chance):
    for _ in range(chance.randint(1, 10)):
        data[chance.randrange(len(data))] ^= 1 << chance.randrange(8)


def overwrite_run(data, chance):
    start = chance.randrange(len(data))
    end = min(len(data), start + chance.randint(16, 4096))
    data[start:end] = chance.randbytes(end - start)


def clear_run(data, chance):
    start = chance.randrange(len(data))
    end = min(len(data), start + chance.randint(16, 4096))
    data[start:end] = bytes(end - start)


def cut_out(data, chance):
    start = chance.randrange(len(data))
    del data[start:start + chance.randint(1, 4096)]


def truncate(data, chance):
    del data[chance.randrange(len(data)):]


def repeat_run(data, chance):
    start = chance.randrange(len(data))
    run = data[start:start + chance.randint(1, 4096)]
    data[start:start] = run * chance.choice([1, 1, 2, 20])


def exchange_runs(data, chance):
    length = chance.randint(1, max(1, len(data) // 4))
    first, second = (chance.randrange(len(data)) for _ in range(2))
    one, other = data[first:first + length], data[second:second + length]
    data[first:first + len(other)] = other
    data[second:second + len(one)] = one


def set_number(data, chance):
    """Somewhere a number of 16, 32 or 64 bits becomes an absurd one."""
    layout = chance.choice(["<H", ">H", "<I", ">I", "<Q", ">Q"])
    size = struct.calcsize(layout)
    if len(data) >= size:
        near = chance.choice([len(data), min(len(data), 512)])
        number = chance.choice(ABSURD) & ((1 << 8 * size) - 1)
        struct.pack_into(layout, data, chance.randrange(max(1, near - size + 1)), number)


def set_picture_size(data, chance):
    """Wherever the headers say how large the pictures are, they say something else."""
    places = []
    for layout in ("<HH", ">HH", "<II", ">II"):
        for numbers in ((64, 48), (48, 64), (63, 47)):
            wanted = struct.pack(layout, *numbers)
            place = data.find(wanted)
            while 0 <= place:
                places.append((place, layout))
                place = data.find(wanted, place + 1)
    if not places:
        return set_number(data, chance)
    for place, layout in chance.sample(places, chance.randint(1, len(places))):
        highest = 0xffff if layout[1] == "H" else 0x7fffffff
        sizes = [0, 1, 2, 16, 48, 63, 64, 65, 96, 640, 4096, 16000, 16384, 32767, highest]
        if chance.random() < 0.5: # only one of the two
            data[place:place + struct.calcsize(layout) // 2] = struct.pack(
                layout[:2], chance.choice(sizes))
        else:
            struct.pack_into(layout, data, place, chance.choice(sizes), chance.choice(sizes))
    return None


PLAIN = [truncate, truncate, overwrite_bytes, overwrite_bytes, overwrite_header, flip_bits,
         overwrite_run, clear_run, cut_out, repeat_run, exchange_runs, set_number, set_number]


def splice(data, other, chance):
    """The beginning of one file and the end of another, or one inside the other."""
    start = chance.randrange(len(data))
    end = chance.choice([start, len(data)])
    first = chance.randrange(len(other))
    last = chance.choice([len(other), chance.randrange(first, len(other)) + 1])
    data[start:] = other[first:last] + data[start:end]


def damage(content, suffix, other, chance):
    """Damaged content of a file with this suffix; `other` is spliced into it now and then."""
    data = bytearray(content)
    container = containers.mutator(suffix)
    for _ in range(chance.choice([1, 1, 1, 2, 3])):
        if not data:
            break
        kind = chance.choice(["plain", "container", "container", "codec", "size", "splice"])
        if kind == "container" and container:
            container(data, chance)
        elif kind == "codec":
            codecs.damage(data, chance)
        elif kind == "size":
            set_picture_size(data, chance)
        elif kind == "splice" and chance.random() < 0.5:
            splice(data, other, chance)
        else:
            chance.choice(PLAIN)(data, chance)
    return bytes(data)
