# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# shellcheck shell=bash
# Bare Debian systems in folders, for what must be tried on a machine that has nothing yet; sourced
# behind common.sh, never run. They are kept between runs in KESTROVA_CACHE, or ~/.cache/kestrova.

roots=${KESTROVA_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kestrova}

need_root() {
    [ "$(id -u)" -eq 0 ] && return
    say "This makes Debian systems in folders of $roots, and must be run as root."
    exit 1
}

# The mirror that this machine's packages come from; KESTROVA_MIRROR names another one.
mirror() {
    if [ -n "${KESTROVA_MIRROR:-}" ]; then
        printf '%s\n' "$KESTROVA_MIRROR"
        return
    fi
    # Only updates of a release have a "-" in their names.
    # shellcheck disable=SC2016 # apt fills the fields in
    apt-get indextargets --format '$(REPO_URI) $(CODENAME)' 'Origin: Debian' 'Created-By: Packages' |
        awk '$2 !~ /-/ { print $1; exit }'
}

# apt_settings: how this machine's apt reaches its mirror, as the text of an apt.conf.
apt_settings() {
    apt-config dump | grep -E '^Acquire::([a-z:]*Proxy|Check-)' || true
}

# bare_root SUITE: makes the bare system of that release where it is missing, and prints its folder.
bare_root() {
    local bare="$roots/$1" from
    if [ ! -d "$bare" ]; then
        from=$(mirror)
        if [ -z "$from" ]; then
            say "No Debian mirror is known. Run apt-get update, or name one in KESTROVA_MIRROR."
            exit 1
        fi
        say "Making a bare $1 in $bare ..."
        mkdir -p "$roots"
        rm -rf "$bare.part"
        debootstrap --variant=minbase "$1" "$bare.part" "$from" >"$bare.log" 2>&1 ||
            { tail -n 20 "$bare.log" >&2; exit 1; }
        apt_settings >"$bare.part/etc/apt/apt.conf.d/90machine"
        mv "$bare.part" "$bare"
    fi
    printf '%s\n' "$bare"
}

# fresh_root SUITE FOLDER: a new copy of the bare system.
fresh_root() {
    local bare
    bare=$(bare_root "$1")
    rm -rf --one-file-system "$2"
    mkdir -p "$(dirname "$2")"
    cp -a --reflink=auto "$bare" "$2"
    cp -L /etc/resolv.conf "$2/etc/resolv.conf"
}

# with_mounts FOLDER COMMAND...: runs a command while that system has its kernel file systems. They and
# every process that the command leaves behind end with it. The folder becomes a mount of its own, so that
# a system in that system can do the same.
with_mounts() {
    # shellcheck disable=SC2016 # the inner shell's parameters
    unshare --mount --pid --fork --kill-child -- sh -euc '
        mount --bind "$0" "$0"
        mount -t proc proc "$0/proc"
        mount -t tmpfs tmpfs "$0/dev/shm"
        mount -t devpts -o newinstance,ptmxmode=0666 devpts "$0/dev/pts"
        exec "$@"' "$@"
}

# in_root FOLDER COMMAND...: runs a command as root of that system, in its root folder.
in_root() {
    local folder=$1
    shift
    with_mounts "$folder" chroot "$folder" env -i HOME=/root LC_ALL=C.UTF-8 \
        PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        DEBIAN_FRONTEND=noninteractive "$@"
}
