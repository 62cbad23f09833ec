# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# shellcheck shell=bash
# bash completion for kestrova-archive: its own options, and those of kestrova-scan that it passes on.

_kestrova_archive() {
  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} name passed=()
  local own="--hosts --slurm --slurm-args --split --values --finish-here --dry-run --status --version --help"
  if [[ $prev == = ]]; then prev=${COMP_WORDS[COMP_CWORD-2]}; fi
  case $prev in
    --hosts) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- "${cur#=}"); return ;;
    --slurm-args | --split) COMPREPLY=(); return ;;
  esac
  # shellcheck source=/dev/null # that of the installation
  declare -F _kestrova_scan >/dev/null || . "$(dirname "${BASH_SOURCE[0]}")/kestrova-scan"
  _kestrova_scan "$@"
  [[ $cur == -* ]] || return 0
  for name in "${COMPREPLY[@]}"; do
    [[ " $own --names --unmeasured --part --budget --list-options " == *" $name "* ]] || passed+=("$name")
  done
  COMPREPLY=("${passed[@]}")
  mapfile -t -O "${#passed[@]}" COMPREPLY < <(compgen -W "$own" -- "$cur")
}
complete -F _kestrova_archive kestrova-archive
