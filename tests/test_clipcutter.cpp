// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "recordingselection.h"

#include <QtTest>

#include <random>

namespace {

using Clips = QVector<DetectedClip>;

constexpr double quarter = 0.25; // times that doubles hold exactly

DetectedClip clip(double start, double end, float motion = 1.0F) {
    return {7, QImage(4, 1, QImage::Format_RGB32), start, end, start, {motion}};
}

/// A recording with a picture each quarter of a second, whose motion is its number.
ClipCutter rising(double length, int pictures) {
    ClipCutter cutter(length);
    for (int i = 1; i <= pictures; ++i)
        cutter.addPicture(i * quarter, {float(i)});
    return cutter;
}

/// "start-end@picture" of each.
QStringList texts(const Clips& clips) {
    QStringList all;
    for (const DetectedClip& found : clips)
        all += QStringLiteral("%1-%2@%3")
                   .arg(QString::number(found.start), QString::number(found.end),
                        QString::number(found.snapshotTime));
    return all;
}

} // namespace

class TestClipCutter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shortClipsStayWhole();
    void piecesAreCutAtTheLength();
    void piecesAreNumberedOn();
    void firstOfEqualsIsShown();
    void whatIsLeftIsAPiece();
    void roundingMakesNoPiece();
    void gapsGiveNoPiece();
    void beforeTheFirstPictureIsNoPiece();
    void timesThatRunBackwards();
    void hugeTimesAreFewPieces();
    void piecesHoldAllPictures();
    void whatIsForgottenChangesNothingBehindIt();
    void shortOnesAreLeftOut();
    void nothingIsAskedFor();
};

void TestClipCutter::shortClipsStayWhole() {
    ClipCutter cutter = rising(2.0, 40);
    const Clips cut = cutter.cut(clip(1.0, 3.0, 5.0F));
    QCOMPARE(texts(cut), QStringList{"1-3@1"});
    QCOMPARE(cut[0].snapshot.width(), 4); // it has its own picture still
    QCOMPARE(cut[0].strongestMotion.value, 5.0F);
    QCOMPARE(cut[0].index, 0);
}

void TestClipCutter::whatIsForgottenChangesNothingBehindIt() {
    ClipCutter whole = rising(2.0, 40);
    ClipCutter cutter = rising(2.0, 40);
    cutter.forgetBefore(3.0);
    QCOMPARE(texts(cutter.cut(clip(3.0, 8.0))), texts(whole.cut(clip(3.0, 8.0))));
    cutter.forgetBefore(100.0);
    QVERIFY(cutter.cut(clip(3.0, 8.0)).isEmpty());
}

void TestClipCutter::piecesAreCutAtTheLength() {
    ClipCutter cutter = rising(2.0, 40);
    const Clips cut = cutter.cut(clip(1.0, 7.0));
    // The strongest picture of each is its last one: a piece ends before the picture at its end.
    QCOMPARE(texts(cut), QStringList({"1-3@2.75", "3-5@4.75", "5-7@6.75"}));
    QCOMPARE(cut[1].strongestMotion.value, 19.0F);
    for (const DetectedClip& piece : cut)
        QVERIFY(piece.snapshot.isNull());
}

void TestClipCutter::piecesAreNumberedOn() {
    ClipCutter cutter = rising(2.0, 40);
    QVector<int> numbers;
    for (const DetectedClip& found : {clip(0.0, 1.0), clip(1.0, 7.0), clip(6.0, 8.0)}) {
        for (const DetectedClip& piece : cutter.cut(found))
            numbers.append(piece.index);
    }
    QCOMPARE(numbers, QVector<int>({0, 1, 2, 3, 4}));
}

void TestClipCutter::firstOfEqualsIsShown() {
    ClipCutter cutter(1.0);
    for (int i = 1; i <= 12; ++i)
        cutter.addPicture(i * quarter, {2.0F});
    QCOMPARE(texts(cutter.cut(clip(0.0, 3.0))), QStringList({"0-1@0.25", "1-2@1", "2-3@2"}));
}

void TestClipCutter::whatIsLeftIsAPiece() {
    ClipCutter cutter = rising(2.0, 40);
    QCOMPARE(texts(cutter.cut(clip(1.0, 5.5))),
             QStringList({"1-3@2.75", "3-5@4.75", "5-5.5@5.25"}));
}

void TestClipCutter::roundingMakesNoPiece() {
    ClipCutter cutter = rising(2.0, 40);
    QCOMPARE(cutter.cut(clip(1.0, 3.0 + 1e-7)).size(), 1);
    const Clips cut = cutter.cut(clip(1.0, 5.0 + 1e-7));
    QCOMPARE(cut.size(), 2);
    QCOMPARE(cut[1].end, 5.0 + 1e-7);
    // A picture in the rest that rounding has made belongs to the piece before it.
    QCOMPARE(cut[1].snapshotTime, 5.0);
}

