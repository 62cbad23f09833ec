// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keyboardorder.h"
#include "media.h"
#include "setupwindow.h"

#include <QLayout>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <ctime>

class TestEditMaskWindowForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void windowHasTitleIconAndSize();
    void controlsHaveTheirTexts_data();
    void controlsHaveTheirTexts();
    void controlsHaveTheirTips_data();
    void controlsHaveTheirTips();
    void spinBoxesHaveTheirRanges();
    void labelsOfTheMarginsAlign();
    void startTimeHasItsBounds_data();
    void startTimeHasItsBounds();
    void firstRunShowsTheDefaults();
    void showsWhatIsStored();
    void storedMarginsAreClamped();
    void slotsAreConnectedByName();
    void everyControlIsReachedByKeyboard();
    void everythingFitsAtTheMinimumSize();
    void editorGetsAllFurtherRoom();
    void pathIsShownAsItIs();
};

void TestEditMaskWindowForm::init() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QSettings().clear();
}

void TestEditMaskWindowForm::windowHasTitleIconAndSize() {
    const SetupWindow window;
    QCOMPARE(window.windowTitle(), QString("Add file(s)"));
    QCOMPARE(window.size(), QSize(1000, 800));
    QCOMPARE(window.minimumSize(), QSize(1000, 800));
    QVERIFY(!window.windowIcon().isNull());
    QVERIFY(window.isWindow());
    QCOMPARE(window.windowModality(), Qt::NonModal);
    QCOMPARE(window.layout()->spacing(), 2);
}

void TestEditMaskWindowForm::controlsHaveTheirTexts_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("labelInfo") << QString("File info:");
    QTest::newRow("pushButtonClear") << QString("Clear");
    QTest::newRow("pushButtonInvert") << QString("Invert");
    QTest::newRow("label_2") << QString("Skip frames:");
    QTest::newRow("pushButtonAdd") << QString("Add");
    QTest::newRow("pushButtonAddAll") << QString("Add ALL");
    QTest::newRow("pushButtonCancel") << QString("Cancel");
    QTest::newRow("pushButtonCancelAll") << QString("Cancel ALL");
    QTest::newRow("checkBoxExportTimestamp") << QString("Export with timestamps");
    QTest::newRow("labelExportTimestamps") << QString("Video file start time");
    QTest::newRow("checkBoxExport") << QString("Export all automatically");
    QTest::newRow("label_3") << QString("Export dir:");
    QTest::newRow("pushButtonDir") << QString("...");
    QTest::newRow("label_4") << QString("Prerecord:");
    QTest::newRow("label_5") << QString("Postrecord:");
    QTest::newRow("label_6") << QString("Minimum length:");
}

void TestEditMaskWindowForm::controlsHaveTheirTexts() {
    QFETCH(QString, text);
    const SetupWindow window;
    QCOMPARE(window.get<QWidget>(QTest::currentDataTag()).property("text").toString(), text);
}

void TestEditMaskWindowForm::controlsHaveTheirTips_data() {
    QTest::addColumn<QString>("tip");
    const auto row = [](const char* name, const char* tip) { QTest::newRow(name) << QString(tip); };
    row("comboBoxSelectionMode",
        "Specify region of interest (ROI).\n"
        "If none selected the whole image will be used.\n"
        "Rectangle ROI will speed up detection but only one rectangle is allowed.\n"
        "Free ROI can slow down detection.");
    row("pushButtonClear", "Clear mask\nWhole region will be used for motion detection.");
    row("pushButtonInvert", "Invert masked and exposed regions");
    row("spinBoxSkip", "Specify how much skip frames for motion detection.\n"
                       "If set to 0 every frames would be detected for motion, \n"
                       "if set to 1 only even frames would be detected etc.\n"
                       "High values can affect motion detection quality");
    row("pushButtonAdd", "Add single video file with current mask");
    row("pushButtonAddAll", "Add all queued video files with current mask");
    row("pushButtonCancel", "Discard current video file");
    row("pushButtonCancelAll", "Discard all queued video files");
    row("checkBoxExportTimestamp", "This also will force transcoding");
    row("checkBoxExport", "If checked detected clips will exported to Export dir");
    row("lineEditDir", "Video files with detected motion will create corresponding folder in "
                       "Export dir. Existing clips would be silently rewritten");
    row("doubleSpinBoxPrerecord",
        "Specify video duration in seconds to write directly before detected motion");
    row("doubleSpinBoxPostrecord",
        "Specify video duration in seconds to write directly after detected motion");
    row("doubleSpinBoxMinimum",
        "Clips with motion duration in seconds less then Minimum length would not be written. "
        "All overlapping clips would be concatenated");
}

