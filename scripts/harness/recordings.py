# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Small whole recordings to damage: every kind of container and codec that the encoder can write."""

import subprocess
import sys

from . import encoding

# A box crosses a quiet scene from second 0.8 to second 2.4 of 4, with a tone beside it.
SCENE = [
    "-f", "lavfi", "-i", "color=c=0x406040:s=64x48:r=12:d=4",
    "-f", "lavfi", "-i", "color=c=white:s=20x16:r=12:d=4",
    "-f", "lavfi", "-i", "sine=d=4:r=8000",
    "-filter_complex", "[0][1]overlay=x='(t-0.8)*40-10':y=16:enable='between(t,0.8,2.4)'",
    "-shortest",
]

# Long enough to be cut into chunks for four threads, and noisy: 250 pictures.
LONG_SCENE = [
    "-f", "lavfi", "-i", "color=c=0x406040:s=64x48:r=25:d=10,noise=alls=8:allf=t:all_seed=7",
    "-f", "lavfi", "-i", "color=c=white:s=20x16:r=25:d=10",
    "-filter_complex", "[0][1]overlay=x='mod(t,3)*40-10':y=16:enable='lt(mod(t,3),1.6)'",
]

# Name, container and the encoder's arguments. Without "-an" the recording has sound.
KINDS = [
    ("H.264", "mp4", ["-c:v", "libx264", "-bf", "2", "-g", "12"]),
    ("H.264", "ts", ["-c:v", "libx264", "-g", "12", "-an"]),
    ("H.264", "flv", ["-c:v", "libx264", "-g", "12", "-an"]),
    ("H.264", "avi", ["-c:v", "libx264", "-g", "12", "-an"]),
    ("H.264", "h264", ["-c:v", "libx264", "-g", "12", "-an"]),
    ("H.264, interlaced", "mkv", ["-c:v", "libx264", "-flags", "+ildct+ilme", "-an"]),
    ("HEVC", "mkv", ["-c:v", "libx265", "-x265-params", "log-level=error:keyint=12", "-an"]),
    ("HEVC", "mp4", ["-c:v", "libx265", "-x265-params", "log-level=error:keyint=12", "-an"]),
    ("MPEG-4", "avi", ["-c:v", "mpeg4", "-bf", "2", "-q:v", "5"]),
    ("MPEG-4", "mp4", ["-c:v", "mpeg4", "-q:v", "5", "-an"]),
    ("MPEG-4, packed", "avi", ["-c:v", "libxvid", "-bf", "2", "-q:v", "5", "-an"]),
    ("MPEG-1", "mpg", ["-c:v", "mpeg1video", "-r", "25", "-q:v", "5", "-an"]),
    ("MPEG-2", "mpg", ["-c:v", "mpeg2video", "-r", "25", "-q:v", "5"]),
    ("MPEG-2", "ts", ["-c:v", "mpeg2video", "-r", "25", "-bf", "2", "-q:v", "5", "-an"]),
    ("MPEG-2", "mxf", ["-c:v", "mpeg2video", "-r", "25", "-q:v", "5", "-an"]),
    ("MJPEG", "avi", ["-c:v", "mjpeg", "-pix_fmt", "yuvj420p", "-q:v", "5", "-an"]),
    ("MJPEG", "mov", ["-c:v", "mjpeg", "-pix_fmt", "yuvj420p", "-q:v", "5"]),
    ("VP8", "webm", ["-c:v", "libvpx", "-cpu-used", "8", "-an"]),
    ("VP8", "ivf", ["-c:v", "libvpx", "-cpu-used", "8", "-an"]),
    ("VP9", "webm", ["-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8", "-an"]),
    ("VP9", "ivf", ["-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8", "-an"]),
    ("AV1", "mkv", ["-c:v", "libaom-av1", "-cpu-used", "8", "-usage", "realtime", "-an"]),
    ("AV1", "ivf", ["-c:v", "libaom-av1", "-cpu-used", "8", "-usage", "realtime", "-an"]),
    ("FFV1", "mkv", ["-c:v", "ffv1", "-an"]),
    ("raw RGB, bottom-up", "avi",
     ["-c:v", "rawvideo", "-pix_fmt", "bgr24", "-flipped_raw_rgb", "1", "-an"]),
    ("1-bit", "nut", ["-c:v", "rawvideo", "-pix_fmt", "monob", "-an"]),
    ("Sorenson H.263", "flv", ["-c:v", "flv", "-q:v", "5", "-ar", "11025"]),
    ("Sorenson", "mov", ["-c:v", "svq1", "-q:v", "5", "-pix_fmt", "yuv410p", "-an"]),
    ("MS MPEG-4 v2", "avi", ["-c:v", "msmpeg4v2", "-q:v", "5", "-an"]),
    ("WMV2", "asf", ["-c:v", "wmv2", "-q:v", "5"]),
    ("RealVideo", "rm", ["-c:v", "rv10", "-q:v", "5", "-an"]),
    ("Theora", "ogv", ["-c:v", "libtheora", "-an"]),
    ("HuffYUV", "avi", ["-c:v", "huffyuv", "-pix_fmt", "yuv422p", "-an"]),
    ("ProRes", "mov", ["-c:v", "prores", "-pix_fmt", "yuv422p10le", "-an"]),
    ("PNG", "mov", ["-c:v", "png", "-pix_fmt", "rgb24", "-an"]),
    ("GIF", "gif", ["-c:v", "gif", "-pix_fmt", "rgb8", "-an"]),
    ("APNG", "apng", ["-c:v", "apng", "-pix_fmt", "rgb24", "-an"]),
    ("raw", "y4m", ["-c:v", "wrapped_avframe", "-an"]),
]

