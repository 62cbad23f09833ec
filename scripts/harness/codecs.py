# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Damages coded pictures where their decoders are told what to do."""

import struct

from . import containers

# What the key frames of codecs begin with, and where sizes stand behind it: VP8, VP9, Theora, MPEG-4
# and MPEG-1/2 sequences, JPEG frames, PNG.
MARKS = [b"\x9d\x01\x2a", b"\x49\x83\x42", b"\x80theora", b"\x00\x00\x01\x20", b"\x00\x00\x01\xb3",
         b"\x00\x00\x01\xb5", b"\x00\x00\x01\x00", b"\xff\xc0", b"\xff\xc4", b"\xff\xdb", b"\xff\xda",
         b"IHDR", b"fcTL", b"icpf", b"\x12\x00", b"\x0a\x0b"]


def places_of(data, wanted, at_most=500):
    found, place = [], data.find(wanted)
    while place >= 0 and len(found) < at_most:
        found.append(place)
        place = data.find(wanted, place + 1)
    return found


def start_coded(data):
    """(start, end) of what follows each start code, up to the next."""
    starts = [place + 3 for place in places_of(data, b"\0\0\1")]
    return [(start, max(start, end - 3)) for start, end in zip(starts, [*starts[1:], len(data)])]


def length_coded(data):
    """(start, end) of the units that stand one after the other behind their lengths, as in MP4."""
    media = [atom for atom in containers.atoms(data) if atom[2] == b"mdat"]
    found, place = [], media[0][0] + 8 if media else len(data)
    while place + 4 < len(data) and len(found) < 500:
        size = struct.unpack_from(">I", data, place)[0]
        if size == 0 or place + 4 + size > len(data):
            break
        found.append((place + 4, place + 4 + size))
        place += 4 + size
    return found


def damage_unit(data, units, chance):
    """The head of a unit, its length, or its place among the others."""
    start, end = chance.choice([chance.choice(units[:8]), chance.choice(units)])
    action = chance.choice(["type", "head", "head", "head", "body", "move", "cut", "number"])
    if action == "type" and start < len(data):
        data[start] = chance.choice([data[start] ^ 1 << chance.randrange(8), chance.randrange(256)])
    elif action == "head":
        for _ in range(chance.randint(1, 3)):
            place = start + chance.randrange(min(24, max(1, end - start)))
            if place < len(data):
                data[place] ^= 1 << chance.randrange(8)
    elif action == "body" and end > start:
        for _ in range(chance.randint(1, 20)):
            data[chance.randrange(start, end)] = chance.randrange(256)
    elif action == "cut" and end > start:
        del data[chance.randrange(start, end):end]
    elif action == "number": # where units have one, their length stands here
        containers.put(data, ">I", start - 4, chance.choice(containers.SIZES))
    else:
        containers.move_part(data, units, chance)


def damage_behind_mark(data, chance):
    """Flips bits and sets sizes in the first bytes behind a key frame's mark."""
    places = [place + len(mark) for mark in MARKS for place in places_of(data, mark, 40)]
    if not places:
        return
    place = chance.choice(places)
    if chance.random() < 0.4:
        layout = chance.choice(["<H", ">H", ">I"])
        number = chance.choice([0, 1, 15, 47, 49, 63, 65, 96, 128, 4096, 16000, 16383, 65535])
        containers.put(data, layout, place + chance.randrange(8), number)
        return
    for _ in range(chance.randint(1, 4)):
        at = place + chance.randrange(16)
        if at < len(data):
            data[at] ^= 1 << chance.randrange(8)


def damage(data, chance):
    units = start_coded(data) or length_coded(data)
    if units and chance.random() < 0.6:
        damage_unit(data, units, chance)
    else:
        damage_behind_mark(data, chance)
