// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the cells that have changed over the picture in which they have: kestrova_cellmap RECORDING
// SECONDS PICTURE. Cells that count as changed are red, fainter ones yellow, and the more so the
// stronger they have changed.

#include "cellgrid.h"
#include "cellmeasure.h"
#include "framestream.h"
#include "snapshotimage.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>

#include <cstdio>

namespace {

constexpr int width = 640; ///< pixels of what is drawn

QRectF boxOf(int column, int row, CellGrid grid, QSize size) {
    const double cellWidth = double(size.width()) / grid.columns;
    const double cellHeight = double(size.height()) / grid.rows;
    return {column * cellWidth, row * cellHeight, cellWidth, cellHeight};
}

QImage drawn(const QImage& picture, const CellMap& map) {
    QImage image = picture.scaledToWidth(width, Qt::SmoothTransformation);
    QPainter painter(&image);
    for (int row = 0; row < map.grid.rows; ++row) {
        for (int column = 0; column < map.grid.columns; ++column) {
            const int step = map.steps[map.grid.placeOf(column, row)];
            if (step == 0)
                continue;
            const QColor tint(step >= changedStep ? Qt::red : Qt::yellow);
            painter.setOpacity(0.25 + 0.4 * step / double(cellSteps.size()));
            painter.fillRect(boxOf(column, row, map.grid, image.size()), tint);
        }
    }
    return image;
}

/// The picture with its map; null where there is none at that time.
QImage mapAt(const QString& recording, double seconds) {
    FramePlan plan;
    plan.threads = 1;
    FrameStream frames(QFile::encodeName(recording), plan);
    CellMeasure measure(0);
    Frame frame = frames.next();
    const double origin = frame.time;
    for (; frame.isThere(); frame = frames.next()) {
        const CellMap& map = measure.add(frame);
        if (frame.time - origin >= seconds)
            return drawn(snapshotImage(*frame.picture), map);
    }
    return {};
}

} // namespace

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: kestrova_cellmap RECORDING SECONDS PICTURE\n", stderr);
        return 2;
    }
    const QImage image = mapAt(arguments[1], arguments[2].toDouble());
    if (!image.isNull() && image.save(arguments[3]))
        return 0;
    std::fputs("kestrova_cellmap: no such picture, or it cannot be written\n", stderr);
    return 1;
}
