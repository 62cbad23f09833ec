// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "areaoverlay.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int leastStroke = 4;   // widget pixels; less is a click
constexpr int stepsOfASide = 50; // of the arrow keys
constexpr int outlinePixels = 2; // with as much around it for contrast
const QColor outside(0, 0, 0, 120);

bool isArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

bool isClearing(int key) {
    return key == Qt::Key_Escape || key == Qt::Key_Delete || key == Qt::Key_Backspace;
}

/// What the arrow keys begin with: the middle of the picture.
Area middle(QSize pictures) {
    const QPointF quarter(pictures.width() / 4.0, pictures.height() / 4.0);
    return rectangularArea(pictures, quarter, quarter * 3.0);
}

} // namespace

AreaOverlay::AreaOverlay(QWidget& picture)
    : QWidget(&picture) {
    setObjectName(QStringLiteral("areaOverlay"));
    setAccessibleName(tr("Area of the picture"));
    setAccessibleDescription(
        tr("Arrow keys move it, with Shift they change its size, Delete clears it"));
    picture.installEventFilter(this);
    setGeometry(picture.rect());
    setDrawing(false);
}

void AreaOverlay::setPlace(const QRect& newPlace) {
    place = newPlace;
    update();
}

void AreaOverlay::setStill(const QImage& picture) {
    still = picture;
    stroke.clear();
    update();
}

void AreaOverlay::setArea(const Area& area) {
    drawn = area;
    update();
}

bool AreaOverlay::isDrawing() const {
    return !testAttribute(Qt::WA_TransparentForMouseEvents);
}

void AreaOverlay::setDrawing(bool isDrawing) {
    setAttribute(Qt::WA_TransparentForMouseEvents, !isDrawing);
    setFocusPolicy(isDrawing ? Qt::StrongFocus : Qt::NoFocus);
    setCursor(isDrawing ? Qt::CrossCursor : Qt::ArrowCursor);
    stroke.clear();
    if (isDrawing) {
        raise();
        setFocus();
    } else {
        clearFocus(); // the keys are the window's again
    }
    update();
}

/// The window has actions of its own for some of these keys.
bool AreaOverlay::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (isArrow(key) || isClearing(key)) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

bool AreaOverlay::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

void AreaOverlay::keyPressEvent(QKeyEvent* event) {
    if (isClearing(event->key())) {
        stroke.clear();
        change({}); // also where there is none: a person has done with it
    } else if (isArrow(event->key()) && !still.isNull()) {
        step(event->key(), event->modifiers().testFlag(Qt::ShiftModifier));
    } else {
        QWidget::keyPressEvent(event);
    }
}

void AreaOverlay::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !shownPlace().isEmpty())
        stroke = QPolygonF({toWidget().inverted().map(event->localPos())});
}

void AreaOverlay::mouseMoveEvent(QMouseEvent* event) {
    if (stroke.isEmpty())
        return;
    const QPointF at = toWidget().inverted().map(event->localPos());
    if (isFreeShape || stroke.size() == 1)
        stroke.append(at);
    else
        stroke.last() = at;
    update();
}

void AreaOverlay::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || stroke.isEmpty())
        return;
    mouseMoveEvent(event);
    const Area area = strokeArea();
    stroke.clear();
    const QRectF seen = toWidget().mapRect(QRectF(area.rectangle));
    if (!area.isEmpty() && std::max(seen.width(), seen.height()) >= leastStroke)
        change(area);
    update();
}

/// The release of the button need not arrive here any more.
void AreaOverlay::hideEvent(QHideEvent*) {
    stroke.clear();
}

void AreaOverlay::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (place.isEmpty() && !still.isNull() && (isDrawing() || !drawn.isEmpty())) {
        painter.fillRect(rect(), Qt::black);
        painter.drawImage(shownPlace(), still);
    }
    const Area area = stroke.isEmpty() ? drawn : strokeArea();
    if (!area.isEmpty() && area.pictures == still.size())
        paintArea(painter, area);
}

QRectF AreaOverlay::shownPlace() const {
    if (still.isNull() || !place.isEmpty())
        return still.isNull() ? QRectF() : QRectF(place);
    QRectF fitted({}, QSizeF(still.size()).scaled(size(), Qt::KeepAspectRatio));
    fitted.moveCenter(QRectF(rect()).center());
    return fitted;
}

/// From pixels of the recording's pictures.
QTransform AreaOverlay::toWidget() const {
    const QRectF shown = shownPlace();
    QTransform transform;
    transform.translate(shown.x(), shown.y());
    transform.scale(shown.width() / still.width(), shown.height() / still.height());
    return transform;
}

Area AreaOverlay::strokeArea() const {
    return isFreeShape ? shapedArea(still.size(), stroke)
                       : rectangularArea(still.size(), stroke.first(), stroke.last());
}

void AreaOverlay::change(const Area& area) {
    setArea(area);
    Q_EMIT areaChanged();
}

void AreaOverlay::step(int key, bool isResize) {
    const int across = std::max(1, still.width() / stepsOfASide);
    const int along = std::max(1, still.height() / stepsOfASide);
    const int right = key == Qt::Key_Left ? -across : key == Qt::Key_Right ? across : 0;
    const int down = key == Qt::Key_Up ? -along : key == Qt::Key_Down ? along : 0;
    if (drawn.isEmpty() || drawn.pictures != still.size())
        change(middle(still.size()));
    else
        change(isResize ? resized(drawn, right, down) : moved(drawn, right, down));
}

/// What lies outside is darker, whatever is shown below.
void AreaOverlay::paintArea(QPainter& painter, const Area& area) const {
    const QPainterPath inside = toWidget().map(area.path());
    QPainterPath all;
    all.addRect(shownPlace());
    painter.fillPath(all.subtracted(inside), outside);
    painter.strokePath(inside, QPen(Qt::black, outlinePixels * 2));
    painter.strokePath(inside, QPen(Qt::yellow, outlinePixels));
}
