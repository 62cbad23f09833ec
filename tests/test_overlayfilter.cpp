#include "overlayfilter.h"

#include <QtTest>

class TestOverlayFilter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reachesTheEncoderWithSingleBackslashes();
    void dayHasNoPadding();
    void negativeSecondKeepsItsSign();
};

void TestOverlayFilter::reachesTheEncoderWithSingleBackslashes() {
    QCOMPARE(overlayFilter(QDate(2026, 11, 16), 32703),
             QString("drawtext=fontfile=DejaVuSansMono.ttf:text='Mon Nov 16 2026 "
                     "%{pts\\:hms\\:32703}':x=10:y=10:fontcolor=white:box=1:boxborderw=3:"
                     "boxcolor=0x00000000@1"));
}

void TestOverlayFilter::dayHasNoPadding() {
    QVERIFY(overlayFilter(QDate(2026, 3, 1), 0).contains("text='Sun Mar 1 2026 %{pts\\:hms\\:0}'"));
}

void TestOverlayFilter::negativeSecondKeepsItsSign() {
    QVERIFY(overlayFilter(QDate(2026, 3, 1), -5).contains("%{pts\\:hms\\:-5}"));
}

QTEST_GUILESS_MAIN(TestOverlayFilter)
#include "test_overlayfilter.moc"
