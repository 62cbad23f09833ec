// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Rectangles that are left out of the region: the values are those of a mask drawn without them.

#include "files.h"
#include "media.h"
#include "process.h"

#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using Rectangles = QVector<QRect>;

const QSize size(98, 74);

QImage plainMask(const QSize& size, Qt::GlobalColor color) {
    QImage mask(size, QImage::Format_RGB32);
    mask.fill(color);
    return mask;
}

void paint(QImage& mask, const QRect& rectangle, const QColor& color) {
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x) {
            if (x >= rectangle.x() && x < rectangle.x() + rectangle.width() && y >= rectangle.y() &&
                y < rectangle.y() + rectangle.height())
                mask.setPixelColor(x, y, color);
        }
    }
}

QString text(const QRect& r) {
    return QStringLiteral("%1,%2,%3,%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

} // namespace

class TestExcluded : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void valuesAreThoseOfTheMask_data();
    void valuesAreThoseOfTheMask();
    void nothingLeftIsWarnedOf();
    void whatMovesThereIsNoMotion();

private:
    QByteArray trace(const QStringList& region);
    QString saved(const QImage& mask, const QString& name) const;

    QTemporaryDir folder;
    QString video; ///< 6 s; a box crosses from second 1 to second 5, between rows 24 and 43
};

void TestExcluded::initTestCase() {
    video = folder.filePath("garden.mkv");
    QVERIFY(
        media::encode(media::crossingBox(6, 1, 5, "98x74") + QStringList{"-c:v", "ffv1", video}));
}

QByteArray TestExcluded::trace(const QStringList& region) {
    const QString file = folder.filePath("trace");
    QFile::remove(file);
    const ProcessResult result = runProgram(
        "kestrova-scan",
        QStringList{"--quiet", "--threshold-value", "5", "--trace", file, video} + region);
    return result.status == 0 ? readFile(file) : QByteArray();
}

QString TestExcluded::saved(const QImage& mask, const QString& name) const {
    return mask.save(folder.filePath(name)) ? folder.filePath(name) : QString();
}

void TestExcluded::valuesAreThoseOfTheMask_data() {
    QTest::addColumn<Rectangles>("excluded");
    QTest::newRow("in the middle") << Rectangles{{30, 20, 40, 30}};
    QTest::newRow("at odd places") << Rectangles{{31, 23, 7, 11}, {1, 1, 13, 27}};
    QTest::newRow("one pixel") << Rectangles{{49, 30, 1, 1}};
    QTest::newRow("over each edge")
        << Rectangles{{-9, 20, 20, 9}, {90, 31, 50, 5}, {40, -3, 9, 30}, {55, 35, 8, 900}};
    QTest::newRow("outside") << Rectangles{{98, 0, 10, 10}, {0, 74, 10, 10}, {-20, -20, 20, 20}};
    QTest::newRow("overlapping") << Rectangles{{10, 10, 40, 30}, {30, 25, 40, 30}, {12, 12, 5, 5}};
    QTest::newRow("all but a strip") << Rectangles{{0, 0, 98, 30}, {0, 33, 98, 41}};
}

void TestExcluded::valuesAreThoseOfTheMask() {
    QFETCH(Rectangles, excluded);
    QStringList options;
    for (const QRect& rectangle : excluded)
        options << "--exclude" << text(rectangle);
    const auto check = [&](const QStringList& region, QImage mask) {
        for (const QRect& rectangle : excluded)
            paint(mask, rectangle, Qt::red);
        const QByteArray found = trace(region + options);
        QVERIFY(found.count('\n') > 100);
        QCOMPARE(found, trace({"--mask", saved(mask, "cleared.png")}));
    };
    check({}, plainMask(size, Qt::green));

    for (const QRect& roi : {QRect(3, 11, 71, 39), QRect(-10, 21, 77, 900)}) {
        QImage inside = plainMask(size, Qt::red);
        paint(inside, roi, Qt::green);
        check({"--roi", text(roi)}, inside);
    }
    // Half the size: each of its pixels is four of the picture.
    QImage coarse = plainMask(size / 2, Qt::red);
    paint(coarse, {5, 5, 31, 20}, Qt::green);
    QImage fine = plainMask(size, Qt::red);
    paint(fine, {10, 10, 62, 40}, Qt::green);
    check({"--mask", saved(coarse, "coarse.png")}, fine);
}

void TestExcluded::nothingLeftIsWarnedOf() {
    const ProcessResult result = runProgram(
        "kestrova-scan", {"--quiet", "--roi", "10,10,20,20", "--exclude", "0,0,30,30", video});
    QCOMPARE(result.status, 0);
    QVERIFY(result.errors.contains("the region selects nothing"));
}

void TestExcluded::whatMovesThereIsNoMotion() {
    const auto strongest = [](const QByteArray& trace) {
        double most = 0.0;
        for (const QByteArray& line : trace.trimmed().split('\n'))
            most = qMax(most, line.split('\t').value(2).toDouble());
        return most;
    };
    const QStringList noise = {"--threshold-value", "35"};
    QVERIFY(strongest(trace(noise)) > 1.0);
    QCOMPARE(strongest(trace(noise + QStringList{"--exclude", "0,20,98,30"})), 0.0);
}

QTEST_GUILESS_MAIN(TestExcluded)
#include "test_excluded.moc"
