# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# shellcheck shell=bash
# The checks of scripts/package; sourced, never run. Of its variables they use the folder of what was
# built, the packages' version, the bare system and a folder to work in.
: "${packages:?}" "${version:?}" "${bare:?}" "${scratch:?}"

# must_pass NAME COMMAND...: says that a check passed, or shows what it said and ends the script.
must_pass() {
    local name=$1
    shift
    if ! "$@" >"$scratch/log" 2>&1; then
        cat "$scratch/log" >&2
        say "FAILED: $name"
        exit 1
    fi
    say "passed: $name"
}

# must_refuse NAME REASON COMMAND...: a check that is shown something broken, and must say that it is for
# this reason that it fails.
must_refuse() {
    local name=$1 reason=$2
    shift 2
    if "$@" >"$scratch/log" 2>&1 || ! grep -qE -- "$reason" "$scratch/log"; then
        cat "$scratch/log" >&2
        say "FAILED: $name was not noticed"
        exit 1
    fi
    say "refused, as it must be: $name"
}

# changed_package NAME VERSION COMMAND: prints the file name of that package as another version of it,
# after a shell command has changed its contents in their folder.
changed_package() {
    local contents="$scratch/changed/$1" file="$scratch/changed/$1_$2.deb"
    rm -rf "$contents"
    mkdir -p "$scratch/changed"
    dpkg-deb -R "$packages/$1_$version"_*.deb "$contents"
    sed -i "s/^Version: .*/Version: $2/; s/(= $version)/(= $2)/" "$contents/DEBIAN/control"
    (cd "$contents" && sh -euc "$3")
    dpkg-deb --root-owner-group -b "$contents" "$file" >/dev/null
    printf '%s\n' "$file"
}

unpacked() {
    [ -d "$scratch/unpacked" ] ||
        for package in kestrova kestrova-scan; do
            dpkg-deb -x "$packages/${package}_$version"_*.deb "$scratch/unpacked"
        done
    printf '%s\n' "$scratch/unpacked"
}

check_versions() {
    must_pass "one version everywhere" "${root:?}/scripts/versions"
    copy_sources "$scratch/versions"
    sed -i 's/<release version="/&9./' "$scratch"/versions/resources/*.metainfo.xml
    must_refuse "another version in the metainfo" "do not name the same version" \
        "$root/scripts/versions" "$scratch/versions"
}

check_desktop_entry() {
    local entry
    entry=$(unpacked)/usr/share/applications/kestrova.desktop
    must_pass "desktop-file-validate" desktop-file-validate "$entry"
    sed 's/^Exec=.*/Exec=kestrova %Q/' "$entry" >"$scratch/kestrova.desktop"
    must_refuse "a desktop entry with an argument that does not exist" "invalid field code" \
        desktop-file-validate "$scratch/kestrova.desktop"
}

check_metainfo() {
    local metainfo said name=org.kestrova.kestrova.metainfo.xml
    local homeless=--override=url-homepage-missing=info options=(--no-net)
    metainfo=$(unpacked)/usr/share/metainfo/$name
    # There is no page on the network to name. Older versions do not ask for one, nor know the word.
    said=$(appstreamcli validate --no-net "$homeless" "$metainfo" 2>&1) || true
    [[ $said == *'not recognized'* ]] || options+=("$homeless")
    must_pass "appstreamcli validate ${options[*]}" \
        appstreamcli validate "${options[@]}" "$metainfo"
    sed '/<summary>/d' "$metainfo" >"$scratch/$name"
    must_refuse "metainfo without a summary" "component-summary-missing" \
        appstreamcli validate --no-net "$scratch/$name"
}

# Pages that are installed can link to such alone.
check_links() {
    cp -r "$(unpacked)/usr/share/doc/kestrova-scan" "$scratch/pages"
    must_pass "links of the installed pages" "$root/scripts/links" "$scratch"/pages/*.md
    rm "$scratch/pages/formats.md"
    must_refuse "a page that is not installed" "scanner.md: formats.md" \
        "$root/scripts/links" "$scratch"/pages/*.md
}

lint_package() {
    local tag=appstream-metadata-validation-failed known=()
    # Newer versions also look at the metainfo, which check_metainfo has done, and want the homepage.
    lintian-explain-tags "$tag" >/dev/null 2>&1 && known=(--suppress-tags "$tag")
    lintian --allow-root -i --pedantic --fail-on error,warning "${known[@]}" "$@"
}

check_policy() {
    must_pass "lintian" lint_package "$packages"/*.changes
    must_refuse "a package without its copyright" "no-copyright-file" \
        lint_package "$(changed_package kestrova-scan "$version" 'rm usr/share/doc/*/copyright')"
}

