// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QToolButton;

/// What a person does with an area: draw it, with a free shape, for all recordings of the camera,
/// and clear it. Says what has become of it.
class AreaBar : public QWidget {
    Q_OBJECT

public:
    explicit AreaBar(QWidget* parent = nullptr);

    void setText(const QString& text);
    void setDrawing(bool isDrawing);
    void setClearable(bool isClearable);
    bool isForAllOfCamera() const;

Q_SIGNALS:
    void drawingAsked(bool isDrawing);
    void freeShapeAsked(bool isFree);
    void allOfCameraAsked(bool isForAll);
    void clearAsked();

private:
    QToolButton* addButton(const char* name, const QString& text, bool isCheckable);

    QToolButton* draw;
    QToolButton* freeShape;
    QToolButton* clear;
    QCheckBox* allOfCamera;
    QLabel* label;
};
