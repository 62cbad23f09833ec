// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "application.h"

int main(int argc, char* argv[]) {
    return runApplication(argc, argv);
}