void TestEditMaskWindowForm::controlsHaveTheirTips() {
    QFETCH(QString, tip);
    const SetupWindow window;
    QCOMPARE(window.get<QWidget>(QTest::currentDataTag()).toolTip(), tip);
}

void TestEditMaskWindowForm::spinBoxesHaveTheirRanges() {
    const SetupWindow window;
    const auto& skip = window.get<QSpinBox>("spinBoxSkip");
    QCOMPARE(skip.minimum(), 0);
    QCOMPARE(skip.maximum(), 100);
    QCOMPARE(skip.singleStep(), 1);
    QCOMPARE(skip.minimumSize(), QSize(60, 0));
    for (const char* name :
         {"doubleSpinBoxPrerecord", "doubleSpinBoxPostrecord", "doubleSpinBoxMinimum"}) {
        const auto& box = window.get<QDoubleSpinBox>(name);
        QCOMPARE(box.minimum(), 1.0);
        QCOMPARE(box.maximum(), 3600.0);
        QCOMPARE(box.singleStep(), 1.0);
        QCOMPARE(box.decimals(), 2);
    }
    const auto& mode = window.get<QComboBox>("comboBoxSelectionMode");
    QCOMPARE(mode.count(), 2);
    QCOMPARE(mode.itemText(0), QString("Rectangle ROI"));
    QCOMPARE(mode.itemText(1), QString("Free ROI"));
    QCOMPARE(mode.currentIndex(), 0);
    QCOMPARE(mode.minimumWidth(), 150);
    QVERIFY(window.get<QPushButton>("pushButtonAdd").isDefault());
}

void TestEditMaskWindowForm::labelsOfTheMarginsAlign() {
    const SetupWindow window;
    for (const char* name : {"label_3", "label_4", "label_5", "label_6"}) {
        const auto& label = window.get<QLabel>(name);
        QVERIFY(label.alignment().testFlag(Qt::AlignRight));
        QVERIFY(label.alignment().testFlag(Qt::AlignVCenter));
        if (qstrcmp(name, "label_3") == 0)
            continue;
        QCOMPARE(label.minimumWidth(), 150);
        QCOMPARE(label.maximumWidth(), 150);
    }
}

void TestEditMaskWindowForm::startTimeHasItsBounds_data() {
    QTest::addColumn<QByteArray>("zone");
    for (const char* zone : {"UTC", "MSK-3", "PST8"})
        QTest::newRow(zone) << QByteArray(zone);
}

void TestEditMaskWindowForm::startTimeHasItsBounds() {
    QFETCH(QByteArray, zone);
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", zone);
    tzset();
    const QDate today = QDate::currentDate();
    const SetupWindow window;
    const QDate todayStill = QDate::currentDate();
    const auto& edit = window.get<QDateTimeEdit>("dateTimeEdit");
    QCOMPARE(edit.timeSpec(), Qt::UTC);
    QCOMPARE(edit.displayFormat(), QString("M/d/yyyy h:mm:ss AP"));
    QVERIFY(edit.calendarPopup());
    QCOMPARE(edit.minimumDateTime(), QDateTime({1899, 12, 31}, {0, 0, 0}, Qt::UTC));
    QCOMPARE(edit.maximumDateTime(), QDateTime({2100, 12, 31}, {20, 59, 59}, Qt::UTC));
    QCOMPARE(edit.minimumTime(), QTime(0, 0, 0));
    QCOMPARE(edit.maximumTime(), QTime(20, 59, 59));
    QVERIFY(edit.date() == today || edit.date() == todayStill);
    QCOMPARE(edit.dateTime().time(), QTime(0, 0, 0));
    QCOMPARE(edit.dateTime().timeSpec(), Qt::UTC);
    if (before.isNull())
        qunsetenv("TZ");
    else
        qputenv("TZ", before);
    tzset();
}

