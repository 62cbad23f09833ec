// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "searchagaindialog.h"

#include "excludedtext.h"
#include "video.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

Q_DECLARE_METATYPE(QVector<QRect>)

/// The options with which a recording is searched again, from the dialog to the job.
class TestSearchAgain : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rectangles_data();
    void rectangles();
    void noRectangles_data();
    void noRectangles();
    void showsWhatItWasSearchedWith();
    void unchangedItDecidesTheSame();
    void whatIsChosenIsSearchedWith();
    void detectorsHaveThresholdsOfTheirOwn();
    void wrongRectanglesCannotBeAccepted();
    void jobKeepsItsFolderAndItsNumbers();

private:
    std::unique_ptr<Video> makeJob() {
        return std::make_unique<Video>(folder.filePath("garden.mp4"), folder.path(), 1.0, 2.5, 3.0,
                                       0, false, nullptr, nullptr, false, QDateTime());
    }

    QTemporaryDir folder;
};

template<class T>
static T& part(const SearchAgainDialog& dialog, const char* name) {
    return *dialog.findChild<T*>(name);
}

void TestSearchAgain::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QSettings().clear();
    QSettings().setValue("threshold_motion", 0.75);
}

void TestSearchAgain::rectangles_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<QRect>>("expected");
    QTest::newRow("none") << " " << QVector<QRect>();
    QTest::newRow("one") << "1,2,30x40" << QVector<QRect>{{1, 2, 30, 40}};
    QTest::newRow("as the scanner has it") << "1,2,30,40" << QVector<QRect>{{1, 2, 30, 40}};
    QTest::newRow("two") << " -1, 2, 30 x 40 ; 5,6,7×8; "
                         << QVector<QRect>{{-1, 2, 30, 40}, {5, 6, 7, 8}};
}

void TestSearchAgain::rectangles() {
    QFETCH(QString, text);
    QFETCH(QVector<QRect>, expected);
    const auto read = rectanglesOf(text);
    QVERIFY(read.has_value());
    QCOMPARE(*read, expected);
    QCOMPARE(*rectanglesOf(rectanglesText(expected)), expected);
}

void TestSearchAgain::noRectangles_data() {
    QTest::addColumn<QString>("text");
    for (const char* text :
         {"1,2,3", "1,2,0x5", "1,2,5x0", "1,2,-3x4", "a", "1,2,3x4,5", "1.5,2,3x4",
          "2147483648,0,1x1", "0,0,1073741825x1", "1,2,3x4 5,6,7x8"})
        QTest::newRow(text) << text;
}

void TestSearchAgain::noRectangles() {
    QFETCH(QString, text);
    QVERIFY(!rectanglesOf(text).has_value());
}

void TestSearchAgain::showsWhatItWasSearchedWith() {
    const auto job = makeJob();
    const SearchAgainDialog dialog(*job);
    QCOMPARE(part<QComboBox>(dialog, "comboBoxAgainDetector").currentIndex(), 0);
    QCOMPARE(part<QDoubleSpinBox>(dialog, "spinBoxAgainThreshold").value(), 0.75);
    QCOMPARE(part<QDoubleSpinBox>(dialog, "spinBoxAgainBefore").value(), 1.0);
    QCOMPARE(part<QDoubleSpinBox>(dialog, "spinBoxAgainAfter").value(), 2.5);
    QCOMPARE(part<QDoubleSpinBox>(dialog, "spinBoxAgainMinimum").value(), 3.0);
    QVERIFY(!part<QCheckBox>(dialog, "checkBoxJoin").isChecked());
    QVERIFY(!part<QCheckBox>(dialog, "checkBoxQuick").isChecked());
    QVERIFY(!part<QCheckBox>(dialog, "checkBoxRestless").isEnabled());
}

