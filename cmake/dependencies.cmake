# SPDX-FileCopyrightText: 2026 The Kestrova authors
#
# SPDX-License-Identifier: GPL-3.0-or-later

list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR})

find_package(Qt5 5.15 REQUIRED COMPONENTS Core DBus Gui Widgets)
find_package(OpenCVModules 4.6 REQUIRED COMPONENTS core)
find_package(nlohmann_json 3.11 REQUIRED)
find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(
  LIBAV
  REQUIRED
  IMPORTED_TARGET
  libavformat
  libavcodec
  libavutil
  libswscale)
pkg_check_modules(SECCOMP REQUIRED IMPORTED_TARGET libseccomp)
pkg_check_modules(ZSTD REQUIRED IMPORTED_TARGET libzstd)
# Only its headers: the window loads the library when somebody plays.
find_path(MPV_INCLUDE_DIR mpv/client.h REQUIRED)
