// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QPainterPath>
#include <QPoint>
#include <QRect>
#include <QTransform>
#include <QWidget>

/// Draws a region of interest on a picture: one rectangle, or any number of free-hand shapes.
///
/// The picture is fitted into the widget less a margin and centred. The mask has the picture's size
/// and QImage::Format_ARGB32; a pixel is 0xFF00FF00 where motion is to be detected, else 0. A
/// widget that hides drops the stroke that is going on: the mask stays as it was before it.
class WidgetEditor : public QWidget {
    Q_OBJECT

public:
    explicit WidgetEditor(QWidget* parent = nullptr);

    /// Shows `picture` under an empty mask of its size. The flag behind `hasRoi` and the rectangle
    /// stay as they are until something is drawn, cleared or inverted or the mode changes. A stroke
    /// that is going on is dropped.
    void setImage(const QImage& picture);

    /// True: a stroke draws the one rectangle; false: a stroke adds a free shape. Clears the mask.
    void setRectangleMode(bool isRectangle);

    void clear();

    /// Selects what was not selected. There is a region afterwards, even an empty one.
    void invert();

    /// Forgets the stroke that is going on: mask and region are as they were before it.
    void dropStroke();

    /// The mask, or null without a region. It lies in this widget: copy it before it changes.
    QImage* mask();

    /// The rectangle in the mask's coordinates, or null without a region or outside rectangle mode.
    /// It may reach beyond the mask. It lies in this widget: copy it before it changes.
    QRect* roiRect();

    /// Whether the mask holds a region. True during a stroke, whatever it will leave.
    bool hasRoi() const;

    /// The share of selected pixels, 0 to 1.
    float coverage() const;

Q_SIGNALS:
    /// A stroke has ended, or the mask was cleared or inverted.
    void roiUpdated();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void updateTransform(const QSize& widgetSize);
    void fillRectangle();
    void fillFreePath(const QPoint& position);
    void paintStroke(QPainter& painter) const;

    QImage maskImage;
    QImage frame;
    QPainterPath freePath;     ///< the shape being drawn, image coordinates
    QTransform transform;      ///< widget to image coordinates
    QPoint startPoint;         ///< widget coordinates: the press (rectangle) or the point before
    QPoint endPoint;           ///< widget coordinates: where the stroke is now
    QRect roiRectangle;        ///< image coordinates
    bool rectangleMode = true; ///< else free shapes
    bool drawing = false;      ///< a stroke is going on
    bool regionDrawn = false;  ///< the mask holds a region; shows it, too
    bool regionBefore = false; ///< `regionDrawn` as it is without the stroke that is going on
};
