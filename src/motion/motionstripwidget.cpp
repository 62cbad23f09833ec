// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionstripwidget.h"

#include "clocktext.h"
#include "stripparts.h"

#include <QKeyEvent>
#include <QLocale>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double zoomOfStep = 1.25;
constexpr double wheelStep = 120.0; ///< what the toolkit says of one notch
constexpr double scrollShare = 0.1; ///< of what is shown, for a step
constexpr double reach = 5.0;       ///< pixels around the threshold's line that hold it
constexpr double scrollUnits = 1e8; ///< of the scroll bar for a recording

} // namespace

MotionStripWidget::MotionStripWidget(QWidget* parent)
    : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    horizontalScrollBar()->setFocusPolicy(Qt::NoFocus);
    viewport()->setMouseTracking(true);
    setAccessibleName(tr("Motion over time"));
    measureTexts();
    describe();
}

void MotionStripWidget::showRecording(const QString& name, const QDateTime& start) {
    recording = name;
    startTime = start;
    motion.reset();
    listed.clear();
    wouldBe.clear();
    window = StripWindow();
    drag = Drag::None;
    windowChanged();
}

void MotionStripWidget::setMotion(std::shared_ptr<const MotionPyramid> newMotion,
                                  const QString& newUnit) {
    motion = std::move(newMotion);
    unit = newUnit;
    grow();
}

void MotionStripWidget::setListed(const QVector<ListedSpan>& clips) {
    listed = clips;
    describe();
    viewport()->update();
}

void MotionStripWidget::setWouldBe(const QVector<TimeRange>& clips) {
    wouldBe = clips;
    viewport()->update();
}

void MotionStripWidget::setThreshold(double value, double highest, double step) {
    threshold = value;
    highestThreshold = highest;
    thresholdStep = step;
    viewport()->update();
}

void MotionStripWidget::grow() {
    window.setLength(motion ? motion->seconds() : 0.0);
    windowChanged();
}

void MotionStripWidget::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measureTexts();
}

void MotionStripWidget::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
        return chooseThreshold(threshold + thresholdStep);
    case Qt::Key_Down:
        return chooseThreshold(threshold - thresholdStep);
    case Qt::Key_Left:
        window.scrollTo(window.begin() - window.seconds() * scrollShare);
        return windowChanged();
    case Qt::Key_Right:
        window.scrollTo(window.begin() + window.seconds() * scrollShare);
        return windowChanged();
    case Qt::Key_Home:
        window.scrollTo(0.0);
        return windowChanged();
    case Qt::Key_End:
        window.scrollTo(window.recordingSeconds());
        return windowChanged();
    case Qt::Key_Plus:
        return zoom(1.0 / zoomOfStep, graph().center().x());
    case Qt::Key_Minus:
        return zoom(zoomOfStep, graph().center().x());
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void MotionStripWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && motion && !isAtThreshold(event->pos()))
        Q_EMIT timeChosen(std::clamp(secondsAt(event->pos().x()), 0.0, motion->seconds()));
}

void MotionStripWidget::mouseMoveEvent(QMouseEvent* event) {
    if (drag == Drag::Threshold)
        return chooseThreshold(motionAt(event->pos().y()));
    if (drag == Drag::Time) {
        window.scrollTo(window.begin() + dragged - secondsAt(event->pos().x()));
        return windowChanged();
    }
    viewport()->setCursor(isAtThreshold(event->pos()) ? Qt::SplitVCursor : Qt::ArrowCursor);
}

void MotionStripWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    drag = isAtThreshold(event->pos()) ? Drag::Threshold : Drag::Time;
    dragged = secondsAt(event->pos().x());
}

void MotionStripWidget::mouseReleaseEvent(QMouseEvent*) {
    drag = Drag::None;
}

void MotionStripWidget::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    windowChanged();
}

void MotionStripWidget::scrollContentsBy(int, int) {
    const double unitSeconds = window.recordingSeconds() / scrollUnits;
    window.scrollTo(horizontalScrollBar()->value() * unitSeconds);
    viewport()->update();
}

void MotionStripWidget::wheelEvent(QWheelEvent* event) {
    // With some keys held down the toolkit takes the wheel for one that turns sideways.
    const QPoint turned = event->angleDelta();
    const double steps = (turned.y() != 0 ? turned.y() : turned.x()) / wheelStep;
    const bool isSideways = turned.y() == 0 || event->modifiers().testFlag(Qt::ShiftModifier);
    event->accept();
    if (!isSideways)
        return zoom(std::pow(zoomOfStep, -steps), event->position().x());
    window.scrollTo(window.begin() - steps * window.seconds() * scrollShare);
    windowChanged();
}

void MotionStripWidget::zoom(double factor, double x) {
    window.zoom(factor, secondsAt(x));
    windowChanged();
}

void MotionStripWidget::chooseThreshold(double value) {
    Q_EMIT thresholdChosen(std::clamp(value, 0.0, highestThreshold));
}

void MotionStripWidget::windowChanged() {
    const double units = scrollUnits / window.recordingSeconds();
    QScrollBar& bar = *horizontalScrollBar();
    const QSignalBlocker blocker(bar);
    bar.setRange(0, int((window.recordingSeconds() - window.seconds()) * units));
    bar.setPageStep(int(window.seconds() * units));
    bar.setSingleStep(int(window.seconds() * units * scrollShare));
    bar.setValue(int(window.begin() * units));
    describe();
    viewport()->update();
}

void MotionStripWidget::describe() {
    if (!motion) {
        setAccessibleDescription(tr("%1: nothing measured").arg(recording));
        return;
    }
    setAccessibleDescription(
        tr("%1: %2 long, strongest motion %3, %n clips", nullptr, listed.size())
            .arg(recording, elapsedText(motion->seconds()),
                 QLocale().toString(double(motion->strongest()), 'f', 2) + unit));
}

bool MotionStripWidget::isAtThreshold(const QPoint& place) const {
    return motion && std::abs(place.y() - yOf(threshold)) <= reach;
}

double MotionStripWidget::xOf(double seconds) const {
    return graph().left() + (seconds - window.begin()) / window.seconds() * graph().width();
}

double MotionStripWidget::secondsAt(double x) const {
    return window.begin() + (x - graph().left()) / graph().width() * window.seconds();
}

double MotionStripWidget::yOf(double value) const {
    return graph().bottom() - stripHeight(value, top()) * graph().height();
}

double MotionStripWidget::motionAt(double y) const {
    const double height = std::clamp((graph().bottom() - y) / graph().height(), 0.0, 1.0);
    return height * height * top();
}

/// Room for the strongest motion and for the line below the edge, but none for flashes of light
/// that no threshold reaches: they end at the edge.
double MotionStripWidget::top() const {
    constexpr double least = 0.01;
    const double strongest = motion ? double(motion->strongest()) : 0.0;
    return std::min(std::max({strongest, 2.0 * threshold, least}), highestThreshold);
}
