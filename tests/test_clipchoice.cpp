// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipchoice.h"

#include <QtTest>

#include <algorithm>
#include <deque>
#include <limits>
#include <random>
#include <thread>

namespace {

SelectionOptions selection(std::optional<ClipOrder> order, std::optional<int> most = {}) {
    SelectionOptions options;
    options.order = order;
    options.most = most;
    return options;
}

QImage pictureOf(int value) {
    QImage picture(8, 6, QImage::Format_RGB32);
    picture.fill(qRgb(value, 255 - value, 7));
    return picture;
}

} // namespace

class TestClipChoice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void strongestFirst();
    void longestFirst();
    void byTheClock();
    void byTimeWithoutAClock();
    void topOfTheOrder();
    void topWithoutAnOrderIsByTime();
    void equalsComeInTheOrderOfTheCall();
    void allAreMadeAtOnce();
    void onlyWhatCountsIsMade();
    void picturesComeBackAsTheyWere();
    void failuresAreTold();
    void timesThatAreNone();
    void threadsChangeNothing();

private:
    ClipLine line(int recording, int index, double start, double end, float motion);
    QStringList chosen(ClipChoice& choice);
    void addSome(ClipChoice& choice);

    std::deque<Recording> recordings;
    QStringList made; ///< "recording.clip", in the order in which their files were written
    ClipChoice::Make make;
};

void TestClipChoice::init() {
    recordings.clear();
    for (int i = 0; i < 3; ++i) {
        recordings.emplace_back();
        recordings.back().place = i;
    }
    made.clear();
    make = [this](ClipLine& line) {
        made += QStringLiteral("%1.%2").arg(line.recording.place).arg(line.clip.index);
        line.snapshotFile = QStringLiteral("written");
        return true;
    };
}

ClipLine TestClipChoice::line(int recording, int index, double start, double end, float motion) {
    return {recordings[std::size_t(recording)],
            {},
            {index, pictureOf(index), start, end, start, {motion}}};
}

QStringList TestClipChoice::chosen(ClipChoice& choice) {
    QStringList names;
    choice.finish([&](const ClipLine& line) {
        names += QStringLiteral("%1.%2").arg(line.recording.place).arg(line.clip.index);
    });
    return names;
}

void TestClipChoice::addSome(ClipChoice& choice) {
    choice.add(line(1, 0, 5.0, 9.0, 3.0F), make);
    choice.add(line(0, 0, 2.0, 3.0, 1.0F), make);
    choice.add(line(0, 1, 7.0, 12.0, 9.0F), make);
    choice.add(line(1, 1, 20.0, 22.0, 4.0F), make);
}

void TestClipChoice::strongestFirst() {
    ClipChoice choice(selection(ClipOrder::Strength));
    addSome(choice);
    QCOMPARE(chosen(choice), QStringList({"0.1", "1.1", "1.0", "0.0"}));
}

void TestClipChoice::longestFirst() {
    ClipChoice choice(selection(ClipOrder::Length));
    addSome(choice);
    QCOMPARE(chosen(choice), QStringList({"0.1", "1.0", "1.1", "0.0"}));
}

void TestClipChoice::byTheClock() {
    const QDateTime noon(QDate(2026, 11, 16), QTime(12, 0), Qt::UTC);
    recordings[0].start.time = noon.addSecs(10);
    recordings[1].start.time = noon; // its clips at 5 and 20 s, the others at 12 and 17
    ClipChoice choice(selection(ClipOrder::Time));
    addSome(choice);
    choice.add(line(2, 0, 0.0, 1.0, 1.0F), make); // nobody knows when that was
    QCOMPARE(chosen(choice), QStringList({"1.0", "0.0", "0.1", "1.1", "2.0"}));
}

void TestClipChoice::byTimeWithoutAClock() {
    ClipChoice choice(selection(ClipOrder::Time));
    addSome(choice);
    QCOMPARE(chosen(choice), QStringList({"0.0", "0.1", "1.0", "1.1"}));
}

void TestClipChoice::topOfTheOrder() {
    ClipChoice choice(selection(ClipOrder::Length, 3));
    addSome(choice);
    QCOMPARE(chosen(choice), QStringList({"0.1", "1.0", "1.1"}));
    ClipChoice more(selection(ClipOrder::Length, 9));
    addSome(more);
    QCOMPARE(chosen(more).size(), 4);
}

void TestClipChoice::topWithoutAnOrderIsByTime() {
    ClipChoice choice(selection(std::nullopt, 3));
    addSome(choice);
    QCOMPARE(chosen(choice), QStringList({"0.1", "1.0", "1.1"})); // all but the weakest
    ClipChoice two(selection(std::nullopt, 2));
    addSome(two);
    QCOMPARE(chosen(two), QStringList({"0.1", "1.1"}));
}

