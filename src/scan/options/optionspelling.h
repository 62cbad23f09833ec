// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "optiontable.h"

/// "--skip N", with the short form in front where there is one.
QString spelling(const ScanOption& option);

/// Its names alone: "-h" and "--help".
QStringList spellings(const ScanOption& option);

/// What it does, takes and defaults to, as one sentence.
QString sentence(const ScanOption& option);

/// What the program does: its usage, then paragraphs with empty lines between them. Lines end
/// before column 79.
QString scannerDescription();

/// Calls `visit(option, isFirstOfItsGroup)` for every option.
template<class Visitor>
void forEachOption(Visitor visit) {
    const ScanOption* previous = nullptr;
    for (const ScanOption& option : scanOptions()) {
        visit(option, !previous || previous->group != option.group);
        previous = &option;
    }
}
