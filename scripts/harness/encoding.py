# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""Encoding that gives the same bytes on every machine."""

# What encoders that count the machine's cores by themselves are told, and with which option.
SETTINGS = {
    "libx265": ("-x265-params", "pools=1:frame-threads=1"),
    "libsvtav1": ("-svtav1-params", "lp=1"),
}


def pinned(arguments):
    """The encoder's options for one output, with one thread and without random numbers."""
    options = [*arguments, "-threads", "1", "-fflags", "+bitexact"]
    for encoder, (option, settings) in SETTINGS.items():
        if encoder in options:
            given = [options[options.index(option) + 1]] if option in options else []
            options += [option, ":".join([*given, settings])]
    return options
