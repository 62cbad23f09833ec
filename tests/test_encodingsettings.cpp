// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encodingsettings.h"

#include <QSettings>
#include <QtTest>

#include <cmath>

class TestEncodingSettings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void emptyStore();
    void storedChoices();
    void unreadableBitrate();
};

void TestEncodingSettings::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
}

void TestEncodingSettings::init() {
    QSettings().clear();
}

void TestEncodingSettings::emptyStore() {
    const EncodingSettings settings = readEncodingSettings();
    QCOMPARE(settings.container, Container::Avi);
    QVERIFY(!settings.doTranscoding);
    QVERIFY(!settings.disableAudio);
    QCOMPARE(settings.bitrateOutput, 2.0);
}

void TestEncodingSettings::storedChoices() {
    QSettings store;
    store.setValue("output_format", 2);
    store.setValue("do_transcoding", true);
    store.setValue("disable_audio", true);
    store.setValue("bitrate_output", 0.5);
    const EncodingSettings settings = readEncodingSettings();
    QCOMPARE(settings.container, Container::Mkv);
    QVERIFY(settings.doTranscoding);
    QVERIFY(settings.disableAudio);
    QCOMPARE(settings.bitrateOutput, 0.5);
}

void TestEncodingSettings::unreadableBitrate() {
    QSettings().setValue("bitrate_output", "fast");
    QCOMPARE(readEncodingSettings().bitrateOutput, 0.0);
    QSettings().setValue("bitrate_output", "nan");
    QVERIFY(std::isnan(readEncodingSettings().bitrateOutput));
}

QTEST_GUILESS_MAIN(TestEncodingSettings)
#include "test_encodingsettings.moc"
