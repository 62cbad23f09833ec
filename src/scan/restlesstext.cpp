// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "restlesstext.h"

#include "cellregion.h"

#include <QStringList>

namespace {

constexpr int mostPlaces = 8; ///< that are named

} // namespace

QString restlessText(const CellBits& restless, QSize pictures) {
    if (restless.grid.count() == 0)
        return QStringLiteral("too short to tell what is restless, which takes almost a minute");
    const QVector<QRect> boxes = boxesOf(restless, pictures);
    if (boxes.isEmpty())
        return QStringLiteral("nothing is restless");
    QStringList places;
    for (const QRect& box : boxes.mid(0, mostPlaces))
        places += QStringLiteral("%1,%2,%3,%4")
                      .arg(QString::number(box.x()), QString::number(box.y()),
                           QString::number(box.width()), QString::number(box.height()));
    QString text =
        QStringLiteral("left out as restless: %1 of %2 cells, in %3: %4")
            .arg(QString::number(restless.count()), QString::number(restless.grid.count()),
                 boxes.size() == 1 ? QStringLiteral("one place")
                                   : QStringLiteral("%1 places").arg(boxes.size()),
                 places.join(' '));
    if (boxes.size() > mostPlaces)
        text += QStringLiteral(" and %1 more").arg(boxes.size() - mostPlaces);
    return text;
}