void TestEditMaskWindowForm::firstRunShowsTheDefaults() {
    const SetupWindow window;
    QCOMPARE(window.get<QLineEdit>("lineEditDir").text(), QString());
    QCOMPARE(window.get<QSpinBox>("spinBoxSkip").value(), 0);
    QCOMPARE(window.get<QDoubleSpinBox>("doubleSpinBoxPrerecord").value(), 1.0);
    QCOMPARE(window.get<QDoubleSpinBox>("doubleSpinBoxPostrecord").value(), 1.0);
    QCOMPARE(window.get<QDoubleSpinBox>("doubleSpinBoxMinimum").value(), 5.0);
    QVERIFY(!window.get<QCheckBox>("checkBoxExport").isChecked());
    QVERIFY(!window.get<QCheckBox>("checkBoxExportTimestamp").isChecked());
    for (const char* name :
         {"pushButtonClear", "pushButtonInvert", "dateTimeEdit", "labelExportTimestamps"})
        QVERIFY(!window.isEnabled(name));
    QVERIFY(QSettings().allKeys().isEmpty());
}

void TestEditMaskWindowForm::showsWhatIsStored() {
    QSettings settings;
    settings.setValue("export_dir", "/some/where");
    settings.setValue("skip", 7);
    settings.setValue("export_prerecord", 2.25);
    settings.setValue("export_postrecord", 3.5);
    settings.setValue("export_minimum", 1.75);
    settings.setValue("do_export", true);
    settings.setValue("export_timestamps", true);
    const SetupWindow window;
    QCOMPARE(window.get<QLineEdit>("lineEditDir").text(), QString("/some/where"));
    QCOMPARE(window.get<QSpinBox>("spinBoxSkip").value(), 7);
    QCOMPARE(window.get<QDoubleSpinBox>("doubleSpinBoxPrerecord").value(), 2.25);
    QCOMPARE(window.get<QDoubleSpinBox>("doubleSpinBoxPostrecord").value(), 3.5);
    QCOMPARE(window.get<QDoubleSpinBox>("doubleSpinBoxMinimum").value(), 1.75);
    QVERIFY(window.get<QCheckBox>("checkBoxExport").isChecked());
    QVERIFY(window.get<QCheckBox>("checkBoxExportTimestamp").isChecked());
    QVERIFY(window.isEnabled("dateTimeEdit"));
    QVERIFY(window.isEnabled("labelExportTimestamps"));
}

void TestEditMaskWindowForm::storedMarginsAreClamped() {
    QSettings().setValue("export_prerecord", 0.2);
    QSettings().setValue("export_postrecord", 4000.0);
    QSettings().setValue("skip", 101);
    const SetupWindow window;
    QCOMPARE(window.get<QDoubleSpinBox>("doubleSpinBoxPrerecord").value(), 1.0);
    QCOMPARE(window.get<QDoubleSpinBox>("doubleSpinBoxPostrecord").value(), 3600.0);
    QCOMPARE(window.get<QSpinBox>("spinBoxSkip").value(), 100);
}

