// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QWidget>

/// Shows one picture as large as it fits, or a text in its place.
class PictureWidget : public QWidget {
    Q_OBJECT

public:
    explicit PictureWidget(QWidget* parent = nullptr);

    /// What is shown while nothing is played; null: nothing.
    void setStill(const QImage& picture);

    /// What is played, once its shape is known.
    void setPlayed(const QImage& picture);

    /// Nothing is played any more.
    void endPlay();

    /// Stands in the place of the picture until it is empty again.
    void setText(const QString& text);

    /// Where the picture lies; empty where there is none.
    QRect pictureRectangle() const;

    /// Pixels of the screen that what is played fills.
    QSize playedPixels() const;

    QSize sizeHint() const override { return {480, 360}; }
    QSize minimumSizeHint() const override { return {80, 60}; }

public Q_SLOTS:
    /// In which what is played is to be seen.
    void setShape(const QSize& size);

Q_SIGNALS:
    void pictureMoved();  ///< `pictureRectangle` is another
    void pixelsChanged(); ///< `playedPixels` may be others

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QRect fitted(const QSize& shape) const;
    void place();

    QImage still;
    QImage played;
    QSize shape; ///< of what is played; empty: nothing is
    QString text;
    QRect placed;
};
