# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# shellcheck shell=bash
# What the scripts share; sourced, never run.

set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '%s\n' "$*" >&2; }

# packages ROLE: the names of scripts/packages.txt that have no role or this one.
packages() {
    awk -v role="$1" '/^#/ || NF == 0 { next } NF == 1 || $2 == role || $3 == role { print $1 }' \
        "$root/scripts/packages.txt"
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# install_packages ROLE: installs those packages that are missing, as root or through sudo.
install_packages() {
    local missing=() package
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        say "This is not a Debian system. Kestrova needs what these Debian packages hold:"
        say "$(packages "$1" | tr '\n' ' ')"
        say "Install them, then build with: cmake --preset release && cmake --build --preset release"
        exit 1
    fi
    while read -r package; do
        is_installed "$package" || missing+=("$package")
    done < <(packages "$1")
    [ ${#missing[@]} -eq 0 ] && return
    say "Missing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    if [ ${#as_root[@]} -gt 0 ] && ! command -v sudo >/dev/null; then
        say "Run this as root, or install sudo."
        exit 1
    fi
    "${as_root[@]}" apt-get update -q >&2
    # A line for each file: address, name, bytes, digest.
    "${as_root[@]}" apt-get install --print-uris -qq --no-install-recommends "${missing[@]}" |
        awk '{ bytes += $3 } END { printf "Downloading %d packages, %.0f MB ...\n", NR, bytes / 1e6 }' >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}" >&2
}

# quietly COMMAND...: shows what a command says only where it fails.
quietly() {
    local log
    log=$(mktemp)
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# build PRESET: configures and builds build/PRESET. On a terminal ninja says in one line how far it is.
build() {
    local to_log=quietly
    [ ! -t 2 ] || to_log=''
    say "Building $1 ..."
    (
        cd "$root"
        quietly cmake --preset "$1"
        NINJA_STATUS='[%f of %t] ' $to_log cmake --build --preset "$1" >&2
    )
}

# source_files: the names of the project's files, each ended by a null byte.
source_files() {
    cd "$root"
    if [ -e .git ]; then
        git ls-files -z --cached --others --exclude-standard
    else
        find . -path ./build -prune -o ! -type d -print0
    fi
}

# copy_sources FOLDER: copies the project into a folder, without what has been built.
copy_sources() {
    source_files | tar -C "$root" -c --null -T - --ignore-failed-read | tar -x -C "$1"
}
