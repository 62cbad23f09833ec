// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clocktext.h"
#include "motionstripwidget.h"
#include "timeaxis.h"

#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double margin = 2.0;    ///< pixels
constexpr double narrowest = 2.0; ///< pixels of a listed clip

QColor faint(QColor color, int alpha) {
    color.setAlpha(alpha);
    return color;
}

} // namespace

void MotionStripWidget::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
    if (!motion)
        return;
    paintAxis(painter);
    painter.setClipRect(graph().adjusted(0, 0, 0, viewport()->height()));
    paintWouldBe(painter);
    paintMotion(painter);
    paintListed(painter);
    paintThreshold(painter);
    painter.setClipping(false);
    paintValues(painter);
}

void MotionStripWidget::measureTexts() {
    textHeight = fontMetrics().height();
    valueWidth = fontMetrics().horizontalAdvance(QStringLiteral("00.00 %")) + 2 * margin;
}

/// Above the lane of the listed clips and the axis, beside the values.
QRectF MotionStripWidget::graph() const {
    return QRectF(viewport()->rect())
        .adjusted(valueWidth, textHeight / 2, -margin, -2 * (textHeight + margin));
}

/// Hatched, so that they can be told from those that are listed without their colour, too.
void MotionStripWidget::paintWouldBe(QPainter& painter) const {
    const QColor color = palette().color(QPalette::Highlight);
    painter.setPen(QPen(color, 0));
    for (const TimeRange& clip : wouldBe) {
        if (clip.to < window.begin() || clip.from > window.end())
            continue;
        const QRectF area(QPointF(xOf(clip.from), graph().top()),
                          QPointF(xOf(clip.to), graph().bottom()));
        painter.fillRect(area, faint(color, 40));
        painter.setBrush(QBrush(faint(color, 160), Qt::BDiagPattern));
        painter.drawRect(area);
    }
}

/// A bar for each pixel of the screen, however many there are to one of ours.
void MotionStripWidget::paintMotion(QPainter& painter) const {
    const QRectF area = graph();
    const double pixel = 1.0 / devicePixelRatioF();
    const int columns = int(area.width() / pixel);
    QVector<QRectF> quiet;
    QVector<QRectF> moving;
    for (int i = 0; i < columns; ++i) {
        const double x = area.left() + i * pixel;
        const double from = secondsAt(x);
        if (from > motion->seconds())
            break;
        const double value = double(motion->strongest(from, secondsAt(x + pixel)));
        const double y = yOf(value);
        (value >= threshold ? moving : quiet).append({x, y, pixel, area.bottom() - y});
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(faint(palette().color(QPalette::Text), 110));
    painter.drawRects(quiet);
    painter.setBrush(palette().color(QPalette::Text));
    painter.drawRects(moving);
}

/// Of clips that overlap each is seen up to where the next one begins.
void MotionStripWidget::paintListed(QPainter& painter) const {
    const double height = textHeight;
    const double top = graph().bottom() + margin;
    double drawnTo = 0.0; // of clips that lie within a pixel one is enough
    for (int i = 0; i < listed.size(); ++i) {
        const ListedSpan& clip = listed[i];
        if (clip.end < window.begin() || clip.start > window.end() || xOf(clip.end) < drawnTo)
            continue;
        const double left = xOf(clip.start);
        QRectF area(left, top, std::max(xOf(clip.end) - left, narrowest), height);
        drawnTo = area.right();
        painter.setPen(QPen(palette().color(QPalette::Base), 0));
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRect(area);
        if (area.width() <= 2 * narrowest)
            continue;
        if (i + 1 < listed.size() && listed[i + 1].start > clip.start)
            area.setRight(std::min(area.right(), xOf(listed[i + 1].start)));
        const QString number = QStringLiteral("#%1").arg(clip.index);
        painter.setPen(palette().color(QPalette::HighlightedText));
        if (fontMetrics().horizontalAdvance(number) + 2 * margin <= area.width())
            painter.drawText(area, Qt::AlignCenter, number);
    }
}

void MotionStripWidget::paintThreshold(QPainter& painter) const {
    const double y = yOf(threshold);
    painter.setPen(QPen(palette().color(QPalette::Base), 3));
    painter.drawLine(QPointF(graph().left(), y), QPointF(graph().right(), y));
    painter.setPen(QPen(palette().color(QPalette::Link), hasFocus() ? 2 : 1, Qt::DashLine));
    painter.drawLine(QPointF(graph().left(), y), QPointF(graph().right(), y));
}

/// The strongest that there is room for and the threshold, unless they would cover each other.
void MotionStripWidget::paintValues(QPainter& painter) const {
    const double height = textHeight;
    const auto write = [&](double value) {
        const QRectF area(0.0, yOf(value) - height / 2, graph().left() - margin, height);
        painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter,
                         QLocale().toString(value, 'f', 2) + unit);
    };
    painter.setPen(palette().color(QPalette::Link));
    write(threshold);
    painter.setPen(palette().color(QPalette::Text));
    const double strongest = std::min(double(motion->strongest()), top());
    if (std::abs(yOf(strongest) - yOf(threshold)) > height)
        write(strongest);
}

void MotionStripWidget::paintAxis(QPainter& painter) const {
    const double height = textHeight;
    const double y = viewport()->height() - height;
    painter.setPen(palette().color(QPalette::Text));
    double free = 0.0; // from here on there is room for a label
    for (const TimeMark& mark : timeMarks(window.begin(), window.end(), startTime)) {
        const double x = xOf(mark.seconds);
        const double width = fontMetrics().horizontalAdvance(mark.label);
        const double left = std::min(x - width / 2, viewport()->width() - width);
        painter.drawLine(QPointF(x, graph().bottom()), QPointF(x, graph().bottom() + margin));
        if (left < free)
            continue;
        painter.drawText(QRectF(left, y, width + 1, height), Qt::AlignCenter, mark.label);
        free = left + width + 4 * margin;
    }
}
