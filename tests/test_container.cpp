// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "container.h"

#include <QtTest>

Q_DECLARE_METATYPE(Container)

class TestContainer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyContainerHasItsName_data();
    void everyContainerHasItsName();
    void namesAreExact();
    void numbersOfTheStore_data();
    void numbersOfTheStore();
};

void TestContainer::everyContainerHasItsName_data() {
    QTest::addColumn<Container>("container");
    QTest::addColumn<QString>("name");
    QTest::newRow("AVI") << Container::Avi << "avi";
    QTest::newRow("MP4") << Container::Mp4 << "mp4";
    QTest::newRow("MKV") << Container::Mkv << "mkv";
}

void TestContainer::everyContainerHasItsName() {
    QFETCH(Container, container);
    QFETCH(QString, name);
    QCOMPARE(containerName(container), name);
    QVERIFY(containerNamed(name) == container);
}

void TestContainer::namesAreExact() {
    QVERIFY(!containerNamed("AVI"));
    QVERIFY(!containerNamed("mov"));
    QVERIFY(!containerNamed(""));
}

void TestContainer::numbersOfTheStore_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<Container>("container");
    QTest::newRow("AVI") << 0 << Container::Avi;
    QTest::newRow("MP4") << 1 << Container::Mp4;
    QTest::newRow("MKV") << 2 << Container::Mkv;
    QTest::newRow("unknown") << 3 << Container::Avi;
    QTest::newRow("negative") << -1 << Container::Avi;
}

void TestContainer::numbersOfTheStore() {
    QFETCH(int, number);
    QTEST(containerStoredAs(number), "container");
}

QTEST_GUILESS_MAIN(TestContainer)
#include "test_container.moc"
