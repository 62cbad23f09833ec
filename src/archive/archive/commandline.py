# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

"""The command line: options of its own, and those of the scanner as it lists them."""

import argparse
import dataclasses
import os
import shlex
import shutil
import subprocess
import sys

# Beside the name under which this program was called, which may be a link.
SCANNER = os.path.join(os.path.dirname(os.path.abspath(sys.argv[0])), "kestrova-scan")

# Options of the scanner with which this program calls it itself, or that print something else.
NOT_PASSED_ON = {"names", "unmeasured", "split", "part", "budget", "values", "version", "help", "list-options"}

DESCRIPTION = """Has many recordings measured, on all cores or on many machines, then prints what kestrova-scan
prints. All other options are those of kestrova-scan. A second call goes on where the first one ended.
The exit status is that of kestrova-scan, or 1 where something could not be measured."""


def complain(text):
    """One line on standard error that steers no terminal."""
    print("kestrova-archive: " + printable(text), file=sys.stderr)
    return 1


def printable(text):
    return "".join(character if character.isprintable() else ascii(character)[1:-1] for character in text)


def own_options(parser):
    place = parser.add_mutually_exclusive_group()
    place.add_argument("--hosts", metavar="FILE", type=os.path.abspath, help="of machines, as 8/user@host")
    place.add_argument("--slurm", action="store_true", help="measure in an array job of Slurm")
    parser.add_argument("--slurm-args", metavar="ARGS", type=shlex.split, default=[], help="more for sbatch")
    parser.add_argument("--split", metavar="MINUTES", type=int, help="measure longer recordings in parts")
    parser.add_argument("--values", metavar="DIR", required=True, help="folder for values, list and logs")
    parser.add_argument("--finish-here", action="store_true",
                        help="measure on this machine what hosts or Slurm leave")
    told = parser.add_mutually_exclusive_group()
    told.add_argument("--dry-run", action="store_true", help="say what is left and who would measure it")
    told.add_argument("--status", action="store_true", help="say how far it is, also while a call is at work")
    version = subprocess.run([SCANNER, "--version"], capture_output=True, check=True).stdout.decode()
    parser.add_argument("--version", action="version", help="print the version",
                        version=version.replace("kestrova-scan", "kestrova-archive"))
    parser.add_argument("recordings", nargs="*", help=argparse.SUPPRESS)


@dataclasses.dataclass
class PassedOn:
    """Names of the scanner's options that are passed on to it."""
    all: set
    bare: dict  # those that may be given without a value, as options, and what that means
    measuring: list  # those of them that motion values depend on


def add_scanner_options(parser):
    listed = subprocess.run([SCANNER, "--list-options"], capture_output=True, check=True).stdout.decode()
    passed_on = PassedOn(set(), {}, [])
    for name, kind, use, *bare in (line.split("\t") for line in listed.splitlines()):
        if name in NOT_PASSED_ON:
            continue
        action = "store_true" if kind == "none" else "append"
        parser.add_argument("--" + name, dest=name, action=action, help=argparse.SUPPRESS)
        passed_on.all.add(name)
        if bare:
            passed_on.bare["--" + name] = f"--{name}={bare[0]}"
        if use == "measuring":
            passed_on.measuring.append(name)
    return passed_on


def parse():
    """The arguments, and which of them are the scanner's."""
    parser = argparse.ArgumentParser(
        prog="kestrova-archive", allow_abbrev=False, description=DESCRIPTION,
        formatter_class=argparse.RawDescriptionHelpFormatter,
        usage="%(prog)s [--hosts FILE | --slurm] --values DIR [OPTION]... RECORDING|FOLDER...")
    own_options(parser)
    options = add_scanner_options(parser)
    given = "\0".join(sys.argv[1:]).replace("--slurm-args\0", "--slurm-args=").split("\0")
    given = [options.bare.get(word, word) for word in given]
    arguments = parser.parse_intermixed_args(given)  # in which a value may look like an option
    if arguments.split is not None and (arguments.split < 1 or words(arguments, ["quick", "from", "to"])):
        parser.error("--split takes minutes, 1 or more, and excludes --quick, --from and --to")
    engine = ["scontrol", "sbatch"] if arguments.slurm else ["parallel"] + ["ssh"] * bool(arguments.hosts)
    for program in engine + ["ffprobe"] * bool(arguments.split):
        if not shutil.which(program):
            sys.exit(complain(f"{program} is missing; kestrova-archive(1) names its package"))
    return arguments, options


def words(arguments, names):
    """These options, for a command line, as far as they were given."""
    given = [(name, getattr(arguments, name)) for name in names if getattr(arguments, name)]
    return [word for name, value in given
            for word in ([f"--{name}"] if value is True else [f"--{name}={one}" for one in value])]
