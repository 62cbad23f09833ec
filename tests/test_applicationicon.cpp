// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "applicationicon.h"

#include <QtTest>

class TestApplicationIcon : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void hasItsOwnPictureForEverySize_data();
    void hasItsOwnPictureForEverySize();
};

void TestApplicationIcon::hasItsOwnPictureForEverySize_data() {
    QTest::addColumn<int>("size");
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        QTest::addRow("%d", size) << size;
}

void TestApplicationIcon::hasItsOwnPictureForEverySize() {
    QFETCH(int, size);
    const QIcon icon = applicationIcon();
    QVERIFY(icon.availableSizes().contains(QSize(size, size)));
    const QImage picture = icon.pixmap(size, size).toImage();
    QCOMPARE(picture.size(), QSize(size, size));
    // A round lens: opaque in the middle, transparent in the corners.
    QCOMPARE(qAlpha(picture.pixel(size / 2, size / 2)), 255);
    QCOMPARE(qAlpha(picture.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(picture.pixel(size - 1, size - 1)), 0);
}

QTEST_MAIN(TestApplicationIcon)
#include "test_applicationicon.moc"
