// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optiontable.h"
#include "suggestion.h"

#include <QtTest>

class TestSuggestion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void words_data();
    void words();
    void options_data();
    void options();
    void sentence();
};

void TestSuggestion::words_data() {
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("meant");
    QTest::newRow("one letter short") << "json"
                                      << "jsonl";
    QTest::newRow("capitals") << "CSV"
                              << "csv";
    QTest::newRow("swapped") << "tetx"
                             << "text";
    QTest::newRow("another word") << "xml"
                                  << "edl"; // two letters of three are others
    QTest::newRow("nothing like it") << "quicktime"
                                     << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("endless") << QString(100000, 'x') << "";
}

void TestSuggestion::words() {
    QFETCH(QString, written);
    QTEST(nearestWord(written, scanOption("format").words), "meant");
}

void TestSuggestion::options_data() {
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("meant");
    QTest::newRow("a letter too many") << "threshhold-motion"
                                       << "threshold-motion";
    QTest::newRow("a letter missing") << "snapshot"
                                      << "snapshots";
    QTest::newRow("capital") << "Merge"
                             << "merge";
    QTest::newRow("nothing like it") << "frobnicate"
                                     << "";
}

void TestSuggestion::options() {
    QFETCH(QString, written);
    QTEST(nearestWord(written, optionNames()), "meant");
}

void TestSuggestion::sentence() {
    QCOMPARE(suggestion("CSV", {"csv"}), QString(" (did you mean csv?)"));
    QCOMPARE(suggestion("rois", {"roi"}, "--"), QString(" (did you mean --roi?)"));
    QCOMPARE(suggestion("zebra", {"csv"}), QString());
}

QTEST_GUILESS_MAIN(TestSuggestion)
#include "test_suggestion.moc"
