# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# fish completion for kestrova-archive: its own options, and those of kestrova-scan that it passes on.
complete -c kestrova-archive -w kestrova-scan
complete -c kestrova-archive -l hosts -r -F -d 'Measure on these machines'
complete -c kestrova-archive -l slurm -d 'Measure in an array job of Slurm'
complete -c kestrova-archive -l slurm-args -x -d 'More arguments for sbatch'
complete -c kestrova-archive -l split -x -d 'Measure longer recordings in parts of so many minutes'
complete -c kestrova-archive -l finish-here -d 'Measure on this machine what hosts or Slurm leave'
complete -c kestrova-archive -l dry-run -d 'Say what is left and who would measure it'
complete -c kestrova-archive -l status -d 'Say how far it is'
