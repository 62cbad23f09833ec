// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Job setup offers when the recording on show began.

#include "backgroundthread.h"
#include "media.h"
#include "setupwindow.h"
#include "startoffer.h"

#include <QDir>
#include <QFile>
#include <QLayout>
#include <QSettings>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include <array>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

bool setModified(const QString& file, qint64 seconds) {
    const std::array<timespec, 2> times = {timespec{seconds, 0}, timespec{seconds, 0}};
    return utimensat(AT_FDCWD, QFile::encodeName(file).constData(), times.data(), 0) == 0;
}

QToolButton& offerIn(const SetupWindow& window) {
    return window.get<QToolButton>("toolButtonFoundStart");
}

} // namespace

class TestStartOffer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void startIsOffered_data();
    void startIsOffered();
    void nothingIsOfferedWhereNothingIsKnown();
    void everyFileHasItsOwn();
    void fieldStaysUntilTheOfferIsTaken();
    void offerGoesWithTimestamps();
    void offerIsReachedBeforeTheField();
    void offerFitsBesideTheField();
    void timeIsReadWhereRoomIsShort();
    void shortLivedWindowsEnd();

private:
    QString made(const QString& name, const QStringList& tags = {}, qint64 modified = 0) const;

    QTemporaryDir folder;
};

void TestStartOffer::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    qputenv("TZ", "Asia/Tokyo");
    tzset();
    QVERIFY(media::encode(media::crossingBox(4, 1, 2) +
                          QStringList{"-c:v", "mpeg4", folder.filePath("plain.mp4")}));
}

void TestStartOffer::init() {
    QSettings().clear();
    QSettings().setValue("export_dir", folder.path());
}

/// A recording of 4 s.
QString TestStartOffer::made(const QString& name, const QStringList& tags, qint64 modified) const {
    const QString file = folder.filePath(name);
    const bool isMade = media::encode(
        QStringList{"-i", folder.filePath("plain.mp4"), "-c", "copy"} + tags + QStringList{file});
    return isMade && setModified(file, modified) ? file : QString();
}

void TestStartOffer::startIsOffered_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<qint64>("modified");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<QDateTime>("time");
    const QDateTime time(QDate(2026, 11, 22), QTime(20, 30, 15), Qt::UTC);
    const qint64 none = 0;
    QTest::newRow("name") << "VID_20261122_203015.mp4" << QStringList() << none
                          << "Use 11/22/2026 8:30:15 PM (from the name)" << QString() << time;
    QTest::newRow("last second of a day")
        << "20261122_235959.mp4" << QStringList() << none
        << "Use 11/22/2026 11:59:59 PM (from the name)" << QString()
        << QDateTime(QDate(2026, 11, 22), QTime(23, 59, 59), Qt::UTC);
    QTest::newRow("without seconds") << "2026-11-22_20-30.mp4" << QStringList() << none
                                     << "Use 11/22/2026 8:30:00 PM (from the name)"
                                     << "The name has no seconds." << time.addSecs(-15);
    QTest::newRow("head") << "head.mp4"
                          << QStringList{"-metadata", "creation_time=2026-11-22T11:30:15Z"} << none
                          << "Use 11/22/2026 8:30:15 PM (from the video)"
                          << "If the camera wrote it in UTC, as it should have." << time;
    QTest::newRow("file") << "file.mp4" << QStringList()
                          << time.addSecs(4 - 9 * 3600).toSecsSinceEpoch()
                          << "Use 11/22/2026 8:30:15 PM (from the file)"
                          << "The file's last change, less the recording's length. A copy may have "
                             "another one."
                          << time;
}

void TestStartOffer::startIsOffered() {
    QFETCH(QString, name);
    QFETCH(QStringList, tags);
    QFETCH(qint64, modified);
    QFETCH(QDateTime, time);
    const QString file = made(name, tags, modified);
    QVERIFY(!file.isEmpty());
    SetupWindow window;
    window.addFile(file);
    window.get<QCheckBox>("checkBoxExportTimestamp").click();
    QTRY_VERIFY(offerIn(window).isVisible());
    QTEST(offerIn(window).text(), "text");
    const QStringList tip = offerIn(window).toolTip().split('\n');
    QCOMPARE(tip[0], offerIn(window).text());
    QTEST(tip.value(1), "tip");
    QTest::mouseClick(&offerIn(window), Qt::LeftButton);
    auto& edit = window.get<QDateTimeEdit>("dateTimeEdit");
    QCOMPARE(edit.dateTime(), time);
    edit.interpretText(); // as when the field loses the focus
    QCOMPARE(edit.dateTime(), time);
    window.click("pushButtonAdd");
    const auto jobs = window.takeJobs();
    QCOMPARE(int(jobs.size()), 1);
    QCOMPARE(jobs[0]->startDateTime, time);
    QCOMPARE(jobs[0]->startDateTime.timeSpec(), Qt::UTC);
}

