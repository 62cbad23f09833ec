// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenamecodec.h"
#include "files.h"
#include "recordings.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// What folders and lists hold, by names alone: the files here are empty.
class TestRecordings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void filesAreTakenAsTheyAre();
    void foldersAreSearchedAndSorted();
    void namesAreBytes();
    void slashesAtTheEnd();
    void hiddenIsLeftOut();
    void linksToFilesCountThoseToFoldersDoNot();
    void folderThatIsALink();
    void linksInCircles();
    void pipesAreLeftOut();
    void emptyFolderIsWarnedOf();
    void unreadableFolderIsNamed();
    void tooDeepFolderIsNamed();
    void listHasALinePerName();
    void listWithNullBytes();
    void listNamesFolders();
    void emptyListIsWarnedOf();
    void emptyNamesAreWarnedOfOnce();
    void binaryFileIsNoList();
    void unreadableListIsNamed();

private:
    QString path(const QString& name) const { return folder->filePath(name); }
    bool make(const QStringList& names) const;
    Recordings found(const QString& name = {}) const;
    QStringList foundNames(const QString& name = {}) const;

    std::unique_ptr<QTemporaryDir> folder;
};

void TestRecordings::init() {
    folder = std::make_unique<QTemporaryDir>();
}

bool TestRecordings::make(const QStringList& names) const {
    bool isGood = true;
    for (const QString& name : names)
        isGood = isGood && QDir().mkpath(QFileInfo(path(name)).path()) && writeFile(path(name), {});
    return isGood;
}

Recordings TestRecordings::found(const QString& name) const {
    Recordings recordings;
    addNamed(name.isEmpty() ? folder->path() : path(name), recordings);
    return recordings;
}

/// Below the test's folder.
QStringList TestRecordings::foundNames(const QString& name) const {
    QStringList names = found(name).videos;
    for (QString& video : names)
        video.remove(folder->path() + '/');
    return names;
}

void TestRecordings::filesAreTakenAsTheyAre() {
    QVERIFY(make({"notes.txt"}));
    for (const char* name : {"notes.txt", "missing.mp4", "missing"}) {
        QCOMPARE(foundNames(name), QStringList{name});
        QVERIFY(found(name).complaints.isEmpty());
    }
}

void TestRecordings::foldersAreSearchedAndSorted() {
    QVERIFY(make({"b.mp4", "a/z.mkv", "a/b/c/d.TS", "a.avi", "B.mp4", "a/notes.txt", "10.mp4",
                  "9.mp4", "x.mp4/y.mov", "a b.mp4"}));
    // As sort(1) sorts bytes: capitals first, a slash behind a full stop and a blank.
    QCOMPARE(foundNames(), QStringList({"10.mp4", "9.mp4", "B.mp4", "a b.mp4", "a.avi",
                                        "a/b/c/d.TS", "a/z.mkv", "b.mp4", "x.mp4/y.mov"}));
    QVERIFY(found().complaints.isEmpty());
    QCOMPARE(foundNames("a"), QStringList({"a/b/c/d.TS", "a/z.mkv"}));
}

void TestRecordings::namesAreBytes() {
    const QByteArray name = folder->path().toUtf8() + "/caf\xe9 \n.mp4";
    QVERIFY(writeFile(QFile::decodeName(name), {}));
    const QStringList videos = found().videos;
    QCOMPARE(videos.size(), 1);
    QCOMPARE(QFile::encodeName(videos[0]), name);
}

void TestRecordings::slashesAtTheEnd() {
    QVERIFY(make({"a/b.mp4"}));
    QCOMPARE(found("a/").videos, QStringList{path("a/b.mp4")});
}

void TestRecordings::hiddenIsLeftOut() {
    QVERIFY(make({".a.mp4", ".trash/a.mp4", "._b.mp4", "b.mp4"}));
    QCOMPARE(foundNames(), QStringList{"b.mp4"});
    // Who names it means it.
    QCOMPARE(foundNames(".trash"), QStringList{".trash/a.mp4"});
}

