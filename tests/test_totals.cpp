// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "totals.h"

#include <QTemporaryDir>
#include <QtTest>

class TestTotals : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void shareIsOfAllBytes();
    void positionsMayBeUnknownOrGoBack();
    void finishedRecordingsCountWhole();
    void nothingToReadIsUnknown();
    void sumsUp();

private:
    QTemporaryDir folder;
    QStringList videos;                ///< of 100 and 300 bytes
    std::vector<Recording> recordings; ///< the same
};

void TestTotals::initTestCase() {
    for (const int size : {100, 300}) {
        QFile file(folder.filePath(QString::number(size)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(size));
        videos.append(file.fileName());
    }
}

void TestTotals::init() {
    recordings = recordingsOf(videos);
}

void TestTotals::shareIsOfAllBytes() {
    Totals totals(recordings);
    QCOMPARE(totals.progress().share, 0.0);
    totals.setPosition(recordings[0], 50);
    totals.setPosition(recordings[1], 150);
    QCOMPARE(totals.progress().share, 0.5);
}

void TestTotals::positionsMayBeUnknownOrGoBack() {
    Totals totals(recordings);
    totals.setPosition(recordings[1], 100);
    totals.setPosition(recordings[1], -1);
    totals.setPosition(recordings[1], 40);
    QCOMPARE(totals.progress().share, 0.25);
}

void TestTotals::finishedRecordingsCountWhole() {
    Totals totals(recordings);
    totals.setPosition(recordings[1], 120);
    totals.finish(recordings[0]); // not a byte of it could be read
    QCOMPARE(totals.progress().share, 0.55);
    totals.finish(recordings[1]);
    QCOMPARE(totals.progress().share, 1.0);
}

void TestTotals::nothingToReadIsUnknown() {
    recordings = recordingsOf({folder.filePath("missing")});
    Totals totals(recordings);
    totals.finish(recordings[0]);
    QVERIFY(totals.progress().share < 0.0);
}

void TestTotals::sumsUp() {
    Totals totals(recordings);
    totals.addClip();
    totals.addClip();
    totals.addSeconds(1.5);
    totals.addSeconds(2.0);
    QCOMPARE(totals.progress().clips, 2);
    QCOMPARE(totals.progress().seconds, 3.5);
}

QTEST_GUILESS_MAIN(TestTotals)
#include "test_totals.moc"
