# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# The window's texts in other languages: translations/*.ts, made up to date by scripts/translations, are
# compiled and built into the program. Of English there are only the texts that count. KESTROVA_TRANSLATIONS
# names the source file that holds them.
get_target_property(qmake Qt5::qmake IMPORTED_LOCATION)
cmake_path(GET qmake PARENT_PATH qt_programs)
find_program(KESTROVA_LRELEASE lrelease HINTS ${qt_programs} REQUIRED)

set(languages de en es fr)
set(entries "")
foreach(language IN LISTS languages)
  set(source ${CMAKE_CURRENT_SOURCE_DIR}/translations/kestrova_${language}.ts)
  set(target ${CMAKE_CURRENT_BINARY_DIR}/kestrova_${language}.qm)
  add_custom_command(
    OUTPUT ${target}
    COMMAND ${KESTROVA_LRELEASE} -silent ${source} -qm ${target}
    DEPENDS ${source}
    VERBATIM)
  string(APPEND entries "<file>kestrova_${language}.qm</file>")
endforeach()

set(list_of_them ${CMAKE_CURRENT_BINARY_DIR}/translations.qrc)
file(CONFIGURE OUTPUT ${list_of_them} CONTENT
     "<RCC><qresource prefix=\"/translations\">${entries}</qresource></RCC>\n")
qt5_add_resources(KESTROVA_TRANSLATIONS ${list_of_them})