void TestSearchAgain::unchangedItDecidesTheSame() {
    const auto job = makeJob();
    job->search.isQuick = true;
    job->search.excluded = {{1, 2, 3, 4}};
    DecidingOptions deciding;
    deciding.detector = Detector::Cells;
    deciding.segmentation = {1.5, 2.0, 2.25, {12.5F}, 0};
    deciding.cells = {3, true};
    deciding.joiningGap = 0.0;
    job->search.deciding = deciding;
    const SearchOptions again = SearchAgainDialog(*job).record().search;
    QVERIFY(again.isQuick);
    QCOMPARE(again.excluded, job->search.excluded);
    QVERIFY(again.deciding->detector == Detector::Cells);
    QCOMPARE(again.deciding->segmentation.prerecord, 1.5);
    QCOMPARE(again.deciding->segmentation.postrecord, 2.0);
    QCOMPARE(again.deciding->segmentation.minimum, 2.25);
    QCOMPARE(again.deciding->segmentation.motionThreshold.value, 12.5F);
    QCOMPARE(again.deciding->cells.step, 3);
    QVERIFY(again.deciding->cells.isRestlessIgnored);
    QCOMPARE(again.deciding->joiningGap.value_or(-1.0), 0.0);
}

void TestSearchAgain::whatIsChosenIsSearchedWith() {
    const auto job = makeJob();
    const SearchAgainDialog dialog(*job);
    part<QComboBox>(dialog, "comboBoxAgainDetector").setCurrentIndex(1);
    part<QDoubleSpinBox>(dialog, "spinBoxAgainThreshold").setValue(1.25);
    part<QCheckBox>(dialog, "checkBoxJoin").setChecked(true);
    part<QDoubleSpinBox>(dialog, "spinBoxAgainJoin").setValue(4.0);
    part<QCheckBox>(dialog, "checkBoxRestless").setChecked(true);
    part<QCheckBox>(dialog, "checkBoxQuick").setChecked(true);
    part<QLineEdit>(dialog, "lineEditExcluded").setText("10,20,30x40");
    const SearchOptions again = dialog.record().search;
    QVERIFY(again.deciding->detector == Detector::Cells);
    QCOMPARE(again.deciding->segmentation.motionThreshold.value, 1.25F);
    QCOMPARE(again.deciding->joiningGap.value_or(-1.0), 4.0);
    QVERIFY(again.deciding->cells.isRestlessIgnored);
    QVERIFY(again.isQuick);
    QCOMPARE(again.excluded, QVector<QRect>({{10, 20, 30, 40}}));
}

void TestSearchAgain::detectorsHaveThresholdsOfTheirOwn() {
    const auto job = makeJob();
    const SearchAgainDialog dialog(*job);
    auto& detector = part<QComboBox>(dialog, "comboBoxAgainDetector");
    auto& threshold = part<QDoubleSpinBox>(dialog, "spinBoxAgainThreshold");
    detector.setCurrentIndex(1);
    QCOMPARE(threshold.value(), 0.7); // the scanner's for cells
    QCOMPARE(threshold.maximum(), 100.0);
    threshold.setValue(60.0);
    detector.setCurrentIndex(0);
    QCOMPARE(threshold.value(), 0.75);
    QCOMPARE(threshold.maximum(), 10.0);
    detector.setCurrentIndex(1);
    QCOMPARE(threshold.value(), 60.0);
}

void TestSearchAgain::wrongRectanglesCannotBeAccepted() {
    const auto job = makeJob();
    const SearchAgainDialog dialog(*job);
    const auto* ok = part<QDialogButtonBox>(dialog, "buttonBox").button(QDialogButtonBox::Ok);
    QVERIFY(ok->isEnabled());
    QVERIFY(part<QLabel>(dialog, "labelFlaw").isHidden());
    part<QLineEdit>(dialog, "lineEditExcluded").setText("10,20,30");
    QVERIFY(!ok->isEnabled());
    QVERIFY(!part<QLabel>(dialog, "labelFlaw").isHidden());
    part<QLineEdit>(dialog, "lineEditExcluded").setText("10,20,30x4");
    QVERIFY(ok->isEnabled());
}

void TestSearchAgain::jobKeepsItsFolderAndItsNumbers() {
    const auto job = makeJob();
    job->state = Video::Finished;
    job->nextClipNumber = 5;
    JobFacts facts;
    facts.seconds = 10.0;
    job->news.setFacts(facts);
    const Video again(SearchAgainDialog(*job).record());
    QCOMPARE(int(again.state), int(Video::Waiting));
    QCOMPARE(again.fileName, job->fileName);
    QCOMPARE(again.clipDirectory, job->clipDirectory);
    QCOMPARE(again.nextClipNumber, 5);
    QCOMPARE(again.news.facts().seconds, 0.0);
}

QTEST_MAIN(TestSearchAgain)
#include "test_searchagain.moc"
