// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "detection.h"
#include "editmaskwindow.h"
#include "encodingsettings.h"
#include "settingsdialog.h"
#include "settingstable.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSpinBox>
#include <QtTest>

namespace {

template<class Control, class Value>
void compareRange(const QWidget& window, const char* name, const Setting<Value>& setting) {
    const auto* control = window.findChild<Control*>(name);
    QVERIFY(control);
    QCOMPARE(control->minimum(), setting.lowest);
    QCOMPARE(control->maximum(), setting.highest);
}

} // namespace

class TestSettingsTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void dialogOffersTheRanges();
    void jobSetupOffersTheRanges();
    void engineHasTheSameDefaults();
    void encodingHasTheSameDefaults();
};

void TestSettingsTable::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QSettings().clear();
}

void TestSettingsTable::dialogOffersTheRanges() {
    const SettingsDialog dialog;
    compareRange<QSpinBox>(dialog, "spinBoxThreshold", settings::pixelThreshold);
    compareRange<QDoubleSpinBox>(dialog, "doubleSpinBoxMotion", settings::motionThreshold);
    compareRange<QDoubleSpinBox>(dialog, "doubleSpinBoxBitrate", settings::bitrate);
    QCOMPARE(dialog.findChild<QComboBox*>("comboBoxFormat")->count(),
             settings::container.highest + 1);
}

void TestSettingsTable::jobSetupOffersTheRanges() {
    const EditMaskWindow window;
    compareRange<QSpinBox>(window, "spinBoxSkip", settings::skip);
    compareRange<QDoubleSpinBox>(window, "doubleSpinBoxPrerecord", settings::prerecord);
    compareRange<QDoubleSpinBox>(window, "doubleSpinBoxPostrecord", settings::postrecord);
    compareRange<QDoubleSpinBox>(window, "doubleSpinBoxMinimum", settings::minimum);
}

// The engine knows no settings, but who leaves an option alone means the same in both programs.
void TestSettingsTable::engineHasTheSameDefaults() {
    const DetectionOptions engine;
    QCOMPARE(engine.measure.pixelThreshold, settings::pixelThreshold.fallback);
    QCOMPARE(engine.measure.skip, settings::skip.fallback);
    QCOMPARE(double(engine.segmentation.motionThreshold.value), settings::motionThreshold.fallback);
    QCOMPARE(engine.segmentation.prerecord, settings::prerecord.fallback);
    QCOMPARE(engine.segmentation.postrecord, settings::postrecord.fallback);
    QCOMPARE(engine.segmentation.minimum, settings::minimum.fallback);
}

void TestSettingsTable::encodingHasTheSameDefaults() {
    const EncodingSettings fromEmptyStore = readEncodingSettings();
    const EncodingSettings encoding;
    QCOMPARE(fromEmptyStore.container, encoding.container);
    QCOMPARE(fromEmptyStore.doTranscoding, encoding.doTranscoding);
    QCOMPARE(fromEmptyStore.disableAudio, encoding.disableAudio);
    QCOMPARE(fromEmptyStore.bitrateOutput, encoding.bitrateOutput);
}

QTEST_MAIN(TestSettingsTable)
#include "test_settingstable.moc"
