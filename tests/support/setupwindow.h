// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editmaskwindow.h"
#include "mouse.h"
#include "video.h"
#include "widgeteditor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include <memory>
#include <vector>

/// A job setup window as a person sees it: found by its controls' names, used by mouse.
struct SetupWindow : EditMaskWindow {
    template<class Widget>
    Widget& get(const char* name) const {
        auto* widget = findChild<Widget*>(name);
        if (!widget)
            qFatal("no widget %s", name);
        return *widget;
    }

    void click(const char* button) { QTest::mouseClick(&get<QPushButton>(button), Qt::LeftButton); }

    bool isEnabled(const char* name) const { return get<QWidget>(name).isEnabled(); }

    QString shownFile() const { return get<QLabel>("labelInfo").text(); }

    WidgetEditor& editor() const { return get<WidgetEditor>("maskEditor"); }

    void setFreeMode() { get<QComboBox>("comboBoxSelectionMode").setCurrentIndex(1); }

    void setExportDirectory(const QString& path) { get<QLineEdit>("lineEditDir").setText(path); }

    /// A stroke along points given in thousandths of the editor's width and height.
    void draw(const QVector<QPoint>& shares) {
        QVector<QPoint> points;
        for (const QPoint& share : shares) {
            points.append(
                {share.x() * editor().width() / 1000, share.y() * editor().height() / 1000});
        }
        mouse::stroke(editor(), points);
    }

    /// Takes the accepted jobs, as the main window does.
    std::vector<std::unique_ptr<Video>> takeJobs() {
        std::vector<std::unique_ptr<Video>> jobs(readyVideos.begin(), readyVideos.end());
        readyVideos.clear();
        return jobs;
    }
};