check_hardening() {
    local programs unmarked=()
    programs=$(unpacked)/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/kestrova
    # A program is marked for control flow integrity only where the C library's start files are, too.
    [[ $(readelf -n "$(g++ -print-file-name=Scrt1.o)") == *IBT* ]] || unmarked=(--nocfprotection)
    # Branch protection is a matter of ARM processors, which newer versions ask every program for.
    [ "$(dpkg-architecture -qDEB_HOST_ARCH_CPU)" = arm64 ] ||
        ! grep -q -e --nobranchprotection <<<"$(hardening-check --help || true)" ||
        unmarked+=(--nobranchprotection)
    must_pass "hardening-check ${unmarked[*]} kestrova-scan" \
        hardening-check "${unmarked[@]}" "$programs/kestrova-scan"
    # The window's own code calls nothing of which the compiler knows the size.
    must_pass "hardening-check ${unmarked[*]} --nofortify kestrova" \
        hardening-check "${unmarked[@]}" --nofortify "$programs/kestrova"
    printf '#include <cstdio>\nint main() { char line[9]; return !fgets(line, sizeof line, stdin); }\n' |
        g++ -x c++ -no-pie -fno-stack-protector -U_FORTIFY_SOURCE -Wl,-z,norelro -o "$scratch/soft" -
    must_refuse "a program that is not hardened" "Position Independent Executable: no" \
        hardening-check "$scratch/soft"
}

# same_bytes FOLDER: whether each of the packages, and the sources, has the same bytes there.
same_bytes() {
    local file
    for file in "$packages"/*.deb "$packages"/*.dsc "$packages"/*.tar.*; do
        cmp "$file" "$1/${file##*/}" || return 1
    done
}

check_same_bytes() {
    must_pass "two builds, bit for bit" same_bytes "$1"
    cp "$(changed_package kestrova "$version" 'touch usr/bin')" "$1/$(basename "$packages"/kestrova_*.deb)"
    must_refuse "a second build that is not the same" "differ" same_bytes "$1"
}

# What is in the bare system, but for what its package manager notes of every installation.
files_of_bare() {
    find "$bare" -xdev \( -path "$bare/var/cache" -o -path "$bare/var/log" -o -path "$bare/var/lib/apt" \
        -o -path "$bare/tmp" -o -path "$bare/packages" \) -prune -o -printf '%P\n' | LC_ALL=C sort
}

in_bare() { in_root "$bare" "$@"; }

# offer PACKAGE...: puts the packages where apt of the bare system finds them.
offer() {
    rm -rf "$bare/packages"
    mkdir "$bare/packages"
    cp "$@" "$bare/packages"
}

install_dependencies() {
    local needs
    needs=$(for file in "$packages"/kestrova_*.deb "$packages"/kestrova-scan_*.deb; do
        dpkg-deb -f "$file" Depends
    done | sed 's/kestrova-scan ([^)]*), //' | paste -sd,)
    in_bare apt-get update -q &&
        in_bare apt-get satisfy -q -y --no-install-recommends "$needs"
}

install_offered() {
    in_bare sh -euc 'apt-get install -q -y --no-install-recommends /packages/*.deb'
}

purge() { in_bare apt-get purge -q -y kestrova kestrova-scan; }

# leaves_nothing PACKAGE...: whether the packages, installed over an older version and purged, leave the
# bare system as it was.
leaves_nothing() {
    files_of_bare >"$scratch/before"
    offer "$(changed_package kestrova 0.0.1 'mkdir usr/share/kestrova && touch usr/share/kestrova/old')" \
        "$(changed_package kestrova-scan 0.0.1 true)"
    install_offered && [ -e "$bare/usr/share/kestrova/old" ] || return 1
    offer "$@"
    install_offered && [ ! -e "$bare/usr/share/kestrova/old" ] && purge || return 1
    files_of_bare >"$scratch/after"
    diff "$scratch/before" "$scratch/after"
}

check_leaves_nothing() {
    must_pass "what the packages need can be installed" install_dependencies
    must_pass "installed, upgraded and purged, nothing is left" \
        leaves_nothing "$packages"/kestrova_*.deb "$packages"/kestrova-scan_*.deb
    must_refuse "a package that leaves a file behind" "> var/lib/kestrova" \
        leaves_nothing "$packages"/kestrova_*.deb \
        "$(changed_package kestrova-scan "$version" \
            'printf "#!/bin/sh\ntouch /var/lib/kestrova\n" >DEBIAN/postinst && chmod +x DEBIAN/postinst')"
    rm -f "$bare/var/lib/kestrova"
}

# test_installed PACKAGE...: debian/tests on the packages, installed in the bare system.
test_installed() {
    with_mounts "$bare" autopkgtest --output-dir="$packages/tests" "$@" \
        "$scratch/first/kestrova-$version/" -- chroot "$bare"
}

check_installed() {
    must_pass "autopkgtest" test_installed "$packages"/kestrova_*.deb "$packages"/kestrova-scan_*.deb
    grep -E 'PASS|FAIL|SKIP' "$packages/tests/summary" >&2
    mv "$packages/tests" "$scratch/tests"
    must_refuse "a package without its encoder" "export +FAIL non-zero exit status" \
        test_installed --test-name=export "$packages"/kestrova_*.deb \
        "$(changed_package kestrova-scan "$version" 'rm usr/lib/*/kestrova/ffmpeg')"
    rm -rf "$packages/tests"
    mv "$scratch/tests" "$packages/tests"
}
