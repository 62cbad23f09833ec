# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# shellcheck shell=sh
# A recording for the tests; sourced by them. Grey, 12 s long; from second 5 to second 9 all of it moves.

make_sample() {
    ffmpeg -nostdin -v error -y -f lavfi \
        -i "color=c=gray:s=320x240:r=25:d=12,noise=alls=60:allf=t:enable='between(t,5,9)'" \
        -c:v libx264 -preset veryfast -threads 1 -pix_fmt yuv420p "$1"
}