void TestRecordings::linksToFilesCountThoseToFoldersDoNot() {
    QVERIFY(make({"a/one.mp4", "elsewhere/two.mp4", "elsewhere/notes"}));
    QVERIFY(QFile::link(path("elsewhere/two.mp4"), path("a/link.mp4")));
    QVERIFY(QFile::link(path("elsewhere/notes"), path("a/notes.mp4")));
    QVERIFY(QFile::link(path("nowhere"), path("a/broken.mp4")));
    QVERIFY(QFile::link(path("nowhere"), path("a/broken")));
    QVERIFY(QFile::link(path("elsewhere"), path("a/folder.mp4")));
    QCOMPARE(foundNames("a"),
             QStringList({"a/broken.mp4", "a/link.mp4", "a/notes.mp4", "a/one.mp4"}));
}

void TestRecordings::folderThatIsALink() {
    QVERIFY(make({"a/one.mp4"}));
    QVERIFY(QFile::link(path("a"), path("link")));
    QCOMPARE(foundNames("link"), QStringList{"link/one.mp4"});
}

void TestRecordings::linksInCircles() {
    QVERIFY(make({"a/b/one.mp4"}));
    QVERIFY(QFile::link(path("a"), path("a/b/again")));
    QVERIFY(QFile::link(path("a/self.mp4"), path("a/self.mp4")));
    // It is named like a video: that it cannot be read is said when it is its turn.
    QCOMPARE(foundNames(), QStringList({"a/b/one.mp4", "a/self.mp4"}));
}

void TestRecordings::pipesAreLeftOut() {
    QVERIFY(make({"a.mp4"}));
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.mp4")).constData(), 0600), 0);
    QCOMPARE(foundNames(), QStringList{"a.mp4"});
}

void TestRecordings::emptyFolderIsWarnedOf() {
    QVERIFY(make({"a/notes.txt", "a/b/.hidden.mp4"}));
    const Recordings recordings = found("a");
    QVERIFY(recordings.videos.isEmpty());
    QCOMPARE(recordings.complaints.size(), 1);
    QCOMPARE(recordings.complaints[0].subject, path("a"));
    QVERIFY(recordings.complaints[0].reason.startsWith("warning: "));
    QVERIFY(!recordings.complaints[0].isFailure);
}

void TestRecordings::unreadableFolderIsNamed() {
    if (geteuid() == 0)
        QSKIP("root reads every folder");
    QVERIFY(make({"a/one.mp4", "b/two.mp4", "c/three.mp4"}));
    QCOMPARE(::chmod(QFile::encodeName(path("b")).constData(), 0), 0);
    const Recordings recordings = found();
    QCOMPARE(::chmod(QFile::encodeName(path("b")).constData(), 0700), 0);
    QCOMPARE(recordings.videos, QStringList({path("a/one.mp4"), path("c/three.mp4")}));
    QCOMPARE(recordings.complaints.size(), 1);
    QCOMPARE(recordings.complaints[0].subject, path("b"));
    QVERIFY(recordings.complaints[0].reason.endsWith("Permission denied"));
    QVERIFY(recordings.complaints[0].isFailure);
}

/// A path longer than the system takes cannot be opened, not even by root.
void TestRecordings::tooDeepFolderIsNamed() {
    QVERIFY(make({"a/one.mp4", "z.mp4"}));
    const QByteArray name(200, 'd');
    const int start = ::open(".", O_RDONLY | O_DIRECTORY);
    QCOMPARE(::chdir(QFile::encodeName(path("a")).constData()), 0);
    for (int i = 0; i < 25; ++i) {
        QCOMPARE(::mkdir(name.constData(), 0700), 0);
        QCOMPARE(::chdir(name.constData()), 0);
    }
    QCOMPARE(::fchdir(start), 0);
    ::close(start);
    const Recordings recordings = found();
    QCOMPARE(QProcess::execute("rm", {"-rf", path("a")}), 0); // Qt cannot remove it, either
    QCOMPARE(recordings.videos, QStringList({path("a/one.mp4"), path("z.mp4")}));
    QCOMPARE(recordings.complaints.size(), 1);
    QVERIFY(recordings.complaints[0].subject.startsWith(path("a/ddd")));
    QVERIFY2(recordings.complaints[0].reason.endsWith("File name too long"),
             qPrintable(recordings.complaints[0].reason));
    QVERIFY(recordings.complaints[0].isFailure);
}

