# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Damages containers where it hurts: lengths, kinds, counts, times, and the order of their parts."""

import struct

SIZES = [0, 1, 4, 7, 8, 9, 0x7f, 0xff, 0x1000, 0x7fffffff, 0x80000000, 0xfffffff0, 0xffffffff]
NUMBERS = [0, 1, 2, 0xff, 0x7fff, 0xffff, 0x10000, 0x7fffffff, 0x80000000, 0xffffffff]


def move_part(data, parts, chance):
    """Leaves a part out, doubles it, or exchanges it with another. `parts`: (start, end)."""
    start, end = chance.choice(parts)
    part = bytes(data[start:end])
    action = chance.choice(["remove", "double", "exchange"])
    if action == "remove":
        del data[start:end]
    elif action == "double":
        data[end:end] = part * chance.choice([1, 1, 3])
    else:
        other_start, other_end = chance.choice(parts)
        if end <= other_start:
            other = bytes(data[other_start:other_end])
            data[other_start:other_end] = part
            data[start:end] = other


def put(data, layout, place, number):
    size = struct.calcsize(layout)
    if 0 <= place <= len(data) - size:
        struct.pack_into(layout, data, place, number & ((1 << 8 * size) - 1))


ATOM_PARENTS = {b"moov", b"trak", b"mdia", b"minf", b"stbl", b"edts", b"udta", b"dinf"}


def atoms(data, start=0, end=None):
    """(start, end, type) of every atom, parents before their children."""
    end = len(data) if end is None else end
    found = []
    while start + 8 <= end:
        size = struct.unpack_from(">I", data, start)[0]
        kind = bytes(data[start + 4:start + 8])
        if size < 8 or start + size > end:
            break
        found.append((start, start + size, kind))
        if kind in ATOM_PARENTS:
            found += atoms(data, start + 8, start + size)
        start += size
    return found


