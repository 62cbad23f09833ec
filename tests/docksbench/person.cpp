// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "person.h"

#include "cliplistwidget.h"
#include "cliporder.h"
#include "waits.h"

#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

namespace {

constexpr int someClips = 300; ///< all would take minutes: each picture is looked for

} // namespace

void Person::showDocks() {
    for (const char* dock : {"dockRecordings", "dockMotion", "dockPlayer"})
        driver.part<QDockWidget>(dock).show();
}

void Person::handleClips() {
    auto& list = driver.list();
    measure("a clip chosen", [&] { list.setCurrentRow(list.count() / 2); });
    measure("the last clip chosen", [&] { list.setCurrentRow(list.count() - 1); });
    measure("all clips selected", [&] { list.selectAll(); });
    measure("all clips deselected", [&] { list.clearSelection(); });
}

void Person::handleRecordings() {
    auto& table = driver.part<QTableView>("recordings");
    const QAbstractItemModel& model = *table.model();
    for (int row : {1, model.rowCount() / 2, 2})
        measure("a recording chosen", [&] { table.setCurrentIndex(model.index(row, 0)); });
    for (int column = 0; column < model.columnCount(); ++column)
        measure("the table sorted",
                [&] { QMetaObject::invokeMethod(&table, "sortNext", Q_ARG(int, column)); });
    auto& line = driver.part<QLineEdit>("lineEditFilter");
    for (const char* typed : {"c", "ca", "camera-1", ""})
        measure("the filter typed", [&] { line.setText(typed); });
    auto& shown = driver.part<QComboBox>("comboBoxShown");
    for (int choice : {1, 2, 0})
        measure("other recordings shown", [&] { shown.setCurrentIndex(choice); });
}

void Person::showOnlyOne() {
    auto& dock = driver.part<QDockWidget>("dockRecordings");
    Video* job = driver.clip(0).video;
    measure("one recording alone",
            [&] { QMetaObject::invokeMethod(&dock, "onlyThisAsked", Q_ARG(Video*, job)); });
    measure("all recordings", [&] { driver.click("pushButtonShowAll"); });
}

void Person::tune() {
    auto& threshold = driver.part<QDoubleSpinBox>("spinBoxThreshold");
    auto& use = driver.part<QPushButton>("pushButtonUse");
    const auto isDecided = [&] { return use.isEnabled(); };
    measure(
        "a kept recording chosen", [&] { driver.list().setCurrentRow(0); }, isDecided);
    measure("the threshold changed", [&] { threshold.setValue(0.3); });
    measure("cells asked", [&] { driver.part<QComboBox>("comboBoxDetector").setCurrentIndex(1); });
    measure("the mean asked",
            [&] { driver.part<QComboBox>("comboBoxDetector").setCurrentIndex(0); });
    useAndUndo("Use", use, 1);
    useAndUndo("Use for all", driver.part<QPushButton>("pushButtonUseForAll"), someClips);
}

void Person::drawArea() {
    auto& overlay = driver.part<QWidget>("areaOverlay");
    auto& button = driver.part<QToolButton>("buttonArea");
    measure("an area begun", [&] { button.click(); });
    measure("an area drawn", [&] {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
        QCoreApplication::sendEvent(&overlay, &key);
    });
    if (driver.part<QWidget>("barShown").isVisible())
        measure("the area cleared", [&] { driver.click("pushButtonShowAll"); });
}

void Person::loseRecordings(const QString& folder) {
    auto& dock = driver.part<QDockWidget>("dockRecordings");
    const QAbstractItemModel& model = *driver.part<QTableView>("recordings").model();
    const auto lastState = [&] { return model.index(model.rowCount() - 1, 1).data().toString(); };
    const QString before = lastState();
    dock.hide();
    QDir().rename(folder, folder + "-lost");
    measure(
        "recordings lost", [&] { dock.show(); }, [&] { return lastState() != before; });
}

void Person::sortClips() {
    auto& list = static_cast<ClipListWidget&>(driver.list());
    for (ClipOrder order : {ClipOrder::Length, ClipOrder::Found})
        measure("clips sorted", [&] { reorder(list, ordered(list.clips(), order, {})); });
}

void Person::removeAll() {
    measure("all clips removed", [&] { driver.trigger("actionRemoveAll"); });
}

void Person::useAndUndo(const char* what, QPushButton& use, int fewestExchanged) {
    const QList<Clip*> listed = clips();
    const QSet<Clip*> before(listed.cbegin(), listed.cend());
    measure(
        what, [&] { use.click(); }, [&] { return newBeside(before) >= fewestExchanged; });
    measure(
        "Undo", [&] { driver.click("pushButtonUndo"); },
        [&] { return driver.list().count() == before.size() && newBeside(before) == 0; });
}

QList<Clip*> Person::clips() {
    return static_cast<ClipListWidget&>(driver.list()).clips();
}

int Person::newBeside(const QSet<Clip*>& before) {
    const QList<Clip*> listed = clips();
    return int(std::count_if(listed.cbegin(), listed.cend(),
                             [&before](Clip* clip) { return !before.contains(clip); }));
}
