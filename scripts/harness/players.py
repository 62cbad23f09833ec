# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays lists of clips in the programs that they are for; each must show the clips' pictures.

The first and the last picture that a program shows of a clip may be one picture off. VLC goes by what
it reads, which is ahead of what it shows: it may be six pictures off, and as many more as the clock of
a transport stream is ahead of its pictures. In those mpv and VLC begin with the next key frame, and so
does VLC where an edit list waits.
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import numbered

OPTIONS = ["--quiet", "--minimum", "1", "--threshold-motion", "0.2", "--exclude",
           numbered.LEFT_OUT]

KEY_DISTANCE = 12  # pictures from key frame to key frame in transport streams


def make_recordings(source, folder):
    """Of each kind one: plain, sound first, pictures at varying times, no B pictures and an odd
    name."""
    made = [folder / "plain.mp4", folder / "late.mkv", folder / "varying.mkv",
            folder / "odd \"name\" & 'more' #1,;%d é.mp4"]
    numbered.encode(source / "garden.mp4", made[0])
    numbered.encode(source / "gate.avi", made[1], before=[
        "-f", "lavfi", "-i", "sine=d=32", "-itsoffset", "2"],
        after=["-map", "0:a", "-map", "1:v", "-c:a", "flac"])
    numbered.encode(source / "night.mkv", made[2])
    numbered.encode(source / "gate.avi", made[3], after=["-bf", "0"])
    return made + make_late_recordings(source, folder, made[0])


def make_late_recordings(source, folder, plain):
    """Those whose times do not begin at 0: streams as recorders write them, at 1.4 and 10 seconds,
    containers that were told so, and edit lists that leave out the beginning or wait for it. (Where
    that wait is long, VLC shows nothing, whatever it is told.)"""
    late = [folder / "recorder.ts", folder / "ten.ts", folder / "ten.mkv", folder / "waits.mp4",
            folder / "cut.mp4"]
    sound = ["-f", "lavfi", "-i", "sine=d=32"]
    mapped = ["-map", "0:a", "-map", "1:v"]
    numbered.encode(source / "garden.mp4", late[0], after=["-g", str(KEY_DISTANCE)])
    numbered.encode(source / "gate.avi", late[1], before=sound,
                    after=[*mapped, "-g", str(KEY_DISTANCE), "-c:a", "mp2", "-muxdelay", "0",
                           "-output_ts_offset", "10"])
    numbered.encode(source / "gate.avi", late[2], before=sound,
                    after=[*mapped, "-c:a", "flac", "-output_ts_offset", "10"])
    numbered.encode(source / "gate.avi", late[3], after=["-g", str(KEY_DISTANCE),
                                                             "-output_ts_offset", "1.4"])
    subprocess.run(["ffmpeg", "-v", "error", "-y", "-ss", "1.4", "-i", plain, "-c", "copy",
                    late[4]], check=True)
    return late


class Clips:
    """What the scanner finds in one recording: lists, and the pictures that belong to each clip."""

    def __init__(self, program, recording, folder):
        self.command = [program, *OPTIONS]
        self.recording = recording
        trace = folder / "trace"
        lines = self.scan("jsonl", "--trace", trace).splitlines()
        found = [json.loads(line) for line in lines[:-1]]
        times = [0.0] + [float(line.split("\t")[1]) for line in trace.read_text().splitlines()]
        # An edit list may leave out the first pictures.
        self.first = numbered.numbers("-t", "1", "-i", recording)[0]
        self.pictures = [self.shown(clip, times) for clip in found]

    def shown(self, clip, times):
        inside = [number for number, time in enumerate(times, self.first)
                  if clip["start"] - 1e-6 <= time < clip["end"] - 1e-6]
        return inside[0], inside[-1]

    def scan(self, form, *options):
        return subprocess.run([*self.command, "--format", form, *options, self.recording],
                              check=True, capture_output=True, text=True).stdout


def runs(shown):
    """First and last number of each run of pictures that follow one another."""
    found = []
    for number in shown:
        if found and found[-1][1] <= number <= found[-1][1] + 3:
            found[-1][1] = number
        else:
            found.append([number, number])
    return [tuple(run) for run in found]


def play_mpv(clips, folder):
    playlist = folder / "clips.edl"
    playlist.write_text(clips.scan("mpv"))
    subprocess.run(["mpv", "--no-config", "--really-quiet", "--no-audio", "--untimed",
                    "--vo=image", "--vo-image-format=jpg", f"--vo-image-outdir={folder}",
                    playlist], check=True, timeout=120)
    return runs(numbered.numbers("-i", folder / "%08d.jpg"))


def play_melt(clips, folder):
    document = folder / "clips.mlt"
    document.write_text(clips.scan("mlt"))
    subprocess.run(["melt", "-silent", document, "-consumer", f"avformat:{folder}/played.mkv",
                    "vcodec=ffv1", "an=1", "real_time=0"], check=True, timeout=120,
                   stderr=subprocess.DEVNULL)
    return runs(numbered.numbers("-i", folder / "played.mkv"))


