# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Files that are no recordings but name some, or that a library would draw as text.

Each holds the name of a recording that is really there. Nobody has asked for that recording: no
picture may come of such a file.
"""

import pathlib


def hls(target):
    return f"#EXTM3U\n#EXT-X-TARGETDURATION:4\n#EXTINF:4,\n{target}\n#EXT-X-ENDLIST\n"


def endless_hls(target):
    return f"#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXT-X-MEDIA-SEQUENCE:1\n#EXTINF:1,\n{target}\n"


def master_hls(target):
    return f"#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=1\n{target}\n"


def dash(target):
    return (f"""<?xml version="1.0"?>
<MPD xmlns="urn:mpeg:dash:schema:mpd:2011" type="static" mediaPresentationDuration="PT4S"
 minBufferTime="PT1S" profiles="urn:mpeg:dash:profile:isoff-on-demand:2011"><Period>
<AdaptationSet mimeType="video/mp4"><Representation id="1" bandwidth="1" width="64" height="48">
<BaseURL>{target}</BaseURL></Representation></AdaptationSet></Period></MPD>
""")


def concat(target):
    return f"ffconcat version 1.0\nfile {target}\nduration 4\n"


def sdp(target):
    return f"v=0\ns={target}\nc=IN IP4 127.0.0.1\nm=video 5004 RTP/AVP 96\na=rtpmap:96 H264/90000\n"


def cue(target):
    return f'FILE "{target}" BINARY\n  TRACK 01 MODE1/2352\n    INDEX 01 00:00:00\n'


def text(target):
    return f"the box crosses at noon\n{target}\n" * 40


def subtitles(target):
    return f"1\n00:00:00,000 --> 00:00:04,000\n{target}\n"


# How such a file is made, and the suffixes that it gets; some are those of recordings.
KINDS = [
    (hls, [".m3u8", ".mp4", ".ts"]), (endless_hls, [".m3u8", ".mp4"]), (master_hls, [".m3u8"]),
    (dash, [".mpd", ".mp4", ".xml"]), (concat, [".ffconcat", ".txt", ".mp4"]), (sdp, [".sdp"]),
    (cue, [".cue"]), (text, [".txt", ".nfo", ".diz", ".asc", ".avi"]), (subtitles, [".srt", ".avi"]),
]


def write(folder, stem, target, chance):
    """Writes such a file into the folder, with the recording that it names beside it."""
    make, suffixes = chance.choice(KINDS)
    name = pathlib.Path(stem + "-named" + target.suffix)
    if not (folder / name).exists():
        (folder / name).hardlink_to(target)
    path = folder / (stem + chance.choice(suffixes))
    path.write_text(make(name))
    return path
