# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

# Single modules of OpenCV, each from a development package of its own. OpenCV's own config file names
# all modules and is only there with all of them: three hundred packages more.
#
# Makes an imported target opencv_NAME for each component NAME.
find_path(OpenCVModules_INCLUDE_DIR opencv2/core/version.hpp PATH_SUFFIXES opencv4)
mark_as_advanced(OpenCVModules_INCLUDE_DIR)

if(OpenCVModules_INCLUDE_DIR)
  file(STRINGS ${OpenCVModules_INCLUDE_DIR}/opencv2/core/version.hpp version_lines
       REGEX "^#define CV_VERSION_(MAJOR|MINOR|REVISION) +[0-9]+$")
  string(REGEX MATCHALL "[0-9]+" version_numbers "${version_lines}")
  list(JOIN version_numbers "." OpenCVModules_VERSION)
endif()

foreach(module IN LISTS OpenCVModules_FIND_COMPONENTS)
  find_library(OpenCVModules_${module}_LIBRARY opencv_${module})
  mark_as_advanced(OpenCVModules_${module}_LIBRARY)
  if(OpenCVModules_${module}_LIBRARY)
    set(OpenCVModules_${module}_FOUND TRUE)
  endif()
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(
  OpenCVModules
  REQUIRED_VARS OpenCVModules_INCLUDE_DIR
  VERSION_VAR OpenCVModules_VERSION
  HANDLE_COMPONENTS)

if(OpenCVModules_FOUND)
  foreach(module IN LISTS OpenCVModules_FIND_COMPONENTS)
    if(NOT TARGET opencv_${module})
      add_library(opencv_${module} UNKNOWN IMPORTED)
      set_target_properties(
        opencv_${module} PROPERTIES IMPORTED_LOCATION ${OpenCVModules_${module}_LIBRARY}
                                    INTERFACE_INCLUDE_DIRECTORIES ${OpenCVModules_INCLUDE_DIR})
    endif()
  endforeach()
endif()