def damage_mp4(data, chance):
    found = atoms(data)
    if not found:
        return
    # Tables and descriptions are small beside the media; every kind gets its share.
    start, end, kind = chance.choice(found)
    action = chance.choice(["size", "type", "field", "field", "field", "move"])
    if action == "size":
        put(data, ">I", start, chance.choice([*SIZES, end - start + 1, end - start - 1]))
    elif action == "type":
        data[start + 4:start + 8] = chance.choice([b"free", b"moov", b"stco", b"co64", b"elst",
                                                   b"ctts", b"moof", b"sidx", b"dref", b"cmov"])
    elif action == "field" and kind != b"mdat":
        for _ in range(chance.randint(1, 4)):
            place = start + 8 + 4 * chance.randrange(max(1, (end - start - 8) // 4))
            put(data, ">I", place + chance.choice([0, 0, 2]), chance.choice(NUMBERS))
    else:
        move_part(data, [atom[:2] for atom in found], chance)


EBML_PARENTS = {0x18538067, 0x1654ae6b, 0xae, 0xe0, 0x1f43b675, 0xa0, 0x1549a966, 0x1c53bb6b,
                0xbb, 0xb7, 0x114d9b74, 0x4dbb, 0x1a45dfa3}


def vint(data, place, keeps_marker):
    """(value, length) of a number of variable length; None behind the end."""
    if place >= len(data) or data[place] == 0:
        return None
    length = 9 - data[place].bit_length()
    if place + length > len(data):
        return None
    value = int.from_bytes(data[place:place + length], "big")
    return (value if keeps_marker else value & ((1 << 7 * length) - 1)), length


def elements(data, start=0, end=None):
    """(start, place of the size, start of the content, end) of every element."""
    end = len(data) if end is None else end
    found = []
    while start < end:
        kind = vint(data, start, True)
        size = kind and vint(data, start + kind[1], False)
        if not size:
            break
        content = start + kind[1] + size[1]
        last = min(end, content + size[0])
        found.append((start, start + kind[1], content, last))
        if kind[0] in EBML_PARENTS:
            found += elements(data, content, last)
        start = last
    return found


def damage_matroska(data, chance):
    found = elements(data)
    if not found:
        return
    start, size, content, end = chance.choice(found)
    action = chance.choice(["size", "kind", "value", "value", "value", "move"])
    if action == "size":
        length = content - size
        largest = (1 << 7 * length) - 1
        number = chance.choice([0, 1, end - content + 1, largest, largest - 1, largest // 2])
        data[size:content] = (number | 1 << 7 * length).to_bytes(length, "big")
    elif action == "kind":
        data[start:size] = chance.randbytes(size - start)
    elif action == "value" and end - content <= 8:
        highest = (1 << 8 * (end - content)) - 1
        number = chance.choice([0, 1, 2, highest, highest // 2, chance.randint(0, highest)])
        data[content:end] = number.to_bytes(end - content, "big")
    elif action == "value":
        for _ in range(chance.randint(1, 4)): # block heads: track, time, flags, lacing
            data[min(content + chance.randrange(8), len(data) - 1)] = chance.randrange(256)
    else:
        move_part(data, [(part[0], part[3]) for part in found], chance)


def damage_ts(data, chance):
    packets = range(0, len(data) - 187, 188)
    if not packets:
        return
    for _ in range(chance.randint(1, 20)):
        start = chance.choice(packets)
        if start + 188 > len(data):
            continue
        action = chance.choice(["pid", "counter", "adaptation", "stamp", "table", "move", "shift"])
        if action == "pid":
            data[start + 1:start + 3] = data[chance.choice(packets) % len(data):][1:3] or b"\0\0"
        elif action == "counter":
            data[start + 3] ^= chance.randrange(256)
        elif action == "adaptation":
            data[start + 4] = chance.choice([0, 1, 183, 184, 255])
        elif action == "stamp": # of the stream's first packet after this one
            place = data.find(b"\0\0\1\xe0", start)
            if 0 <= place < len(data) - 20:
                data[place + 7 + chance.randrange(12)] = chance.randrange(256)
        elif action == "table":
            data[chance.choice([0, 188, 376]) % len(data) + chance.randrange(4, 60)] ^= (
                1 << chance.randrange(8))
        elif action == "move":
            move_part(data, [(start, start + 188), (packets[-1], packets[-1] + 188)], chance)
        else:
            del data[start:start + chance.randint(1, 187)]


def chunks(data, start=0, end=None):
    """(start, end, name) of every chunk, lists before what they hold."""
    end = len(data) if end is None else end
    found = []
    while start + 8 <= end:
        name, size = bytes(data[start:start + 4]), struct.unpack_from("<I", data, start + 4)[0]
        last = min(end, start + 8 + size)
        found.append((start, last, name))
        if name in (b"RIFF", b"LIST"):
            found += chunks(data, start + 12, last)
        start = last + size % 2
    return found


def damage_avi(data, chance):
    found = chunks(data)
    if not found:
        return
    heads = [chunk for chunk in found if chunk[2] in (b"strf", b"strh", b"avih", b"idx1", b"RIFF")]
    start, end, _ = chance.choice(chance.choice([found, heads or found]))
    action = chance.choice(["size", "name", "field", "field", "field", "move"])
    if action == "size":
        put(data, "<I", start + 4, chance.choice([*SIZES, end - start]))
    elif action == "name":
        data[start:start + 4] = chance.choice([b"LIST", b"RIFF", b"JUNK", b"00dc", b"99db", b"idx1",
                                               b"strf", b"ix00", b"indx", chance.randbytes(4)])
    elif action == "field":
        for _ in range(chance.randint(1, 4)):
            place = start + 8 + 4 * chance.randrange(max(1, min(end - start - 8, 400) // 4))
            put(data, "<I", place + chance.choice([0, 0, 2]), chance.choice(NUMBERS))
    else:
        move_part(data, [chunk[:2] for chunk in found], chance)


def damage_ivf(data, chance):
    frames, place = [], 32
    while place + 12 <= len(data):
        size = struct.unpack_from("<I", data, place)[0]
        frames.append((place, min(len(data), place + 12 + size)))
        place += 12 + size
    action = chance.choice(["head", "length", "time", "move"])
    if action == "head" or not frames:
        layout, place = chance.choice([("<H", 6), ("<H", 12), ("<H", 14), ("<I", 16), ("<I", 20),
                                       ("<I", 24), ("<I", 8)])
        put(data, layout, place, chance.choice([*NUMBERS, 16000, 96, 65]))
    elif action == "length":
        put(data, "<I", chance.choice(frames)[0], chance.choice(SIZES))
    elif action == "time":
        put(data, "<Q", chance.choice(frames)[0] + 4, chance.choice([*NUMBERS, 1 << 62, 1 << 63]))
    else:
        move_part(data, frames, chance)


def damage_flv(data, chance):
    tags, place = [], 13
    while place + 11 <= len(data):
        size = int.from_bytes(data[place + 1:place + 4], "big")
        tags.append((place, min(len(data), place + 15 + size)))
        place += 15 + size
    if not tags:
        return
    start, end = chance.choice([tags[0], chance.choice(tags)])
    action = chance.choice(["kind", "size", "time", "codec", "metadata", "move"])
    if action == "kind":
        data[start] = chance.choice([8, 9, 18, 0, 255])
    elif action == "size":
        data[start + 1:start + 4] = (chance.choice(SIZES) & 0xffffff).to_bytes(3, "big")
    elif action == "time":
        data[start + 4:start + 8] = chance.randbytes(4)
    elif action == "codec" and start + 12 < len(data):
        data[start + 11] = chance.randrange(256)
        data[start + 12] = chance.choice([0, 1, 2, 255])
    elif action == "metadata":
        place = start + 11 + chance.randrange(max(1, end - start - 11))
        put(data, ">Q", place, chance.choice([0x7ff0 << 48, 0x7ff8 << 48, 0xc1e0 << 48, 0]))
    else:
        move_part(data, tags, chance)


def ogg_checksum(page):
    checksum = 0
    for byte in page:
        checksum = (checksum << 8) & 0xffffffff ^ OGG_TABLE[checksum >> 24 ^ byte]
    return checksum


def ogg_table():
    table = []
    for number in range(256):
        rest = number << 24
        for _ in range(8):
            rest = rest << 1 ^ (0x04c11db7 if rest >> 31 else 0)
            rest &= 0xffffffff
        table.append(rest)
    return table


OGG_TABLE = ogg_table()


def damage_ogg(data, chance):
    starts, place = [], data.find(b"OggS")
    while place >= 0:
        starts.append(place)
        place = data.find(b"OggS", place + 4)
    if not starts:
        return
    pages = list(zip(starts, [*starts[1:], len(data)]))
    start, end = chance.choice(pages)
    action = chance.choice(["flags", "granule", "serial", "lacing", "content", "move"])
    if action == "flags":
        data[min(start + 5, len(data) - 1)] = chance.randrange(8)
    elif action == "granule":
        put(data, "<Q", start + 6, chance.choice([*NUMBERS, 1 << 62, (1 << 64) - 1]))
    elif action == "serial":
        put(data, "<I", start + 14, chance.choice(NUMBERS))
    elif action == "lacing":
        data[min(start + 26 + chance.randrange(10), len(data) - 1)] = chance.randrange(256)
    elif action == "content":
        data[chance.randrange(start, end)] = chance.randrange(256)
    else:
        move_part(data, pages, chance)
        return
    if end - start > 27: # a page with a wrong checksum would only be left out
        put(data, "<I", start + 22, 0)
        put(data, "<I", start + 22, ogg_checksum(data[start:end]))


def damage_gif(data, chance):
    pictures = [place for place in range(len(data) - 10) if data[place] == 0x2c]
    extensions = [place for place in range(len(data) - 4) if data[place:place + 2] == b"\x21\xf9"]
    action = chance.choice(["screen", "picture", "picture", "delay", "flags"])
    if action == "screen":
        put(data, "<H", chance.choice([6, 8]), chance.choice([0, 1, 63, 65, 4096, 16000, 65535]))
    elif action == "picture" and pictures:
        place = chance.choice(pictures) + chance.choice([1, 3, 5, 7])
        put(data, "<H", place, chance.choice([0, 1, 47, 63, 65, 4096, 16000, 65535]))
    elif action == "delay" and extensions:
        put(data, "<H", chance.choice(extensions) + 4, chance.choice([0, 1, 65535]))
    else:
        place = chance.choice([10, *[at + 9 for at in pictures], *[at + 3 for at in extensions]])
        data[min(place, len(data) - 1)] = chance.randrange(256)


MUTATORS = {
    ".mp4": damage_mp4, ".mov": damage_mp4, ".mkv": damage_matroska, ".webm": damage_matroska,
    ".ts": damage_ts, ".avi": damage_avi, ".ivf": damage_ivf, ".flv": damage_flv,
    ".ogv": damage_ogg, ".gif": damage_gif,
}


def mutator(suffix):
    return MUTATORS.get(suffix)
