# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""What the scanner says and leaves behind when something is wrong around it."""

import json
import os
import random
import signal
import time

from . import common, encoders, injection

END_SECONDS = 5  # from a signal to the end
KEPT_LIMIT = 450  # MiB, with the sanitizers


class ScannerFaults:
    def __init__(self, preset, folder, recording, long, chatter):
        self.preset = preset
        self.folder = folder
        self.recording = recording  # with one clip
        self.long = long  # with many
        self.chatter = chatter
        self.real = common.program_folder(preset) / "ffmpeg"
        self.program = self.folder / "scanner" / "kestrova-scan"
        common.fresh_folder(self.program.parent)
        self.program.hardlink_to(common.program_folder(preset) / "kestrova-scan")
        self.injection = injection.Injection(preset)
        self.output = self.folder / "output"
        self.figures = {}

    def cases(self):
        """(name, call) of every case; a call answers what is wrong."""
        kinds = ["good", "missing", "failing", "crashing", "writes nothing", "writes an empty file",
                 "removing its folder", "chattering"]
        found = [(f"encoder {kind}", lambda kind=kind: self.export(kind)) for kind in kinds]
        return [*found,
                ("encoder printing without end", self.endless_chatter),
                ("disk full, careless encoder", lambda: self.full_disk("not noticing a full disk")),
                ("disk full, real encoder", lambda: self.full_disk("real")),
                ("disk full, pictures", self.pictures_on_full_disk),
                ("disk full, trace", self.trace_on_full_disk),
                ("disk full, standard output", self.full_output),
                ("standard output closed (SIGPIPE)", self.closed_output),
                ("disk broken half way", self.broken_disk),
                *[(f"only {count} threads", lambda count=count: self.few_threads(count))
                  for count in (0, 1, 3)],
                ("recording missing", self.missing),
                ("a pipe", self.pipe),
                ("encoder hanging, interrupted", self.interrupted_export),
                *[(f"ended by {sent[0].name}" + " twice" * (len(sent) - 1),
                   lambda sent=sent: self.signalled(random.Random(1), sent))
                  for sent in ([signal.SIGINT], [signal.SIGTERM] * 2)]]

    def clean_up(self):
        """Nothing: every run is waited for."""

    def scan(self, *arguments, encoder="good", env=None, output=None, meanwhile=None, timeout=300):
        """Runs the scanner with an encoder beside it."""
        common.fresh_folder(self.output)
        self.encoder = encoders.Encoder(self.program.parent, encoder, self.real)
        command = [self.program, "--format", "jsonl", "--minimum", "1", "--quiet", *arguments]
        processes = []

        def started(process):
            processes.append(process)
            if meanwhile:
                meanwhile(process)

        ended = common.run(command, timeout, output=output, meanwhile=started,
                           env=common.environment(**{"CHATTER": str(self.chatter), **(env or {})}))
        self.left = common.left_behind(processes[0].pid)
        common.end_all(self.left)
        self.figures = {"starts": len(self.encoder.calls()), "end": round(ended.seconds, 1),
                        "MiB": int(ended.peak)}
        return ended

    def judge(self, ended, statuses, closings=1):
        """What does not fit together; `closings` recordings must have been answered."""
        if ended.problem:
            return ended.problem
        try:
            lines = [json.loads(line) for line in ended.output.splitlines()]
        except ValueError:
            return f"not to be read: {ended.output[-200:]!r}"
        clips = [line for line in lines if "index" in line]
        ends = [line for line in lines if "state" in line]
        self.figures["clips"] = len(clips)
        if ended.status not in statuses:
            return f"status {ended.status}\n{ended.errors[:2000]}"
        if len(ends) < closings:
            return "no closing line"
        if sum(line["clips"] for line in ends) != len(clips):
            return "clips are not counted right"
        return self.wrong_words(ended, clips)

    def wrong_words(self, ended, clips):
        if any(clip["end"] < clip["start"] for clip in clips):
            return "a clip ends before it starts"
        said = [clip for clip in clips if clip.get("exported")]
        if any(not os.path.exists(clip["file"]) or not os.path.getsize(clip["file"])
               for clip in said):
            return "a missing or empty file is said to be exported"
        if len(said) < len(clips) and "exported" in str(clips) and ended.status == 0:
            return "status 0, but not all are exported"
        if ended.status == 1 and not ended.errors:
            return "nothing says what is wrong"
        return f"{len(self.left)} programs are left behind" if self.left else ""

    def export(self, encoder, env=None, target=None):
        ended = self.scan("--export", target or self.output, self.long, encoder=encoder, env=env)
        good = encoder == "good"
        problem = self.judge(ended, [0 if good else 1])
        if not problem and self.figures["starts"] > self.figures["clips"]:
            problem = f"{self.figures['starts']} starts"
        if not problem and not good:
            problem = empty_files(target or self.output)
        return problem

    def endless_chatter(self):
        ended = self.scan("--export", self.output, self.recording, encoder="chattering",
                          env={"CHATTER": str(400 * self.chatter)})
        if ended.peak > KEPT_LIMIT:
            return f"{ended.peak:.0f} MiB: what the encoder printed is kept"
        return self.judge(ended, [1])

    def on_full_disk(self, call):
        """`call` with a folder that is full, and the environment that makes it so.

        Nothing empty may be left but what was named on the command line.
        """
        with injection.small_disk(self.folder / "disk") as is_mounted:
            if is_mounted:
                injection.filled(self.folder / "disk")
                problem = call(self.folder / "disk", None)
                (self.folder / "disk/filler").unlink()
                problem = problem or empty_files(self.folder / "disk")
                if problem:
                    return problem
        target = common.fresh_folder(self.folder / "full")
        problem = call(target, self.injection.full_disk(target))
        return problem or empty_files(target)

    def full_disk(self, encoder):
        return self.on_full_disk(lambda target, env: self.export(encoder, env, target))

    def pictures_on_full_disk(self):
        return self.on_full_disk(lambda target, env: self.judge(
            self.scan("--snapshots", target, self.recording, env=env), [1]))

    def trace_on_full_disk(self):
        return self.on_full_disk(lambda target, env: self.judge(
            self.scan("--trace", target / "trace", self.recording, env=env), [1], 0))

    def full_output(self):
        """It does not go on for hours with what nobody can read."""
        with open("/dev/full", "wb", buffering=0) as full:
            ended = self.scan(*[self.long] * 20, output=full)
        whole = self.figures["end"]
        single = self.scan(self.long).seconds
        self.figures["end"] = whole
        if whole > 5 * single + 2:
            return f"went on for {whole:.1f} s, {single:.1f} s for each recording"
        return ended.problem or ("" if ended.status == 1 and ended.errors else
                                 f"status {ended.status}\n{ended.errors}")

    def closed_output(self):
        """Whoever read it is gone after the first clip, as head is."""
        reader, writer = os.pipe()

        def read_one(_):
            os.read(reader, 1)
            os.close(reader)

        with open(writer, "wb", buffering=0) as output:
            ended = self.scan(*[self.long] * 100, output=output, meanwhile=read_one,
                              timeout=END_SECONDS)
        if ended.status == -signal.SIGPIPE:
            return ""
        return ended.problem or ("" if ended.status == 1 else f"status {ended.status}")

    def broken_disk(self):
        half = self.long.stat().st_size // 2
        ended = self.scan(self.long, env=self.injection.broken_disk(self.long, half))
        problem = self.judge(ended, [1])
        if not problem and b'"failed"' not in ended.output:
            problem = "not said to have failed"
        return problem or ("" if self.long.name in ended.errors and self.figures["clips"] else
                           f"{self.figures['clips']} clips, {ended.errors}")

    def few_threads(self, count):
        expected = self.scan(self.long, self.long, "--jobs", "2").output
        ended = self.scan(self.long, self.long, "--jobs", "2", "--threads", "4",
                          env=self.injection.few_threads(count))
        problem = self.judge(ended, [0], 2)
        return problem or ("" if ended.output == expected else "other clips")

    def missing(self):
        ended = self.scan("--export", self.output, self.folder / "none.mp4")
        left = list(self.output.iterdir())
        return self.judge(ended, [1]) or (f"{left} is left" if left else "")

    def pipe(self):
        """A recording that never comes is refused, or waited for until a signal."""
        named_pipe = self.folder / "pipe.mp4"
        named_pipe.unlink(missing_ok=True)
        os.mkfifo(named_pipe)
        ended = self.scan(named_pipe, timeout=1 + END_SECONDS,
                          meanwhile=lambda process: later(process, 1, [signal.SIGINT]))
        return self.judge(ended, [1, 130])

    def interrupted_export(self):
        ended = self.scan("--export", self.output, self.long, encoder="hanging",
                          meanwhile=lambda process: self.interrupt_encoder(process),
                          timeout=END_SECONDS)
        return self.judge(ended, [130])

    def interrupt_encoder(self, process):
        end = time.monotonic() + 30
        while not self.encoder.calls() and time.monotonic() < end:
            time.sleep(0.02)
        os.kill(process.pid, signal.SIGINT)

    def signalled(self, chance, signals=None):
        """At a random moment; whatever was found until then is said, and it ends."""
        signals = signals or chance.choice(
            [[signal.SIGINT], [signal.SIGTERM], [signal.SIGTERM] * 2, [signal.SIGINT] * 2])
        options = chance.choice([[], ["--jobs", "2"], ["--threads", "1"],
                                 ["--export", self.output], ["--trace", self.output / "trace"]])
        delay = chance.uniform(0.05, 1)
        ended = self.scan(*options, *[self.long] * 100, timeout=END_SECONDS, encoder="good",
                          meanwhile=lambda process: later(process, delay, signals))
        if ended.status in (130, -signals[0]) and not ended.output:  # it had not yet begun
            return f"{len(self.left)} programs are left behind" if self.left else ""
        return self.judge(ended, [130])


def later(process, seconds, signals):
    time.sleep(seconds)
    for number in signals:
        os.kill(process.pid, number)


def empty_files(folder):
    empty = [path.name for path in folder.rglob("*") if path.is_file() and not path.stat().st_size]
    empty = [name for name in empty if name != "trace"]
    return f"{len(empty)} empty files are left, {empty[0]}" if empty else ""