void TestClipCutter::gapsGiveNoPiece() {
    ClipCutter cutter(2.0);
    for (const double time : {1.0, 2.0, 9.0, 10.0})
        cutter.addPicture(time, {1.0F});
    QCOMPARE(texts(cutter.cut(clip(1.0, 11.0))), QStringList({"1-3@1", "9-11@9"}));
}

void TestClipCutter::beforeTheFirstPictureIsNoPiece() {
    ClipCutter cutter = rising(2.0, 40);
    QCOMPARE(texts(cutter.cut(clip(-2.5, 2.0))), QStringList({"-0.5-1.5@1.25", "1.5-2@1.75"}));
}

void TestClipCutter::timesThatRunBackwards() {
    ClipCutter cutter(2.0);
    for (const double time : {1.0, 2.0, 3.0, 4.0, 1.5, 3.5})
        cutter.addPicture(time, {float(time)});
    QCOMPARE(texts(cutter.cut(clip(1.0, 5.0))), QStringList({"1-3@2", "3-5@4"}));
}

void TestClipCutter::hugeTimesAreFewPieces() {
    ClipCutter cutter(1.0);
    cutter.addPicture(0.5, {1.0F});
    cutter.addPicture(1e12, {1.0F});
    const Clips cut = cutter.cut(clip(0.0, 1e12 + 1.0));
    QCOMPARE(cut.size(), 2);
    QCOMPARE(cut[1].start, 1e12);
}

/// Against the plain statement of it: each picture of a clip lies in one piece, pieces lie at
/// multiples of the length, and each shows the strongest of its pictures.
void TestClipCutter::piecesHoldAllPictures() {
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round) {
        const double length = (1 + random() % 12) * quarter;
        ClipCutter cutter(length);
        QVector<QPair<double, float>> pictures;
        double time = 0.0;
        for (int i = 0; i < 60; ++i) {
            time += (random() % 20 == 0 ? 8 : random() % 3) * quarter;
            pictures.append({time, float(random() % 9)});
            cutter.addPicture(time, {pictures.last().second});
        }
        const double start = double(random() % 40) * quarter;
        const double end = start + length + quarter * (1 + random() % 80);
        Clips expected;
        for (int k = 0; start + k * length < end; ++k) {
            DetectedClip piece{expected.size(), {}, start + k * length, start + (k + 1) * length};
            piece.end = qMin(piece.end, end);
            piece.strongestMotion.value = -1.0F;
            for (const auto& [at, motion] : pictures) {
                if (at >= piece.start && at < piece.end && motion > piece.strongestMotion.value) {
                    piece.strongestMotion.value = motion;
                    piece.snapshotTime = at;
                }
            }
            if (piece.strongestMotion.value >= 0.0F)
                expected.append(piece);
        }
        const Clips cut = cutter.cut(clip(start, end));
        QCOMPARE(texts(cut), texts(expected));
        for (int i = 0; i < cut.size(); ++i) {
            QCOMPARE(cut[i].index, i);
            QVERIFY(cut[i].strongestMotion == expected[i].strongestMotion);
        }
    }
}

void TestClipCutter::shortOnesAreLeftOut() {
    SelectionOptions options;
    options.longest = 2.0;
    options.shortest = 1.0;
    RecordingSelection selection(options);
    for (int i = 1; i <= 40; ++i)
        selection.addPicture(i * quarter, {1.0F});
    QCOMPARE(selection.of(clip(0.0, 0.75)).size(), 0);
    const Clips cut = selection.of(clip(1.0, 5.5)); // whose last piece is 0.5 s
    QCOMPARE(texts(cut), QStringList({"1-3@1", "3-5@3"}));
    // Those that are left out have their numbers all the same.
    QCOMPARE(cut[0].index, 1);
    QCOMPARE(selection.of(clip(6.0, 7.0 - 1e-7))[0].index, 4);
    QCOMPARE(selection.shortOnes(), 2);
}

void TestClipCutter::nothingIsAskedFor() {
    RecordingSelection selection{SelectionOptions()};
    selection.addPicture(1.0, {1.0F});
    const Clips same = selection.of(clip(5.0, 5.0)); // as a damaged recording may have it
    QCOMPARE(same.size(), 1);
    QCOMPARE(same[0].index, 7);
    QCOMPARE(selection.shortOnes(), 0);
}

QTEST_APPLESS_MAIN(TestClipCutter)
#include "test_clipcutter.moc"
