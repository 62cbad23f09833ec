// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optiontable.h"
#include "optiontext.h"

QString optionList() {
    // In the order of ValueKind.
    constexpr const char* kinds[] = {"none", "number", "word", "file", "folder", "text"};
    QString lines;
    for (const ScanOption& option : scanOptions()) {
        const char* use = option.valuesKey.isEmpty() ? "-" : "measuring";
        lines += QStringLiteral("%1\t%2\t%3\n").arg(option.name, kinds[int(option.kind)], use);
    }
    return lines;
}
