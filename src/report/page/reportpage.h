// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reportstrips.h"

#include <QByteArray>
#include <QByteArrayList>

#include <functional>

struct PagePart;

/// A report as a page of HTML that needs nothing but the pictures beside it and, to play clips, the
/// recordings or exported files.
class ReportPage {
public:
    /// Takes a piece of the page; false ends the writing.
    using Sink = std::function<bool(const QByteArray& piece)>;

    /// `report` must outlive the page.
    explicit ReportPage(const MotionReport& report);

    /// Gives the whole page to `sink`, piece by piece.
    void write(const Sink& sink) const;

private:
    QByteArray summary() const;
    QByteArray sectionOf(const PagePart& part) const;

    const MotionReport& report;
    ReportStrips strips;
};
