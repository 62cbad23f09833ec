# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Encoders to put beside a program, each with a fault of its own, that note every start."""

import os
import pathlib

# The last argument is the file to write. "$0.calls" gets a line for every start.
HEAD = """#!/bin/sh
for output; do :; done
printf '%s %s\\n' "$$" "$*" >>"$0.calls"
"""

KINDS = {
    "good": 'echo recorded >"$output"',
    "failing": "echo 'garden.mp4: No such thing' >&2; echo 'Conversion failed!' >&2; exit 1",
    "crashing": "kill -SEGV $$",
    "hanging": "exec sleep 120",
    "writes nothing": "exit 0",
    "writes an empty file": ': >"$output"',
    "chattering": 'head -c "${CHATTER:-1000000}" /dev/zero | tr "\\0" "x" >&2; exit 1',
    "removing its folder": 'rm -rf "$(dirname "$output")"; exit 1',
    # A shell's echo tells that it could not write; many a program does not.
    "not noticing a full disk": 'echo recorded 2>/dev/null >"$output"; exit 0',
}


class Encoder:
    """The encoder beside a program: a stand-in, the real one, or none."""

    def __init__(self, folder, kind, real):
        self.path = pathlib.Path(folder) / "ffmpeg"
        self.calls_file = self.path.with_name("ffmpeg.calls")
        for path in (self.path, self.calls_file):
            path.unlink(missing_ok=True)
        if kind == "real":
            self.path.write_text(HEAD + f'exec "{os.path.realpath(real)}" "$@"\n')
        elif kind != "missing":
            self.path.write_text(HEAD + KINDS[kind] + "\n")
        if kind != "missing":
            self.path.chmod(0o755)

    def calls(self):
        """The arguments of every start so far."""
        if not self.calls_file.exists():
            return []
        return [line.split()[1:] for line in self.calls_file.read_text().splitlines()]