def play_vlc(clips, folder):
    """Clip by clip, since VLC begins to count its pictures anew with each. It refuses to be root."""
    head, *lines = clips.scan("m3u").splitlines(keepends=True)
    as_user = ["runuser", "-u", "nobody", "--"] if os.geteuid() == 0 else []
    found = []
    for start in range(0, len(lines), 4):
        home = folder / f"vlc{start}"
        home.mkdir()
        home.chmod(0o777)
        playlist = home / "clip.m3u"
        playlist.write_text(head + "".join(lines[start:start + 4]))
        subprocess.run([*as_user, "env", f"HOME={home}", "cvlc", "--quiet", "--no-audio", "--vout",
                        "dummy", "--avcodec-hw", "none", "--no-drop-late-frames",
                        "--no-skip-frames", "--video-filter", "scene", "--scene-format", "jpg",
                        "--scene-ratio", "1", "--scene-width", str(numbered.SIZE[0]),
                        "--scene-height", str(numbered.SIZE[1]), "--scene-path", home, playlist,
                        "vlc://quit"], check=True, timeout=120, stderr=subprocess.DEVNULL)
        if not list(home.glob("scene*.jpg")):
            continue
        shown = numbered.numbers("-i", home / "scene%05d.jpg")
        found.append((shown[0], shown[-1]))
    return found


def play_cuts(clips, _folder):
    """As cutting programs do it: ffmpeg is given the seconds."""
    found = []
    for line in clips.scan("cuts").splitlines():
        start, end, _ = line.split("\t")
        span = ["-ss", start, "-to", end]
        source = ["-i", clips.recording]
        # ffmpeg finds no key frames in transport streams: it is to read them from their beginning.
        shown = numbered.numbers(*(source + span if clips.recording.suffix == ".ts"
                                   else span + source))
        found.append((shown[0], shown[-1]))
    return found


def play_edl(clips, _folder):
    """No Debian package reads such lists without a window: timecodes count pictures here, at the
    rate that ffprobe tells, from the first picture on."""
    rate = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries",
                           "stream=avg_frame_rate", "-of", "csv=p=0", clips.recording], check=True,
                          capture_output=True, text=True).stdout.split()[0]
    over, under = map(int, rate.split("/"))
    base = 25 if over / under == 12.5 else round(over / under)
    times = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries",
                            "packet=pts_time,flags", "-of", "csv=p=0", clips.recording], check=True,
                           capture_output=True, text=True).stdout
    times = [line.split(",") for line in times.split()]
    times = sorted(float(time) for time, flags, *_ in times if "D" not in flags)
    found = []
    for event in re.finditer(r"^\d{3}  .{8} V     C        (\S+) (\S+) ", clips.scan("edl"), re.M):
        start, end = (seconds(timecode, base) for timecode in event.groups())
        inside = [number for number, time in enumerate(times, clips.first)
                  if start - 1e-3 <= time - times[0] < end - 1e-3]
        found.append((inside[0], inside[-1]))
    return found


def seconds(timecode, base):
    hours, minutes, whole, frames = map(int, timecode.split(":"))
    return hours * 3600 + minutes * 60 + whole + frames / base


PLAYERS = {"mpv": play_mpv, "mlt": play_melt, "m3u": play_vlc, "cuts": play_cuts, "edl": play_edl}


def is_near(form, recording, clip, played):
    """Whether a program has shown a clip's first and last picture, or those beside them."""
    late = early = 6 if form == "m3u" else 1
    is_stream = recording.suffix == ".ts"
    if is_stream and form == "mpv" or form == "m3u" and (is_stream or recording.stem == "waits"):
        late += KEY_DISTANCE
    if is_stream and form == "m3u":
        early += 3
    return -early <= played[0] - clip[0] <= late and abs(played[1] - clip[1]) <= early


def check(program, recording, folder):
    """Plays the clips of one recording in each program; how often they were not what they were."""
    clips = Clips(program, recording, folder)
    failures = 0 if clips.pictures else 1
    print(f"{recording.name}: pictures {clips.pictures}")
    for form, play in PLAYERS.items():
        place = folder / form
        place.mkdir()
        shown = play(clips, place)
        is_good = len(shown) == len(clips.pictures) and all(
            is_near(form, recording, clip, played) for clip, played in zip(clips.pictures, shown))
        failures += 0 if is_good else 1
        print(f"  {form}: {'good' if is_good else 'WRONG'} {shown}")
        shutil.rmtree(place)
    return failures


def main():
    program = pathlib.Path(sys.argv[1]) / "kestrova-scan"
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        folder.chmod(0o755)  # VLC's user must find the recordings
        failures = sum(check(program, recording, folder)
                       for recording in make_recordings(pathlib.Path(sys.argv[2]), folder))
    print("All good." if failures == 0 else f"{failures} were wrong.")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
