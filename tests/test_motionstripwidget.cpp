// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionstripwidget.h"

#include "mouse.h"

#include <QScrollBar>
#include <QWheelEvent>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr double pictureSeconds = 1.0 / 32.0; // as fine as the strip's own grid
constexpr int recordingSeconds = 60;

/// Quiet, with motion of `value` in the second `at`.
std::shared_ptr<MotionPyramid> motionAt(int at, float value, int seconds = recordingSeconds) {
    auto motion = std::make_shared<MotionPyramid>();
    for (int i = 0; i <= seconds * 32; ++i)
        motion->add(i * pictureSeconds, i / 32 == at ? value : 0.0F);
    return motion;
}

} // namespace

class TestMotionStripWidget : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void columnsShowTheStrongest();
    void clipsAreShaded();
    void listedAndWouldBeDifferInForm();
    void shortRecordingFillsTheStrip();
    void wheelZoomsAboutThePointer();
    void shiftAndWheelScroll();
    void draggingScrolls();
    void keysScrollAndZoom();
    void keysMoveTheThreshold();
    void thresholdIsDragged();
    void flashesEndAtTheEdge();
    void growsAlong();
    void staysWhereItWasZoomed();
    void isDescribed();
    void eightHoursAreDrawnQuickly();
    void nothingIsMeasured();

private:
    QImage drawn();
    int middle() const { return strip->viewport()->height() / 3; }
    double timeAt(int x);
    QVector<int> columnsWith(QRgb color, int y);
    void wheel(int x, int notches, Qt::KeyboardModifiers modifiers = {});

    std::unique_ptr<MotionStripWidget> strip;
};

void TestMotionStripWidget::init() {
    strip = std::make_unique<MotionStripWidget>();
    QPalette plain;
    plain.setColor(QPalette::Base, Qt::white);
    plain.setColor(QPalette::Text, Qt::black);
    plain.setColor(QPalette::Highlight, Qt::blue);
    plain.setColor(QPalette::Link, Qt::red);
    strip->setPalette(plain);
    strip->resize(700, 160);
    strip->show();
    QVERIFY(QTest::qWaitForWindowExposed(strip.get()));
    strip->showRecording("gate.avi", QDateTime());
    strip->setThreshold(0.5, 10.0, 0.1);
    strip->setMotion(motionAt(30, 4.0F), QString());
}

QImage TestMotionStripWidget::drawn() {
    return strip->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// What time is there, as a double-click tells.
double TestMotionStripWidget::timeAt(int x) {
    QSignalSpy chosen(strip.get(), SIGNAL(timeChosen(double)));
    QTest::mouseDClick(strip->viewport(), Qt::LeftButton, {}, {x, middle()});
    QTest::mouseRelease(strip->viewport(), Qt::LeftButton, {}, {x, middle()});
    return chosen.isEmpty() ? -1.0 : chosen[0][0].toDouble();
}

QVector<int> TestMotionStripWidget::columnsWith(QRgb color, int y) {
    const QImage image = drawn();
    QVector<int> columns;
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixel(x, y) == color)
            columns.append(x);
    }
    return columns;
}