H264 = ["-c:v", "libx264", "-preset", "veryfast", "-an"]
HEVC = ["-c:v", "libx265", "-preset", "ultrafast", "-an", "-x265-params"]

# What the number of threads could matter to.
LONG_KINDS = [
    ("H.264, no B pictures", "mp4", [*H264, "-g", "12", "-bf", "0"]),
    ("H.264, two B pictures", "mp4", [*H264, "-g", "12", "-bf", "2"]),
    ("H.264, referred B pictures", "mkv", [*H264, "-x264-params", "keyint=24:bframes=3:b-pyramid=normal"]),
    ("H.264, no B pictures", "ts", [*H264, "-g", "24", "-bf", "0"]),
    ("H.264, two B pictures", "ts", [*H264, "-g", "25", "-bf", "2"]),
    ("H.264, open groups", "mp4", [*H264, "-x264-params", "keyint=12:bframes=2:open-gop=1"]),
    ("H.264, one group", "mp4", [*H264, "-g", "999", "-bf", "2"]),
    ("HEVC, no B pictures", "mp4", [*HEVC, "log-level=none:keyint=12:bframes=0"]),
    ("HEVC, closed groups", "mp4", [*HEVC, "log-level=none:keyint=25:bframes=3:open-gop=0"]),
    ("HEVC, closed groups", "ts", [*HEVC, "log-level=none:keyint=25:bframes=3:open-gop=0"]),
    ("HEVC, open groups", "mkv", [*HEVC, "log-level=none:keyint=25:bframes=3"]),
    ("HEVC, open groups", "mp4", [*HEVC, "log-level=none:keyint=12:bframes=4"]),
]


def encode(encoder, arguments, path, scene=None):
    """Writes a recording of the scene unless it is there; an error text where that fails."""
    if path.exists():
        return ""
    part = path.with_name("part-" + path.name)
    sound = [] if "-an" in arguments else ["-map", "2"]
    pixels = [] if "-pix_fmt" in arguments else ["-pix_fmt", "yuv420p"]
    done = subprocess.run([encoder, "-nostdin", "-v", "error", "-y", *(scene or SCENE), *sound, *pixels,
                           *encoding.pinned(arguments), part], capture_output=True, text=True, check=False)
    if done.returncode == 0:
        part.rename(path)
    return done.stderr if done.returncode else ""


def make_all(programs, folder, are_long=False):
    """(name, path) of every kind; says what the encoder cannot write and leaves it out."""
    folder.mkdir(parents=True, exist_ok=True)
    made = []
    kinds, scene = (LONG_KINDS, LONG_SCENE) if are_long else (KINDS, SCENE)
    for codec, container, arguments in kinds:
        path = folder / f"{codec}.{container}".replace(" ", "-").replace(",", "")
        error = encode(programs / "ffmpeg", arguments, path, scene)
        if error:
            print(f"left out: {codec} in {container}: {error}", file=sys.stderr)
        else:
            made.append((f"{codec}, {container}", path))
    return made


def make_long(programs, folder, repeats):
    """An H.264 recording of `repeats` times four seconds, with a clip in each."""
    folder.mkdir(parents=True, exist_ok=True)
    once, path = folder / "once.mp4", folder / f"long-{repeats}.mp4"
    error = encode(programs / "ffmpeg", ["-c:v", "libx264", "-g", "12", "-an"], once)
    if error:
        sys.exit(f"cannot encode: {error}")
    if not path.exists():
        subprocess.run([programs / "ffmpeg", "-nostdin", "-v", "error", "-y", "-stream_loop",
                        str(repeats - 1), "-i", once, "-c", "copy", "-movflags", "+faststart", path],
                       check=True)
    return path
