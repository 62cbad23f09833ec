// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Renders the pictures of docs/images from the real windows, set up as a person would: with the
// mouse, on a recording made on the spot. Usage: kestrova_screenshots FOLDER

#include "demoscene.h"
#include "editmaskwindow.h"
#include "media.h"
#include "mouse.h"
#include "settingsdialog.h"
#include "tour.h"
#include "widgeteditor.h"

#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDir>
#include <QPushButton>
#include <QSettings>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

const char recording[] = "yard.mp4";

QPalette darkPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(42, 44, 48));
    palette.setColor(QPalette::Base, QColor(30, 31, 34));
    palette.setColor(QPalette::Button, QColor(56, 58, 63));
    palette.setColor(QPalette::Highlight, QColor(58, 124, 165));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, QColor(225, 226, 228));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(120, 122, 126));
    return palette;
}

bool makeRecording() {
    return demoScene().save("scene.png") &&
           media::encode({"-loop", "1", "-i", "scene.png", "-t", "1", "-r", "5", "-pix_fmt",
                          "yuv420p", "-c:v", "mpeg4", "-q:v", "1", recording});
}

/// Draws with the left button along the points, given in the recording's pixels.
void draw(WidgetEditor& editor, const QVector<QPoint>& points) {
    const QSize scene = demoScene().size();
    const double scale = std::max(double(scene.width()) / (editor.width() - 100),
                                  double(scene.height()) / (editor.height() - 100));
    const auto place = [&](const QPoint& point) {
        const QPointF offset = QPointF(point) - QRectF(QPointF(), scene).center();
        return (offset / scale + QRectF(editor.rect()).center()).toPoint();
    };
    QVector<QPoint> places;
    std::transform(points.begin(), points.end(), std::back_inserter(places), place);
    mouse::stroke(editor, places);
}

void drawRectangle(EditMaskWindow& window) {
    draw(*window.findChild<WidgetEditor*>("maskEditor"), {{330, 300}, {860, 690}});
}

/// A round shape, as a hand would draw it.
QVector<QPoint> round(const QPoint& centre, int halfWidth, int halfHeight) {
    QVector<QPoint> points;
    for (int degrees = 0; degrees < 360; degrees += 6) {
        const double angle = qDegreesToRadians(double(degrees));
        points.append(centre +
                      QPointF(halfWidth * std::cos(angle), halfHeight * std::sin(angle)).toPoint());
    }
    return points;
}

void drawShapes(EditMaskWindow& window) {
    window.findChild<QComboBox*>("comboBoxSelectionMode")->setCurrentIndex(1);
    auto& editor = *window.findChild<WidgetEditor*>("maskEditor");
    draw(editor,
         {{605, 190}, {705, 190}, {715, 400}, {725, 710}, {280, 710}, {470, 530}, {570, 400}});
    draw(editor, round({1030, 150}, 185, 142));
}

void drawShapesInverted(EditMaskWindow& window) {
    drawShapes(window);
    window.findChild<QPushButton*>("pushButtonInvert")->click();
}

bool take(QWidget& window, const QString& fileName) {
    QCoreApplication::processEvents();
    return window.grab().save(fileName);
}

bool takeSetup(const QString& fileName, const QSize& size, void (*prepare)(EditMaskWindow&)) {
    EditMaskWindow window;
    window.resize(size);
    window.addFile(recording);
    window.findChild<QDateTimeEdit*>()->setDateTime({{2026, 6, 14}, {8, 30}, Qt::UTC});
    QCoreApplication::processEvents();
    prepare(window);
    return take(window, fileName);
}

bool takeSettings(const QString& fileName) {
    SettingsDialog dialog;
    dialog.show();
    return take(dialog, fileName);
}

bool takeAll(const QDir& images) {
    const QSize smallest(1000, 800);
    const QSize larger(1280, 960);
    QSettings().setValue("export_dir", "/home/anna/clips");
    bool isGood = takeSetup(images.filePath("setup-rectangle.png"), larger, drawRectangle) &&
                  takeSetup(images.filePath("setup-free.png"), smallest, drawShapes) &&
                  takeSetup(images.filePath("setup-inverted.png"), smallest, drawShapesInverted) &&
                  takeSettings(images.filePath("settings.png")) && takeTour(images);
    QSettings().setValue("export_timestamps", true);
    QApplication::setPalette(darkPalette());
    return isGood && takeSetup(images.filePath("setup-dark.png"), smallest, drawRectangle) &&
           takeSettings(images.filePath("settings-dark.png"));
}

} // namespace

int main(int argc, char* argv[]) {
    const QTemporaryDir home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char* folder : {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(folder, QFile::encodeName(home.path()));
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    int shown = 1; // the windows would take the folder for a recording
    const QApplication application(shown, argv);
    if (argc != 2)
        qFatal("Usage: kestrova_screenshots FOLDER");
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setFont(QFont("DejaVu Sans", 10));
    const QDir images(QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
    return QDir::setCurrent(home.path()) && makeRecording() && takeAll(images) ? 0 : 1;
}