void TestMotionStripWidget::wheel(int x, int notches, Qt::KeyboardModifiers modifiers) {
    const QPointF place(x, middle());
    QWheelEvent event(place, strip->viewport()->mapToGlobal(place.toPoint()), {},
                      {0, 120 * notches}, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(strip->viewport(), &event);
}

/// By the square root, against a model that looks at all pictures.
void TestMotionStripWidget::columnsShowTheStrongest() {
    std::mt19937 random(7);
    auto motion = std::make_shared<MotionPyramid>();
    QVector<float> values;
    for (int i = 0; i < recordingSeconds * 32; ++i) {
        values.append(random() % 50 == 0 ? float(random() % 100) / 10.0F : 0.1F);
        motion->add(i * pictureSeconds, values.last());
    }
    strip->setThreshold(0.0, 10.0, 0.1); // black all of them; its line takes a little at the bottom
    strip->setMotion(motion, QString());
    const QImage image = drawn();
    const auto ink = [&image](int x) {
        int count = 0;
        for (int y = 0; y < image.height() * 2 / 3; ++y)
            count += image.pixel(x, y) == qRgb(0, 0, 0) ? 1 : 0;
        return count;
    };
    QVector<double> heights;
    QVector<double> inks;
    for (int x = 200; x < 600; ++x) {
        const int first = int(std::floor(timeAt(x) / pictureSeconds));
        const int behind = int(std::ceil(timeAt(x + 1) / pictureSeconds));
        const float strongest = *std::max_element(values.begin() + first, values.begin() + behind);
        heights.append(std::sqrt(double(strongest / motion->strongest())));
        inks.append(ink(x));
    }
    const int highest = int(std::max_element(heights.begin(), heights.end()) - heights.begin());
    const double full = (inks[highest] + 2.0) / heights[highest]; // pixels of the whole height
    QVERIFY(full > 60.0);
    for (int i = 0; i < heights.size(); ++i)
        QVERIFY2(std::abs(inks[i] + 2.0 - heights[i] * full) <= 3.0,
                 qPrintable(QString::number(i)));
}

void TestMotionStripWidget::clipsAreShaded() {
    strip->setListed({{0, 10.0, 20.0}});
    const int lane = strip->viewport()->height() - 2 * strip->fontMetrics().height() + 3;
    const QVector<int> listed = columnsWith(qRgb(0, 0, 255), lane);
    QVERIFY(!listed.isEmpty());
    QVERIFY(std::abs(timeAt(listed.first()) - 10.0) < 0.3);
    QVERIFY(std::abs(timeAt(listed.last()) - 20.0) < 0.3);
}

/// One is solid, the other hatched: also where colours are not seen.
void TestMotionStripWidget::listedAndWouldBeDifferInForm() {
    strip->setWouldBe({{40.0, 50.0}});
    const QImage image = drawn();
    QSet<QRgb> colors;
    QVector<int> shaded;
    for (int x = 0; x < image.width(); ++x) {
        const QRgb color = image.pixel(x, middle());
        if (timeAt(x) > 41.0 && timeAt(x) < 49.0)
            colors.insert(color);
        if (qBlue(color) > qRed(color) + 20)
            shaded.append(x);
    }
    QVERIFY(colors.size() >= 2);
    QVERIFY(!shaded.isEmpty());
    QVERIFY(std::abs(timeAt(shaded.first()) - 40.0) < 0.3);
    QVERIFY(std::abs(timeAt(shaded.last()) - 50.0) < 0.3);
}

void TestMotionStripWidget::shortRecordingFillsTheStrip() {
    strip->showRecording("short.mov", QDateTime());
    strip->setMotion(motionAt(1, 4.0F, 2), QString());
    const int right = strip->viewport()->width() - 4;
    QVERIFY(timeAt(right) > 1.9 && timeAt(right) <= 2.0);
    wheel(400, 10); // there is nothing shorter to be seen
    QVERIFY(timeAt(right) > 1.9 && timeAt(right) <= 2.0);
}

void TestMotionStripWidget::wheelZoomsAboutThePointer() {
    const double before = timeAt(400);
    const double width = timeAt(500) - timeAt(300);
    wheel(400, 4);
    QVERIFY(std::abs(timeAt(400) - before) < 0.01);
    const double closer = timeAt(500) - timeAt(300);
    QVERIFY(closer < width / 2.0);
    wheel(400, 100); // there is an end to it
    QVERIFY(timeAt(500) - timeAt(300) > 0.5);
    wheel(400, -200);
    QVERIFY(std::abs(timeAt(500) - timeAt(300) - width) < 0.01);
}

void TestMotionStripWidget::shiftAndWheelScroll() {
    wheel(400, 4);
    const double before = timeAt(400);
    const double width = timeAt(500) - timeAt(300);
    wheel(400, -1, Qt::ShiftModifier);
    QVERIFY(timeAt(400) > before);
    QVERIFY(std::abs(timeAt(500) - timeAt(300) - width) < 0.01);
    wheel(400, 1000, Qt::ShiftModifier);
    QCOMPARE(strip->horizontalScrollBar()->value(), 0);
    QVERIFY(timeAt(150) < before);
}

void TestMotionStripWidget::draggingScrolls() {
    wheel(400, 4);
    const double held = timeAt(400);
    mouse::stroke(*strip->viewport(), {{400, middle()}, {300, middle()}});
    QVERIFY(std::abs(timeAt(300) - held) < 0.05);
    strip->horizontalScrollBar()->setValue(strip->horizontalScrollBar()->maximum());
    QVERIFY(std::abs(timeAt(strip->viewport()->width() - 3) - recordingSeconds) < 0.2);
}

void TestMotionStripWidget::keysScrollAndZoom() {
    const double width = timeAt(500) - timeAt(300);
    QTest::keyClick(strip.get(), Qt::Key_Plus);
    QVERIFY(timeAt(500) - timeAt(300) < width);
    QTest::keyClick(strip.get(), Qt::Key_End);
    const double last = timeAt(400);
    QTest::keyClick(strip.get(), Qt::Key_Left);
    QVERIFY(timeAt(400) < last);
    QTest::keyClick(strip.get(), Qt::Key_Right);
    QVERIFY(std::abs(timeAt(400) - last) < 0.01);
    QTest::keyClick(strip.get(), Qt::Key_Home);
    QCOMPARE(strip->horizontalScrollBar()->value(), 0);
    QTest::keyClick(strip.get(), Qt::Key_Minus);
    QVERIFY(std::abs(timeAt(500) - timeAt(300) - width) < 0.01);
}

void TestMotionStripWidget::keysMoveTheThreshold() {
    QSignalSpy chosen(strip.get(), SIGNAL(thresholdChosen(double)));
    QTest::keyClick(strip.get(), Qt::Key_Up);
    QTest::keyClick(strip.get(), Qt::Key_Down);
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(chosen[0][0].toDouble(), 0.6);
    QCOMPARE(chosen[1][0].toDouble(), 0.4); // nobody has taken the first one up
    strip->setThreshold(0.05, 10.0, 0.1);
    QTest::keyClick(strip.get(), Qt::Key_Down);
    QCOMPARE(chosen[2][0].toDouble(), 0.0);
    strip->setThreshold(10.0, 10.0, 0.1);
    QTest::keyClick(strip.get(), Qt::Key_Up);
    QCOMPARE(chosen[3][0].toDouble(), 10.0);
}

void TestMotionStripWidget::thresholdIsDragged() {
    // The line is red, somewhere among the quiet on the left.
    const QImage image = drawn();
    int line = -1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 150; x < 170 && line < 0; ++x) {
            if (image.pixel(x, y) == qRgb(255, 0, 0))
                line = y;
        }
    }
    QVERIFY(line > 0);
    QSignalSpy chosen(strip.get(), SIGNAL(thresholdChosen(double)));
    mouse::press(*strip->viewport(), {160, line});
    mouse::move(*strip->viewport(), {160, line - 30});
    QCOMPARE(chosen.count(), 1);
    QVERIFY(chosen[0][0].toDouble() > 0.6);
    mouse::move(*strip->viewport(), {160, -500});
    QCOMPARE(chosen.last()[0].toDouble(), 4.0); // up to the strongest
    mouse::move(*strip->viewport(), {160, 5000});
    QCOMPARE(chosen.last()[0].toDouble(), 0.0);
    mouse::release(*strip->viewport(), {160, line});
}

