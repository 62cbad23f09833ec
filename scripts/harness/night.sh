#!/usr/bin/env bash

# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# night.sh FOLDER: puts the recordings of a quiet night into a folder, made from those of the tests:
# somebody passes through the garden now and then, and nobody through the street.
set -euo pipefail
recordings=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../tests/recordings" && pwd)
mkdir -p "$1"

# visit INPUT SECONDS QUIET: a filter for the first seconds of an input, with stillness around them.
visit() {
    printf '[%s:v]trim=0:%s,fps=5,scale=320:180,setsar=1,tpad=start_mode=clone:start_duration=60' "$1" "$2"
    printf ':stop_mode=clone:stop_duration=%s[visit%s];' "$3" "$1"
}

encode() { nice ffmpeg -v error -y "$@"; }

codec=(-c:v libx264 -preset ultrafast -threads 1)
filter="$(visit 0 1 1100)$(visit 1 12 2700)$(visit 2 23 1900)$(visit 3 24 2200)$(visit 4 12 900)"
filter+="$(visit 5 24 1700)[visit0][visit1][visit2][visit3][visit4][visit5]concat=n=6"
gate=$recordings/gate.avi garden=$recordings/garden.mp4
encode -i "$gate" -i "$gate" -i "$garden" -i "$gate" -i "$garden" -i "$gate" \
    -filter_complex "$filter" "${codec[@]}" "$1/garden.mkv"
encode -i "$garden" "${codec[@]}" \
    -vf trim=0:4,fps=5,scale=320:180,tpad=stop_mode=clone:stop_duration=7000 "$1/street.mkv"
