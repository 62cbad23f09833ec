# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

with section("format"):
    line_width = 100
    tab_size = 2

with section("markup"):
    enable_markup = False