/// Or else one of them would leave no room for all other motion.
void TestMotionStripWidget::flashesEndAtTheEdge() {
    strip->setMotion(motionAt(30, 200.0F), QString());
    const QVector<int> flash = columnsWith(qRgb(0, 0, 0), middle());
    QVERIFY(!flash.isEmpty());
    QSignalSpy chosen(strip.get(), SIGNAL(thresholdChosen(double)));
    strip->setThreshold(10.0, 10.0, 0.1); // its line is at the edge
    mouse::press(*strip->viewport(), {160, strip->fontMetrics().height() / 2});
    mouse::move(*strip->viewport(), {160, 5000});
    mouse::release(*strip->viewport(), {160, 5000});
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen[0][0].toDouble(), 0.0);
}

void TestMotionStripWidget::growsAlong() {
    auto motion = motionAt(30, 4.0F);
    strip->setMotion(motion, QString());
    const double before = timeAt(600);
    for (int i = 1; i <= recordingSeconds * 32; ++i)
        motion->add(recordingSeconds + i * pictureSeconds, 0.0F);
    strip->grow();
    QVERIFY(std::abs(timeAt(600) - 2.0 * before) < 0.01);
}

void TestMotionStripWidget::staysWhereItWasZoomed() {
    auto motion = motionAt(30, 4.0F);
    strip->setMotion(motion, QString());
    wheel(400, 4);
    const double before = timeAt(600);
    motion->add(3600.0, 0.0F);
    strip->grow();
    QVERIFY(std::abs(timeAt(600) - before) < 0.01);
}

void TestMotionStripWidget::isDescribed() {
    strip->setListed({{0, 10.0, 20.0}, {1, 30.0, 33.0}});
    QCOMPARE(strip->accessibleDescription(),
             QString("gate.avi: 0:01:00 long, strongest motion 4.00, 2 clips"));
    QVERIFY(!strip->accessibleName().isEmpty());
}

void TestMotionStripWidget::eightHoursAreDrawnQuickly() {
    auto motion = std::make_shared<MotionPyramid>();
    for (int i = 0; i < 720000; ++i)
        motion->add(i * 0.04, float(i % 977) / 100.0F);
    strip->setMotion(motion, QString());
    QVector<ListedSpan> clips;
    for (int i = 0; i < 5000; ++i)
        clips.append({i, i * 5.0, i * 5.0 + 3.0});
    strip->setListed(clips);
    strip->resize(1900, 200);
    drawn();
    QElapsedTimer timer;
    timer.start();
    drawn();
    QVERIFY2(timer.elapsed() < 100, qPrintable(QString::number(timer.elapsed())));
    qInfo("8 hours with 5000 clips were drawn in %lld ms", timer.elapsed());
}

void TestMotionStripWidget::nothingIsMeasured() {
    strip->setMotion(nullptr, QString());
    QCOMPARE(timeAt(400), -1.0);
    QCOMPARE(strip->accessibleDescription(), QString("gate.avi: nothing measured"));
    QVERIFY(columnsWith(qRgb(0, 0, 0), middle()).isEmpty());
}

QTEST_MAIN(TestMotionStripWidget)
#include "test_motionstripwidget.moc"
