# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# The program directory: what the programs expect beside themselves, in the build tree's bin/ and
# where an installation puts it. Both are filled from here, so that they cannot drift apart.
set(KESTROVA_PROGRAM_DIR
    ${CMAKE_INSTALL_LIBDIR}/kestrova
    CACHE STRING "Program directory of an installation, relative to its prefix")

find_program(KESTROVA_ENCODER ffmpeg REQUIRED)
find_file(
  KESTROVA_OVERLAY_FONT DejaVuSansMono.ttf
  PATHS /usr/share/fonts/truetype/dejavu
  NO_DEFAULT_PATH REQUIRED)

file(MAKE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
file(CREATE_LINK ${KESTROVA_ENCODER} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/ffmpeg SYMBOLIC)
file(CREATE_LINK ${KESTROVA_OVERLAY_FONT} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/DejaVuSansMono.ttf
     SYMBOLIC)
install(
  FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/ffmpeg
        ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/DejaVuSansMono.ttf
  DESTINATION ${KESTROVA_PROGRAM_DIR}
  COMPONENT scan)

# Installs a link; LINK and TARGET are relative to the prefix. Like everything installed it belongs to a
# component, "scan" or "window": the packages are made of them.
function(kestrova_install_link link target component)
  set(staged ${CMAKE_BINARY_DIR}/installed-links/${link})
  cmake_path(GET link PARENT_PATH folder)
  cmake_path(GET staged PARENT_PATH staged_folder)
  file(RELATIVE_PATH relative_target /${folder} /${target})
  file(MAKE_DIRECTORY ${staged_folder})
  file(CREATE_LINK ${relative_target} ${staged} SYMBOLIC)
  install(
    FILES ${staged}
    DESTINATION ${folder}
    COMPONENT ${component})
endfunction()

# Installs a program into the program directory and links it from bin/.
function(kestrova_install_program target component)
  install(TARGETS ${target} RUNTIME DESTINATION ${KESTROVA_PROGRAM_DIR} COMPONENT ${component})
  kestrova_install_link(${CMAKE_INSTALL_BINDIR}/${target} ${KESTROVA_PROGRAM_DIR}/${target}
                        ${component})
endfunction()
