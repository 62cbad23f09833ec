// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optiontable.h"

namespace {

QStringList dashed(const QStringList& names) {
    QStringList all;
    for (const QString& name : names)
        all += QStringLiteral("--") + name;
    return all;
}

QString limitsOfBoth(const QString& range, const QString& fallback, const CellsLimits& ofCells) {
    const QString cellsRange = ofCells.range.text();
    if (cellsRange == range)
        return QStringLiteral("%1 (%2, with --detector cells %3)")
            .arg(range, fallback, ofCells.fallback);
    return QStringLiteral("%1 (%2), with --detector cells %3 (%4)")
        .arg(range, fallback, cellsRange, ofCells.fallback);
}

} // namespace

QString listed(const QStringList& words) {
    if (words.size() < 2)
        return words.value(0);
    return words.mid(0, words.size() - 1).join(QStringLiteral(", ")) + QStringLiteral(" or ") +
           words.last();
}

QString NumberRange::text() const {
    return QStringLiteral("%1 to %2").arg(QString::number(lowest), QString::number(highest));
}

QString ScanOption::limits() const {
    QString taken;
    if (range)
        taken = range->text();
    else if (!words.isEmpty())
        taken = listed(words);
    const QString without = fallback.isEmpty() ? absence : fallback;
    if (ofCells)
        return limitsOfBoth(taken, without, *ofCells);
    if (taken.isEmpty() || without.isEmpty())
        return taken + without;
    return taken + QStringLiteral(" (%1)").arg(without);
}

QString ScanOption::company() const {
    QStringList parts;
    if (!needs.isEmpty())
        parts += QStringLiteral("needs ") + listed(dashed(needs));
    if (!excludes.isEmpty())
        parts += QStringLiteral("excludes ") + dashed(excludes).join(QStringLiteral(", "));
    return parts.join(QStringLiteral(", and "));
}

QString groupTitle(OptionGroup group) {
    switch (group) {
    case OptionGroup::Input:
        return QStringLiteral("Which recordings");
    case OptionGroup::Clips:
        return QStringLiteral("What is a clip");
    case OptionGroup::Region:
        return QStringLiteral("Where to look");
    case OptionGroup::Output:
        return QStringLiteral("What is written");
    case OptionGroup::Export:
        return QStringLiteral("Exporting the clips");
    case OptionGroup::Package:
        return QStringLiteral("A Camtrap DP package");
    case OptionGroup::Running:
        return QStringLiteral("How it runs");
    case OptionGroup::Help:
        break;
    }
    return QStringLiteral("Help");
}
