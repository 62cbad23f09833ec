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
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/ffmpeg
              ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/DejaVuSansMono.ttf
        DESTINATION ${KESTROVA_PROGRAM_DIR})

# Installs a program into the program directory and links it from bin/.
function(kestrova_install_program target)
  install(TARGETS ${target} RUNTIME DESTINATION ${KESTROVA_PROGRAM_DIR})
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/installed-links)
  file(RELATIVE_PATH link_target /${CMAKE_INSTALL_BINDIR} /${KESTROVA_PROGRAM_DIR}/${target})
  file(CREATE_LINK ${link_target} ${CMAKE_BINARY_DIR}/installed-links/${target} SYMBOLIC)
  install(FILES ${CMAKE_BINARY_DIR}/installed-links/${target} DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()
