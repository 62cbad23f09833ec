# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Recordings with one packet of more bits than 32 bits count; on the disk they take little."""

import struct

# More than 2^31 bits; what is read of it takes memory.
SMALLEST = (1 << 28) + 1

# A packet is built of what others begin with, zeros, and segments of JPEG, which are skipped.
SEGMENT = b"\xff\xe0\xff\xff"
SEGMENT_BYTES = 2 + 0xffff


class AviPackets:
    """Where the packets of an AVI file lie, and how one more is put between them."""

    suffix = ".avi"

    def __init__(self, content):
        self.content = content
        self.begin = content.find(b"movi")  # its size stands before it
        self.end = self.begin + struct.unpack_from("<I", content, self.begin - 4)[0]

    def places(self):
        place = self.begin + 4
        while place + 8 <= self.end:
            size = struct.unpack_from("<I", self.content, place + 4)[0]
            yield place, 8, size
            place += 8 + size + size % 2

    def header(self, size):
        return b"00dc" + struct.pack("<I", size)

    def before(self, place, more):
        head = bytearray(self.content[:place])
        for at in (4, self.begin - 4):
            struct.pack_into("<I", head, at, struct.unpack_from("<I", head, at)[0] + more)
        return head


class IvfPackets:
    suffix = ".ivf"

    def __init__(self, content):
        self.content = content

    def places(self):
        place = struct.unpack_from("<H", self.content, 6)[0]
        while place + 12 <= len(self.content):
            size = struct.unpack_from("<I", self.content, place)[0]
            yield place, 12, size
            place += 12 + size

    def header(self, size):
        return struct.pack("<IQ", size, 0)

    def before(self, place, _more):
        return self.content[:place]


KINDS = (AviPackets, IvfPackets)


def is_possible(path):
    return any(path.suffix == kind.suffix for kind in KINDS)


def fill(file, begin, size, start, chance):
    """Writes a packet of `size` bytes, most of which stay a hole in the file."""
    file.seek(begin)
    file.write(start)
    if start.startswith(b"\xff\xd8") or chance.random() < 0.5:
        for place in range(begin + min(2, len(start)), begin + size - SEGMENT_BYTES, SEGMENT_BYTES):
            file.seek(place)
            file.write(SEGMENT)
    for _ in range(chance.randint(0, 20)):
        file.seek(begin + chance.choice([chance.randrange(size // 2, size - len(start)),
                                         size - len(start)]))
        file.write(start)


def write(path, content, chance):
    """`content`, a whole recording of this suffix, with such a packet between two of its own."""
    packets = next(kind(content) for kind in KINDS if kind.suffix == path.suffix)
    place, header, size = chance.choice(list(packets.places()))
    start = content[place + header:place + header + min(size, 4096)]
    huge = SMALLEST + 1 + 2 * chance.randrange(1 << 19)
    head = packets.before(place, 8 + huge)
    with open(path, "wb") as file:
        file.write(head + packets.header(huge))
        begin = file.tell()
        fill(file, begin, huge, start, chance)
        file.seek(begin + huge)
        file.write(content[place:])
