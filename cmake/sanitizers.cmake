# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

set(KESTROVA_SANITIZE
    ""
    CACHE STRING "Sanitizers to build with, comma separated, as -fsanitize takes them")

if(KESTROVA_SANITIZE)
  add_compile_options(-fsanitize=${KESTROVA_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KESTROVA_SANITIZE})
endif()
