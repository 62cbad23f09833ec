// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

// What strips are drawn of, as SVG. A plot is `plotUnits` high in its own units and one wide for
// each column; around it shares of the strip's width and pixels count.

constexpr int plotUnits = 1000;

/// The place of a motion value from the plot's top, of which `top` is the greatest.
int depthOf(double motion, double top);

/// Where a motion value lies in a strip: from 0 at the bottom to 1 at `top`, by its square root.
double stripHeight(double motion, double top);

/// A length in a drawing, to a hundredth.
QByteArray plotNumber(double length);

/// The outline of columns; those below 0 are gaps. Equal ones in a row are one line.
QByteArray motionPath(const QVector<float>& columns, double top);

/// The columns without a value, of which nothing was looked at, over the whole height.
QByteArray unseenPath(const QVector<float>& columns);

/// A rectangle over the whole plot between two places in columns.
QByteArray barPath(double from, double to);

QByteArray thresholdLine(double threshold, double top, int plotHeight);

/// A labelled line at a share of the width. Small screens leave out those that are minor.
QByteArray markDrawing(const QString& label, double share, bool isMinor, int plotHeight);