void TestClipChoice::equalsComeInTheOrderOfTheCall() {
    ClipChoice choice(selection(ClipOrder::Strength, 3));
    choice.add(line(2, 0, 0.0, 1.0, 1.0F), make);
    choice.add(line(1, 1, 0.0, 1.0, 1.0F), make);
    choice.add(line(0, 0, 0.0, 1.0, 1.0F), make);
    choice.add(line(1, 0, 0.0, 1.0, 1.0F), make);
    QCOMPARE(chosen(choice), QStringList({"0.0", "1.0", "1.1"}));
}

void TestClipChoice::allAreMadeAtOnce() {
    ClipChoice choice(selection(ClipOrder::Strength));
    addSome(choice);
    QCOMPARE(made, QStringList({"1.0", "0.0", "0.1", "1.1"}));
    QString file;
    choice.finish([&](const ClipLine& line) { file = line.snapshotFile; });
    QCOMPARE(file, QString("written"));
    QCOMPARE(made.size(), 4);
}

void TestClipChoice::onlyWhatCountsIsMade() {
    ClipChoice choice(selection(ClipOrder::Strength, 3));
    QVERIFY(choice.mayCount(line(0, 9, 0.0, 1.0, 0.1F)));
    addSome(choice);
    QVERIFY(!choice.mayCount(line(0, 9, 0.0, 1.0, 0.1F)));
    QVERIFY(choice.mayCount(line(0, 9, 0.0, 1.0, 3.5F)));
    QVERIFY(made.isEmpty());
    chosen(choice);
    QCOMPARE(made, QStringList({"0.1", "1.0", "1.1"})); // recording by recording
}

void TestClipChoice::picturesComeBackAsTheyWere() {
    ClipChoice choice(selection(ClipOrder::Strength, 2));
    QVector<QImage> seen;
    const auto look = [&](ClipLine& line) {
        seen.append(line.clip.snapshot);
        return true;
    };
    choice.add(line(0, 40, 0.0, 1.0, 1.0F), look);
    ClipLine without = line(0, 41, 2.0, 3.0, 2.0F);
    without.clip.snapshot = QImage();
    without.clip.snapshotFlaw = QStringLiteral("the disk failed");
    QString flaw;
    choice.add(without, [&](ClipLine& line) {
        flaw = line.clip.snapshotFlaw;
        return look(line);
    });
    QStringList told = chosen(choice);
    QCOMPARE(told.size(), 2);
    QCOMPARE(seen.size(), 2);
    QCOMPARE(seen[0], pictureOf(40));
    QVERIFY(seen[1].isNull());
    QCOMPARE(flaw, QString("the disk failed"));
}

void TestClipChoice::failuresAreTold() {
    ClipChoice choice(selection(std::nullopt, 2));
    choice.add(line(0, 0, 0.0, 1.0, 1.0F), [](ClipLine&) { return false; });
    choice.add(line(0, 1, 2.0, 3.0, 1.0F), make);
    int told = 0;
    QVERIFY(!choice.finish([&](const ClipLine&) { ++told; }));
    QCOMPARE(told, 2); // the other one is made all the same
    QCOMPARE(made, QStringList{"0.1"});
}

void TestClipChoice::timesThatAreNone() {
    const double none = std::numeric_limits<double>::quiet_NaN();
    ClipChoice choice(selection(ClipOrder::Length));
    for (int i = 0; i < 20; ++i)
        choice.add(line(0, i, 0.0, i % 3 == 0 ? none : double(i), 1.0F), make);
    QCOMPARE(chosen(choice).size(), 20);
}

void TestClipChoice::threadsChangeNothing() {
    std::mt19937 random(1);
    std::vector<std::vector<ClipLine>> all(3);
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 300; ++k)
            all[std::size_t(i)].push_back(line(i, k, k, k + 1.0, float(random() % 50)));
    }
    const auto ignore = [](ClipLine&) { return true; };
    ClipChoice alone(selection(ClipOrder::Strength, 50));
    ClipChoice together(selection(ClipOrder::Strength, 50));
    const auto addAll = [&](ClipChoice& choice, std::size_t recording) {
        for (const ClipLine& next : all[recording]) {
            if (choice.mayCount(next))
                choice.add(next, ignore);
        }
    };
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < 3; ++i) {
        addAll(alone, i);
        threads.emplace_back([&, i] { addAll(together, 2 - i); });
    }
    for (std::thread& thread : threads)
        thread.join();
    const QStringList expected = chosen(alone);
    QCOMPARE(expected.size(), 50);
    QCOMPARE(chosen(together), expected);
}

QTEST_APPLESS_MAIN(TestClipChoice)
#include "test_clipchoice.moc"
