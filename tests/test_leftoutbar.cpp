// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "leftoutbar.h"

#include "mainwindowdriver.h"
#include "media.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

class TestLeftOutBar : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingIsLeftOutAtFirst();
    void fileThatMadeWayIsNamed();
    void manyAreCounted();
    void buttonSetsThemUp();
    void theyMayStayLeftOut();

private:
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

void TestLeftOutBar::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QSettings().clear();
    QSettings().setValue("export_dir", folder.path());
    const QImage picture = media::grey(320, 240, 90);
    QVERIFY(media::encodeGrey(path("a.avi"), {picture, picture}, 5, {"-c:v", "mjpeg"}));
    for (const char* name : {"b.avi", "c.avi", "d.avi", "%2.avi"})
        QVERIFY(QFile::copy(path("a.avi"), path(name)));
}

void TestLeftOutBar::nothingIsLeftOutAtFirst() {
    MainWindowDriver driver;
    driver.window.show();
    driver.setup.addFile(path("a.avi"));
    QVERIFY(!driver.part<QWidget>("leftOutBar").isVisible());
}

void TestLeftOutBar::fileThatMadeWayIsNamed() {
    // As on the command line: the second one has no picture, and nothing is shown any more.
    MainWindowDriver driver;
    driver.window.show();
    driver.setup.addFile(path("a.avi"));
    driver.setup.addFile(path("broken.avi"));
    QVERIFY(!driver.setup.isVisible());
    QVERIFY(driver.part<QWidget>("leftOutBar").isVisible());
    QCOMPARE(driver.part<QLabel>("labelLeftOut").text(),
             QString("Not set up, since others were added: a.avi"));
    driver.click("pushButtonSetUp");
    QVERIFY(driver.setup.isVisible());
    QCOMPARE(driver.setupPart<QLabel>("labelInfo").text(), path("a.avi"));
    QVERIFY(!driver.part<QWidget>("leftOutBar").isVisible());
}

void TestLeftOutBar::manyAreCounted() {
    MainWindowDriver driver;
    for (const char* name : {"%2.avi", "a.avi", "b.avi", "c.avi", "d.avi"})
        driver.setup.addFile(path(name));
    QCOMPARE(driver.part<QLabel>("labelLeftOut").text(),
             QString("Not set up, since others were added: %2.avi, a.avi, b.avi and 1 more"));
}

void TestLeftOutBar::buttonSetsThemUp() {
    MainWindowDriver driver;
    driver.window.show();
    for (const char* name : {"a.avi", "b.avi", "c.avi"})
        driver.setup.addFile(path(name));
    driver.click("pushButtonSetUp");
    // The one that is shown stays, the others wait behind it.
    QCOMPARE(driver.setupPart<QLabel>("labelInfo").text(), path("c.avi"));
    QCOMPARE(driver.setupPart<QLabel>("labelPosition").text(), QString("File 3 of 5"));
    QVERIFY(!driver.part<QWidget>("leftOutBar").isVisible());
    driver.clickSetup("pushButtonAdd");
    QCOMPARE(driver.setupPart<QLabel>("labelInfo").text(), path("a.avi"));
    driver.clickSetup("pushButtonCancelAll");
}

void TestLeftOutBar::theyMayStayLeftOut() {
    MainWindowDriver driver;
    driver.window.show();
    driver.setup.addFile(path("a.avi"));
    driver.setup.addFile(path("b.avi"));
    driver.part<QToolButton>("toolButtonForget").click();
    QVERIFY(!driver.part<QWidget>("leftOutBar").isVisible());
    driver.clickSetup("pushButtonAdd");
    QVERIFY(!driver.setup.isVisible());
}

QTEST_MAIN(TestLeftOutBar)
#include "test_leftoutbar.moc"
