# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# The one set of warnings; every target of ours links it.
option(KESTROVA_WERROR "Treat warnings as errors" OFF)

add_library(kestrova_warnings INTERFACE)
target_compile_options(
  kestrova_warnings
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wcast-align
            -Wformat=2
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            $<$<BOOL:${KESTROVA_WERROR}>:-Werror>)
target_compile_definitions(kestrova_warnings INTERFACE QT_NO_CAST_FROM_BYTEARRAY
                                                       QT_NO_URL_CAST_FROM_STRING)