void TestEditMaskWindowForm::slotsAreConnectedByName() {
    const QMetaObject& meta = EditMaskWindow::staticMetaObject;
    QList<QByteArray> names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names.append(meta.method(i).methodSignature());
    const QList<QByteArray> expected = {"newVideo()",
                                        "on_pushButtonAdd_clicked()",
                                        "on_pushButtonAddAll_clicked()",
                                        "on_pushButtonCancel_clicked()",
                                        "on_pushButtonCancelAll_clicked()",
                                        "on_pushButtonClear_clicked()",
                                        "on_pushButtonInvert_clicked()",
                                        "on_pushButtonDir_clicked()",
                                        "on_comboBoxSelectionMode_currentIndexChanged(int)",
                                        "on_checkBoxExportTimestamp_clicked()",
                                        "roiUpdated()"};
    QCOMPARE(names, expected);
}

void TestEditMaskWindowForm::everyControlIsReachedByKeyboard() {
    SetupWindow window;
    const QStringList order = {"comboBoxSelectionMode",
                               "pushButtonClear",
                               "pushButtonInvert",
                               "spinBoxSkip",
                               "lineEditDir",
                               "pushButtonDir",
                               "checkBoxExport",
                               "doubleSpinBoxPrerecord",
                               "doubleSpinBoxPostrecord",
                               "doubleSpinBoxMinimum",
                               "checkBoxExportTimestamp",
                               "toolButtonFoundStart",
                               "dateTimeEdit",
                               "pushButtonAdd",
                               "pushButtonAddAll",
                               "pushButtonCancel",
                               "pushButtonCancelAll"};
    QCOMPARE(tabOrder(window, window.get<QWidget>("comboBoxSelectionMode")), order);
    const QMap<QString, QString> buddies = {{"label_2", "spinBoxSkip"},
                                            {"label_3", "lineEditDir"},
                                            {"label_4", "doubleSpinBoxPrerecord"},
                                            {"label_5", "doubleSpinBoxPostrecord"},
                                            {"label_6", "doubleSpinBoxMinimum"},
                                            {"labelExportTimestamps", "dateTimeEdit"}};
    for (const QString& label : buddies.keys())
        QCOMPARE(buddyOf(window, label), buddies[label]);
}

void TestEditMaskWindowForm::everythingFitsAtTheMinimumSize() {
    SetupWindow window;
    window.resize(window.minimumSize());
    window.show();
    const QSize needed = window.layout()->totalMinimumSize();
    QVERIFY2(needed.width() <= 1000, qPrintable(QString::number(needed.width())));
    for (const char* name :
         {"checkBoxExport", "checkBoxExportTimestamp", "labelExportTimestamps", "dateTimeEdit",
          "label_4", "label_5", "label_6", "pushButtonCancelAll"}) {
        const auto& control = window.get<QWidget>(name);
        QVERIFY2(control.width() >= control.sizeHint().width(), name);
    }
}

void TestEditMaskWindowForm::editorGetsAllFurtherRoom() {
    SetupWindow window;
    window.show();
    const QSize before = window.editor().size();
    window.resize(1300, 1000);
    QCoreApplication::processEvents();
    QCOMPARE(window.editor().size() - before, QSize(300, 200));
}

void TestEditMaskWindowForm::pathIsShownAsItIs() {
    // Neither markup nor mnemonics are read into it, and its length does not widen the window.
    const QTemporaryDir folder;
    const QString directory = folder.filePath("<b>a & b/" + QString(200, 'x'));
    QVERIFY(QDir().mkpath(directory));
    const QString path = directory + "/garden.avi";
    const QImage picture = media::grey(320, 240, 90);
    QVERIFY(media::encodeGrey(path, {picture, picture}, 5, {"-c:v", "mjpeg"}));
    SetupWindow window;
    window.addFile(path);
    QCoreApplication::processEvents();
    const auto& label = window.get<QLabel>("labelInfo");
    QCOMPARE(label.text(), path);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QCOMPARE(window.size(), QSize(1000, 800));
    QVERIFY(window.layout()->totalMinimumSize().width() <= 1000);
    // It wraps, and all of it is seen.
    QVERIFY(label.height() >= label.heightForWidth(label.width()));
}

QTEST_MAIN(TestEditMaskWindowForm)
#include "test_editmaskwindowform.moc"
