// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "listedspan.h"
#include "motionpyramid.h"
#include "stripwindow.h"
#include "timerange.h"

#include <QAbstractScrollArea>
#include <QDateTime>
#include <QVector>

#include <memory>

/// The motion of one recording over time, with its clips and the threshold.
///
/// The wheel zooms about the pointer, and with Shift scrolls; so do the keys plus, minus, Left,
/// Right, Home and End, and dragging. The threshold is a line to be dragged, or moved with Up and
/// Down.
class MotionStripWidget : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit MotionStripWidget(QWidget* parent = nullptr);

    /// Another recording, shown whole; its name is for screen readers. With a valid `start` of its
    /// first picture the axis tells the clock.
    void showRecording(const QString& name, const QDateTime& start);

    /// What was measured of it; null: nothing. It may grow, see `grow`. `unit` goes behind the
    /// values.
    void setMotion(std::shared_ptr<const MotionPyramid> newMotion, const QString& newUnit);

    void setListed(const QVector<ListedSpan>& clips);
    void setWouldBe(const QVector<TimeRange>& clips);

    /// `highest`: of the thresholds that can be chosen.
    void setThreshold(double value, double highest, double step);

    /// To be called when the motion has grown.
    void grow();

    QSize sizeHint() const override { return {600, 140}; }
    QSize minimumSizeHint() const override { return {120, 72}; }

Q_SIGNALS:
    void thresholdChosen(double value);
    void timeChosen(double seconds); ///< from the first picture

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    enum class Drag { None, Threshold, Time };

    void zoom(double factor, double x);
    void chooseThreshold(double value);
    void windowChanged();
    void describe();
    bool isAtThreshold(const QPoint& place) const;

    void measureTexts();
    QRectF graph() const;
    double xOf(double seconds) const;
    double secondsAt(double x) const;
    double yOf(double motion) const;
    double motionAt(double y) const;
    double top() const;

    void paintWouldBe(QPainter& painter) const;
    void paintMotion(QPainter& painter) const;
    void paintListed(QPainter& painter) const;
    void paintThreshold(QPainter& painter) const;
    void paintValues(QPainter& painter) const;
    void paintAxis(QPainter& painter) const;

    QString recording;
    QDateTime startTime;
    std::shared_ptr<const MotionPyramid> motion;
    QString unit;
    QVector<ListedSpan> listed;
    QVector<TimeRange> wouldBe;
    double threshold = 0.0;
    double highestThreshold = 1.0;
    double thresholdStep = 0.1;
    StripWindow window;
    double textHeight = 0.0; ///< pixels
    double valueWidth = 0.0; ///< pixels beside the graph for what its heights mean
    Drag drag = Drag::None;
    double dragged = 0.0; ///< seconds at which the strip is held
};