void TestStartOffer::nothingIsOfferedWhereNothingIsKnown() {
    SetupWindow window;
    window.addFiles({made("20261122_203015.mp4"), made("01-02-2026_20-30-15.mp4"),
                     made("20261123_203015.mp4")});
    QTRY_VERIFY(offerIn(window).isVisible());
    window.click("pushButtonAdd");
    QTRY_COMPARE(offerIn(window).text(), QString());
    QVERIFY(!offerIn(window).isVisible());
    window.click("pushButtonAdd");
    QTRY_VERIFY(offerIn(window).isVisible());
}

void TestStartOffer::everyFileHasItsOwn() {
    SetupWindow window;
    window.addFiles(
        {made("20261122_203015.mp4"), made("20261123_203015.mp4"), made("unknown.mp4")});
    QTRY_VERIFY(offerIn(window).isVisible());
    QVERIFY(offerIn(window).text().contains("11/22/2026"));
    window.click("pushButtonAdd");
    QVERIFY(!offerIn(window).isVisible());
    QTRY_VERIFY(offerIn(window).isVisible());
    QVERIFY(offerIn(window).text().contains("11/23/2026"));
    window.click("pushButtonAdd");
    QVERIFY(!offerIn(window).isVisible());
}

void TestStartOffer::fieldStaysUntilTheOfferIsTaken() {
    SetupWindow window;
    const QDateTime before = window.get<QDateTimeEdit>("dateTimeEdit").dateTime();
    window.addFile(made("20261122_203015.mp4"));
    QTRY_VERIFY(offerIn(window).isVisible());
    QCOMPARE(window.get<QDateTimeEdit>("dateTimeEdit").dateTime(), before);
}

void TestStartOffer::offerGoesWithTimestamps() {
    SetupWindow window;
    window.addFile(made("20261122_203015.mp4"));
    QTRY_VERIFY(offerIn(window).isVisible());
    QVERIFY(!offerIn(window).isEnabled());
    window.get<QCheckBox>("checkBoxExportTimestamp").click();
    QVERIFY(offerIn(window).isEnabled());
}

void TestStartOffer::offerIsReachedBeforeTheField() {
    SetupWindow window;
    window.addFile(made("20261122_203015.mp4"));
    window.get<QCheckBox>("checkBoxExportTimestamp").click();
    QTRY_VERIFY(offerIn(window).isVisible());
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto& box = window.get<QCheckBox>("checkBoxExportTimestamp");
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Tab);
    QVERIFY(offerIn(window).hasFocus());
    QTest::keyClick(&offerIn(window), Qt::Key_Space);
    QCOMPARE(window.get<QDateTimeEdit>("dateTimeEdit").date(), QDate(2026, 11, 22));
    QTest::keyClick(&offerIn(window), Qt::Key_Tab);
    QVERIFY(window.get<QDateTimeEdit>("dateTimeEdit").hasFocus());
}

void TestStartOffer::offerFitsBesideTheField() {
    SetupWindow window;
    window.addFile(made("file-2.mp4", {}, 1795379415));
    QTRY_VERIFY(offerIn(window).isVisible());
    const int needed = window.layout()->totalMinimumSize().width();
    QVERIFY2(needed <= 1000, QByteArray::number(needed).constData());
    window.resize(window.minimumSize());
    QTRY_VERIFY(offerIn(window).width() >= offerIn(window).minimumSizeHint().width());
    QVERIFY(window.rect().contains(
        QRect(offerIn(window).mapTo(&window, QPoint()), offerIn(window).size())));
}

void TestStartOffer::timeIsReadWhereRoomIsShort() {
    SetupWindow window;
    window.addFile(made("20261122_203015.mp4"));
    QTRY_VERIFY(offerIn(window).isVisible());
    auto& offer = static_cast<StartOffer&>(offerIn(window));
    offer.resize(offer.sizeHint());
    QCOMPARE(offer.shownText(), offer.text());
    offer.resize(offer.width() - 1, offer.height());
    QCOMPARE(offer.shownText(), QString("Use 11/22/2026 8:30:15 PM"));
    offer.resize(offer.minimumSizeHint());
    QVERIFY(offer.shownText().endsWith(QChar(0x2026)));
}

void TestStartOffer::shortLivedWindowsEnd() {
    const QString file = made("unnamed.mp4");
    for (int i = 0; i < 20; ++i) {
        SetupWindow window;
        window.addFile(file);
    }
    QCoreApplication::processEvents();
    QVERIFY(!BackgroundThread::isAnyAbandoned());
}

QTEST_MAIN(TestStartOffer)
#include "test_startoffer.moc"