void TestRecordings::listHasALinePerName() {
    QVERIFY(writeFile(path("list"), "b.mp4\n\n a \x01.mp4 \n#c\nx\r\n\xff\nlast.mp4"));
    Recordings recordings;
    addNamed("first.mp4", recordings);
    addListed(path("list"), '\n', recordings);
    QByteArrayList names;
    for (const QString& video : recordings.videos)
        names.append(QFile::encodeName(video));
    QCOMPARE(names, QByteArrayList(
                        {"first.mp4", "b.mp4", " a \x01.mp4 ", "#c", "x\r", "\xff", "last.mp4"}));
    QVERIFY(recordings.complaints.isEmpty());
}

void TestRecordings::listWithNullBytes() {
    QVERIFY(writeFile(path("list"), QByteArray("a\nb.mp4\0\0c.mp4\0", 15)));
    Recordings recordings;
    addListed(path("list"), '\0', recordings);
    QCOMPARE(recordings.videos, QStringList({"a\nb.mp4", "c.mp4"}));
}

void TestRecordings::listNamesFolders() {
    QVERIFY(make({"a/2.mp4", "a/1.mp4"}));
    QVERIFY(writeFile(path("list"), (path("a") + "\nb.mp4\n").toUtf8()));
    Recordings recordings;
    addListed(path("list"), '\n', recordings);
    QCOMPARE(recordings.videos, QStringList({path("a/1.mp4"), path("a/2.mp4"), "b.mp4"}));
}

void TestRecordings::emptyListIsWarnedOf() {
    QVERIFY(writeFile(path("list"), "\n\n"));
    Recordings recordings;
    addListed(path("list"), '\n', recordings);
    QVERIFY(recordings.videos.isEmpty());
    QCOMPARE(recordings.complaints.size(), 1);
    QCOMPARE(recordings.complaints[0].subject, path("list"));
    QVERIFY(!recordings.complaints[0].isFailure);
}

void TestRecordings::emptyNamesAreWarnedOfOnce() {
    QVERIFY(writeFile(path("list"), QByteArray("\0\0a.mp4\0\0b.mp4", 14)));
    Recordings recordings;
    addListed(path("list"), '\0', recordings);
    QCOMPARE(recordings.videos, QStringList({"a.mp4", "b.mp4"}));
    QCOMPARE(recordings.complaints.size(), 1);
    QCOMPARE(recordings.complaints[0].reason, QString("warning: empty names are left out: 3"));
    QVERIFY(!recordings.complaints[0].isFailure);
}

void TestRecordings::binaryFileIsNoList() {
    QVERIFY(writeFile(path("list"), QByteArray("\x7f"
                                               "ELF\0\n",
                                               6) +
                                        QByteArray("a\n").repeated(5000)));
    Recordings recordings;
    addListed(path("list"), '\n', recordings);
    QVERIFY(recordings.videos.isEmpty());
    QCOMPARE(recordings.complaints.size(), 1);
    QVERIFY(recordings.complaints[0].reason.startsWith("this is no list: it has null bytes"));
    QVERIFY(recordings.complaints[0].isFailure);
}

void TestRecordings::unreadableListIsNamed() {
    for (const QString& list : {path("missing"), folder->path()}) {
        Recordings recordings;
        addListed(list, '\n', recordings);
        QVERIFY(recordings.videos.isEmpty());
        QCOMPARE(recordings.complaints.size(), 1);
        QCOMPARE(recordings.complaints[0].subject, list);
        QVERIFY(recordings.complaints[0].reason.startsWith("cannot read this list: "));
        QVERIFY(recordings.complaints[0].isFailure);
    }
}

int main(int argc, char* argv[]) {
    installFileNameCodec();
    QCoreApplication application(argc, argv);
    TestRecordings test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_recordings.moc"
