// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settingsdialog.h"

#include "dialogs.h"
#include "keyboardorder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QtTest>

namespace {

const QStringList keys = {"bitrate_output", "disable_audio",    "do_transcoding",
                          "output_format",  "threshold_motion", "threshold_value"};

/// The dialog's controls by what they set.
struct Controls {
    explicit Controls(const QWidget& dialog)
        : threshold(dialog.findChild<QSpinBox*>("spinBoxThreshold"))
        , motion(dialog.findChild<QDoubleSpinBox*>("doubleSpinBoxMotion"))
        , bitrate(dialog.findChild<QDoubleSpinBox*>("doubleSpinBoxBitrate"))
        , format(dialog.findChild<QComboBox*>("comboBoxFormat"))
        , transcoding(dialog.findChild<QCheckBox*>("checkBoxTranscoding"))
        , disableAudio(dialog.findChild<QCheckBox*>("checkBoxDisableAudio")) {}

    QSpinBox* threshold;
    QDoubleSpinBox* motion;
    QDoubleSpinBox* bitrate;
    QComboBox* format;
    QCheckBox* transcoding;
    QCheckBox* disableAudio;
};

void press(const QWidget& dialog, QDialogButtonBox::StandardButton button) {
    auto* box = dialog.findChild<QDialogButtonBox*>("buttonBox");
    QTest::mouseClick(box->button(button), Qt::LeftButton);
}

void storeUnusualValues() {
    QSettings settings;
    settings.setValue("threshold_value", 12);
    settings.setValue("threshold_motion", 1.25);
    settings.setValue("bitrate_output", 7.5);
    settings.setValue("output_format", 2);
    settings.setValue("do_transcoding", true);
    settings.setValue("disable_audio", true);
}

QVariantMap storedValues() {
    const QSettings settings;
    QVariantMap values;
    for (const QString& key : settings.allKeys())
        values[key] = settings.value(key);
    return values;
}

} // namespace

class TestSettingsDialog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void firstRunShowsTheDefaults();
    void firstOkStoresEverythingAndDropsTheAudio();
    void showsWhatIsStored();
    void storesWhatIsSetBeforeExecReturns();
    void restoreDefaultsChangesOnlyTheControls();
    void restoreDefaultsThenOkStoresThem();
    void cancelLeavesTheStore_data();
    void cancelLeavesTheStore();
    void storedThresholdBeyondTheRangeIsClamped();
    void smallBitrateIsKept();
    void looksAsDesigned();
    void controlsHaveTheirRanges();
    void controlsHaveTheirTips_data();
    void controlsHaveTheirTips();
    void everyControlIsReachedByKeyboard();
    void slotsAreConnectedByName();
};

void TestSettingsDialog::init() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QSettings().clear();
}

void TestSettingsDialog::firstRunShowsTheDefaults() {
    const SettingsDialog dialog;
    const Controls controls(dialog);
    QCOMPARE(controls.threshold->value(), 35);
    QCOMPARE(controls.motion->text(), QLocale().toString(0.5, 'f', 2));
    QCOMPARE(controls.bitrate->text(), QLocale().toString(2.0, 'f', 2));
    QCOMPARE(controls.format->currentText(), QString("AVI"));
    QVERIFY(!controls.transcoding->isChecked());
    QVERIFY(controls.disableAudio->isChecked());
    QVERIFY(QSettings().allKeys().isEmpty());
}

void TestSettingsDialog::firstOkStoresEverythingAndDropsTheAudio() {
    SettingsDialog dialog;
    press(dialog, QDialogButtonBox::Ok);
    const QSettings settings;
    QCOMPARE(settings.allKeys(), keys);
    QCOMPARE(settings.value("threshold_value").toInt(), 35);
    QCOMPARE(settings.value("threshold_motion").toDouble(), 0.5);
    QCOMPARE(settings.value("bitrate_output").toDouble(), 2.0);
    QCOMPARE(settings.value("output_format").toInt(), 0);
    QCOMPARE(settings.value("do_transcoding").toBool(), false);
    QCOMPARE(settings.value("disable_audio").toBool(), true);
}

void TestSettingsDialog::showsWhatIsStored() {
    storeUnusualValues();
    QSettings().setValue("disable_audio", false);
    const SettingsDialog dialog;
    const Controls controls(dialog);
    QCOMPARE(controls.threshold->value(), 12);
    QCOMPARE(controls.motion->value(), 1.25);
    QCOMPARE(controls.bitrate->value(), 7.5);
    QCOMPARE(controls.format->currentText(), QString("MKV"));
    QVERIFY(controls.transcoding->isChecked());
    QVERIFY(!controls.disableAudio->isChecked());
}

