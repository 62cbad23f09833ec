// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Symbolic links that somebody has put where the scanner is about to write.

#include "files.h"
#include "media.h"
#include "process.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <sys/stat.h>
#include <unistd.h>

class TestPlantedLinks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void filesTakeTheLinksPlace_data();
    void filesTakeTheLinksPlace();
    void pictureFolderThatIsALinkIsRefused_data();
    void pictureFolderThatIsALinkIsRefused();
    void namedFoldersMayBeLinks();
    void namedTracesMayBeLinks();
    void tracesToStandardOutput();
    void linksOfOthersAreRefused_data();
    void linksOfOthersAreRefused();
    void modesOfOlderFilesAreKept();

private:
    QString path(const QString& name) const { return folder->filePath(name); }
    ProcessResult scan(const QStringList& arguments) const {
        return runProgram("kestrova-scan",
                          QStringList{"--quiet", "--minimum", "2", "--postrecord", "2"} +
                              arguments + QStringList{video});
    }
    bool link(const QString& target, const QString& name) const {
        return symlink(target.toUtf8().constData(), path(name).toUtf8().constData()) == 0;
    }
    QStringList elsewhere() const {
        return QDir(path("elsewhere")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    QTemporaryDir recordings;
    QString video; ///< one clip
    std::unique_ptr<QTemporaryDir> folder;
};

void TestPlantedLinks::initTestCase() {
    video = recordings.filePath("garden.mp4");
    QVERIFY(media::encode(media::crossingBox(20, 6, 12) +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", video}));
}

/// `elsewhere/ours` is the file that must stay as it is.
void TestPlantedLinks::init() {
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(folder->path()).mkpath("out/pictures"));
    QVERIFY(QDir(folder->path()).mkpath("elsewhere"));
    QVERIFY(writeFile(path("elsewhere/ours"), "ours"));
}

void TestPlantedLinks::filesTakeTheLinksPlace_data() {
    QTest::addColumn<QStringList>("option");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("target");
    const auto add = [](const char* what, const char* option, const QString& name) {
        for (const char* target : {"elsewhere/ours", "elsewhere/nothing", "elsewhere"})
            QTest::newRow(qPrintable(QStringLiteral("%1 to %2").arg(what, target)))
                << QStringList{option} << name << target;
    };
    add("page", "--report", "out/index.html");
    add("picture of a report", "--report", "out/pictures/garden.mp4-0000.png");
    add("snapshot", "--snapshots", "out/garden.mp4-0000.png");
}

void TestPlantedLinks::filesTakeTheLinksPlace() {
    QFETCH(QStringList, option);
    QFETCH(QString, name);
    QFETCH(QString, target);
    QVERIFY(link(path(target), name));
    const ProcessResult result = scan(option + QStringList{path("out")});
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 0);
    QCOMPARE(readFile(path("elsewhere/ours")), QByteArray("ours"));
    QCOMPARE(elsewhere(), QStringList{"ours"});
    QVERIFY(!QFileInfo(path(name)).isSymLink());
    QVERIFY(readFile(path(name)).size() > 100);
}

void TestPlantedLinks::pictureFolderThatIsALinkIsRefused_data() {
    QTest::addColumn<QString>("target");
    QTest::newRow("to a folder") << "elsewhere";
    QTest::newRow("to a file") << "elsewhere/ours";
    QTest::newRow("to nothing") << "elsewhere/nothing";
}

void TestPlantedLinks::pictureFolderThatIsALinkIsRefused() {
    QFETCH(QString, target);
    QVERIFY(QDir(path("out")).rmdir("pictures"));
    QVERIFY(link(path(target), "out/pictures"));
    const ProcessResult result = scan({"--report", path("out")});
    QCOMPARE(result.errors, "kestrova-scan: " + path("out/pictures").toUtf8() +
                                ": cannot write into this folder: it is a symbolic link\n");
    QCOMPARE(result.status, 2);
    QCOMPARE(elsewhere(), QStringList{"ours"});
}

void TestPlantedLinks::namedFoldersMayBeLinks() {
    QVERIFY(link(path("elsewhere"), "named"));
    QCOMPARE(scan({"--report", path("named"), "--snapshots", path("named/")}).status, 0);
    QCOMPARE(elsewhere(), QStringList({"garden.mp4-0000.png", "index.html", "ours", "pictures"}));
}

void TestPlantedLinks::namedTracesMayBeLinks() {
    QVERIFY(link(path("elsewhere/ours"), "trace"));
    QCOMPARE(scan({"--trace", path("trace")}).status, 0);
    QVERIFY(readFile(path("elsewhere/ours")).startsWith("1\t"));
}

void TestPlantedLinks::tracesToStandardOutput() {
    const ProcessResult result = scan({"--trace", "/dev/stdout"});
    QCOMPARE(result.status, 0);
    QVERIFY(result.output.contains("\n2\t"));
    QVERIFY(result.output.contains("garden.mp4  #0"));
}

void TestPlantedLinks::linksOfOthersAreRefused_data() {
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray folder =
        "cannot write into this folder: it is a symbolic link of another user";
    const QByteArray trace = "it is a symbolic link of another user, and is not followed";
    QTest::newRow("report") << "--report"
                            << "elsewhere" << folder;
    QTest::newRow("snapshots") << "--snapshots"
                               << "elsewhere" << folder;
    QTest::newRow("export") << "--export"
                            << "elsewhere" << folder;
    QTest::newRow("values") << "--values"
                            << "elsewhere" << folder;
    QTest::newRow("trace") << "--trace"
                           << "elsewhere/ours" << trace;
    QTest::newRow("trace that is not there") << "--trace"
                                             << "elsewhere/nothing" << trace;
}

void TestPlantedLinks::linksOfOthersAreRefused() {
    QFETCH(QString, option);
    QFETCH(QString, target);
    QFETCH(QByteArray, reason);
    if (geteuid() != 0)
        QSKIP("only root can make links of other users");
    constexpr uid_t nobody = 65534;
    QVERIFY(link(path(target), "planted"));
    QCOMPARE(lchown(path("planted").toUtf8().constData(), nobody, nobody), 0);
    const ProcessResult result = scan({option, path("planted")});
    QCOMPARE(result.errors, "kestrova-scan: " + path("planted").toUtf8() + ": " + reason + '\n');
    QCOMPARE(result.status, 2);
    QCOMPARE(elsewhere(), QStringList{"ours"});
    QCOMPARE(readFile(path("elsewhere/ours")), QByteArray("ours"));
}

void TestPlantedLinks::modesOfOlderFilesAreKept() {
    const QByteArray page = path("out/index.html").toUtf8();
    QVERIFY(writeFile(path("out/index.html"), "older"));
    QCOMPARE(chmod(page.constData(), 0640), 0);
    QCOMPARE(scan({"--report", path("out")}).status, 0);
    struct stat status = {};
    QCOMPARE(stat(page.constData(), &status), 0);
    QCOMPARE(int(status.st_mode & 0777), 0640);
}

QTEST_GUILESS_MAIN(TestPlantedLinks)
#include "test_plantedlinks.moc"