void TestSettingsDialog::storesWhatIsSetBeforeExecReturns() {
    SettingsDialog dialog;
    const DialogAnswer<> answer([](QDialog& shown) {
        const Controls controls(shown);
        controls.threshold->selectAll();
        QTest::keyClicks(controls.threshold, "200");
        QTest::keyClick(controls.motion, Qt::Key_Up);
        QTest::keyClick(controls.bitrate, Qt::Key_Down);
        QTest::keyClick(controls.format, Qt::Key_Down);
        QTest::keyClick(controls.transcoding, Qt::Key_Space);
        QTest::keyClick(controls.disableAudio, Qt::Key_Space);
        press(shown, QDialogButtonBox::Ok);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(answer.wasShown());
    const QSettings settings;
    QCOMPARE(settings.value("threshold_value").toInt(), 200);
    QCOMPARE(settings.value("threshold_motion").toDouble(), 0.6);
    QCOMPARE(settings.value("bitrate_output").toDouble(), 1.9);
    QCOMPARE(settings.value("output_format").toInt(), 1);
    QCOMPARE(settings.value("do_transcoding").toBool(), true);
    QCOMPARE(settings.value("disable_audio").toBool(), false);
}

void TestSettingsDialog::restoreDefaultsChangesOnlyTheControls() {
    storeUnusualValues();
    const QVariantMap before = storedValues();
    SettingsDialog dialog;
    dialog.show();
    press(dialog, QDialogButtonBox::RestoreDefaults);
    const Controls controls(dialog);
    QCOMPARE(controls.threshold->value(), 35);
    QCOMPARE(controls.motion->value(), 0.5);
    QCOMPARE(controls.bitrate->value(), 2.0);
    QCOMPARE(controls.format->currentIndex(), 0);
    QVERIFY(!controls.transcoding->isChecked());
    QVERIFY(!controls.disableAudio->isChecked());
    QVERIFY(dialog.isVisible());
    press(dialog, QDialogButtonBox::Cancel);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(storedValues(), before);
}

void TestSettingsDialog::restoreDefaultsThenOkStoresThem() {
    storeUnusualValues();
    SettingsDialog dialog;
    press(dialog, QDialogButtonBox::RestoreDefaults);
    press(dialog, QDialogButtonBox::Ok);
    QCOMPARE(QSettings().value("threshold_value").toInt(), 35);
    QCOMPARE(QSettings().value("output_format").toInt(), 0);
    QCOMPARE(QSettings().value("disable_audio").toBool(), false);
}

void TestSettingsDialog::cancelLeavesTheStore_data() {
    QTest::addColumn<bool>("withEscape");
    QTest::addRow("button") << false;
    QTest::addRow("Escape") << true;
}

void TestSettingsDialog::cancelLeavesTheStore() {
    QFETCH(bool, withEscape);
    SettingsDialog dialog;
    const DialogAnswer<> answer([&](QDialog& shown) {
        Controls(shown).threshold->setValue(99);
        if (withEscape)
            QTest::keyClick(&shown, Qt::Key_Escape);
        else
            press(shown, QDialogButtonBox::Cancel);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(answer.wasShown());
    QVERIFY(QSettings().allKeys().isEmpty());
}

void TestSettingsDialog::storedThresholdBeyondTheRangeIsClamped() {
    QSettings().setValue("threshold_value", 300);
    SettingsDialog dialog;
    QCOMPARE(Controls(dialog).threshold->value(), 255);
    QCOMPARE(QSettings().value("threshold_value").toInt(), 300);
    press(dialog, QDialogButtonBox::Ok);
    QCOMPARE(QSettings().value("threshold_value").toInt(), 255);
}

void TestSettingsDialog::smallBitrateIsKept() {
    QSettings().setValue("bitrate_output", 0.05);
    SettingsDialog dialog;
    QCOMPARE(Controls(dialog).bitrate->text(), QLocale().toString(0.05, 'f', 2));
    press(dialog, QDialogButtonBox::Ok);
    QCOMPARE(QSettings().value("bitrate_output").toDouble(), 0.05);
}

void TestSettingsDialog::looksAsDesigned() {
    const SettingsDialog dialog;
    QCOMPARE(dialog.windowTitle(), QString("Dialog"));
    QCOMPARE(dialog.size(), QSize(693, 219));
    const QMap<QString, QString> labels = {{"label", "Pixels threshold"},
                                           {"label_2", "Motion detection threshold"},
                                           {"label_5", "Output video bitrate for 720p, Mbit/sec"},
                                           {"label_7", "Container format"}};
    for (const QString& name : labels.keys()) {
        const auto* label = dialog.findChild<QLabel*>(name);
        QCOMPARE(label->text(), labels[name]);
        QVERIFY(label->alignment().testFlag(Qt::AlignRight));
        QVERIFY(label->alignment().testFlag(Qt::AlignVCenter));
    }
    const Controls controls(dialog);
    QCOMPARE(controls.transcoding->text(), QString("Force transcoding"));
    QCOMPARE(controls.disableAudio->text(), QString("Disable audio output"));
    QCOMPARE(controls.format->count(), 3);
    QCOMPARE(controls.format->itemText(1), QString("MP4"));
}

void TestSettingsDialog::controlsHaveTheirRanges() {
    const SettingsDialog dialog;
    const Controls controls(dialog);
    QCOMPARE(controls.threshold->minimum(), 0);
    QCOMPARE(controls.threshold->maximum(), 255);
    QCOMPARE(controls.threshold->singleStep(), 1);
    QCOMPARE(controls.motion->minimum(), 0.0);
    QCOMPARE(controls.motion->maximum(), 10.0);
    QCOMPARE(controls.bitrate->minimum(), 0.0);
    QCOMPARE(controls.bitrate->maximum(), 50.0);
    for (const auto* box : {controls.motion, controls.bitrate}) {
        QCOMPARE(box->singleStep(), 0.1);
        QCOMPARE(box->decimals(), 2);
    }
}

void TestSettingsDialog::controlsHaveTheirTips_data() {
    QTest::addColumn<QString>("tip");
    QTest::newRow("spinBoxThreshold")
        << QString("Set more for noise videos, 0 - no treshold apply");
    QTest::newRow("doubleSpinBoxMotion") << QString("Set more if you want less motion to detect");
    QTest::newRow("doubleSpinBoxBitrate")
        << QString("Increase in case of low quality output.\nDecrease to use less file "
                   "space.\nApplies only with transcoding");
    QTest::newRow("checkBoxTranscoding")
        << QString("Check in case of problems with export.\nTranscoding is time consuming and may "
                   "result to quality loss.\nMJPEG is always transcoded.");
    QTest::newRow("checkBoxDisableAudio")
        << QString("Try to disable audio output in case of problems with export");
    QTest::newRow("comboBoxFormat") << QString("Select output container\n- AVI for Windows Media "
                                               "Player\n- MP4 for Mac QuickTime Player");
}

void TestSettingsDialog::controlsHaveTheirTips() {
    QFETCH(QString, tip);
    const SettingsDialog dialog;
    QCOMPARE(dialog.findChild<QWidget*>(QTest::currentDataTag())->toolTip(), tip);
}

void TestSettingsDialog::everyControlIsReachedByKeyboard() {
    SettingsDialog dialog;
    const QStringList controls = {"spinBoxThreshold",     "doubleSpinBoxMotion",
                                  "doubleSpinBoxBitrate", "checkBoxTranscoding",
                                  "checkBoxDisableAudio", "comboBoxFormat"};
    const QStringList order = tabOrder(dialog, *dialog.findChild<QWidget*>(controls.first()));
    QCOMPARE(order.mid(0, controls.size()), controls);
    QCOMPARE(order.size(), controls.size() + 3); // and the three buttons
    QCOMPARE(buddyOf(dialog, "label"), QString("spinBoxThreshold"));
    QCOMPARE(buddyOf(dialog, "label_2"), QString("doubleSpinBoxMotion"));
    QCOMPARE(buddyOf(dialog, "label_5"), QString("doubleSpinBoxBitrate"));
    QCOMPARE(buddyOf(dialog, "label_7"), QString("comboBoxFormat"));
}

void TestSettingsDialog::slotsAreConnectedByName() {
    const QMetaObject& meta = SettingsDialog::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
    const QList<QByteArray> names = {"on_buttonBox_accepted()", "on_buttonBox_rejected()",
                                     "on_buttonBox_clicked(QAbstractButton*)"};
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(meta.method(meta.methodOffset() + i).methodSignature(), names[i]);
}

QTEST_MAIN(TestSettingsDialog)
#include "test_settingsdialog.moc"
