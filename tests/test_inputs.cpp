// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenamecodec.h"
#include "files.h"
#include "inputs.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// What folders and lists hold, by names alone: the files here are empty.
class TestInputs : public QObject {
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
    Inputs found(const QString& name = {}) const;
    QStringList foundNames(const QString& name = {}) const;

    std::unique_ptr<QTemporaryDir> folder;
};

void TestInputs::init() {
    folder = std::make_unique<QTemporaryDir>();
}

bool TestInputs::make(const QStringList& names) const {
    bool isGood = true;
    for (const QString& name : names)
        isGood = isGood && QDir().mkpath(QFileInfo(path(name)).path()) && writeFile(path(name), {});
    return isGood;
}

Inputs TestInputs::found(const QString& name) const {
    Inputs inputs;
    addNamed(name.isEmpty() ? folder->path() : path(name), inputs);
    return inputs;
}

/// Below the test's folder.
QStringList TestInputs::foundNames(const QString& name) const {
    QStringList names = found(name).videos;
    for (QString& video : names)
        video.remove(folder->path() + '/');
    return names;
}

void TestInputs::filesAreTakenAsTheyAre() {
    QVERIFY(make({"notes.txt"}));
    for (const char* name : {"notes.txt", "missing.mp4", "missing"}) {
        QCOMPARE(foundNames(name), QStringList{name});
        QVERIFY(found(name).complaints.isEmpty());
    }
}

void TestInputs::foldersAreSearchedAndSorted() {
    QVERIFY(make({"b.mp4", "a/z.mkv", "a/b/c/d.TS", "a.avi", "B.mp4", "a/notes.txt", "10.mp4",
                  "9.mp4", "x.mp4/y.mov", "a b.mp4"}));
    // As sort(1) sorts bytes: capitals first, a slash behind a full stop and a blank.
    QCOMPARE(foundNames(), QStringList({"10.mp4", "9.mp4", "B.mp4", "a b.mp4", "a.avi",
                                        "a/b/c/d.TS", "a/z.mkv", "b.mp4", "x.mp4/y.mov"}));
    QVERIFY(found().complaints.isEmpty());
    QCOMPARE(foundNames("a"), QStringList({"a/b/c/d.TS", "a/z.mkv"}));
}

void TestInputs::namesAreBytes() {
    const QByteArray name = folder->path().toUtf8() + "/caf\xe9 \n.mp4";
    QVERIFY(writeFile(QFile::decodeName(name), {}));
    const QStringList videos = found().videos;
    QCOMPARE(videos.size(), 1);
    QCOMPARE(QFile::encodeName(videos[0]), name);
}

void TestInputs::slashesAtTheEnd() {
    QVERIFY(make({"a/b.mp4"}));
    QCOMPARE(found("a/").videos, QStringList{path("a/b.mp4")});
}

void TestInputs::hiddenIsLeftOut() {
    QVERIFY(make({".a.mp4", ".trash/a.mp4", "._b.mp4", "b.mp4"}));
    QCOMPARE(foundNames(), QStringList{"b.mp4"});
    // Who names it means it.
    QCOMPARE(foundNames(".trash"), QStringList{".trash/a.mp4"});
}

void TestInputs::linksToFilesCountThoseToFoldersDoNot() {
    QVERIFY(make({"a/one.mp4", "elsewhere/two.mp4", "elsewhere/notes"}));
    QVERIFY(QFile::link(path("elsewhere/two.mp4"), path("a/link.mp4")));
    QVERIFY(QFile::link(path("elsewhere/notes"), path("a/notes.mp4")));
    QVERIFY(QFile::link(path("nowhere"), path("a/broken.mp4")));
    QVERIFY(QFile::link(path("nowhere"), path("a/broken")));
    QVERIFY(QFile::link(path("elsewhere"), path("a/folder.mp4")));
    QCOMPARE(foundNames("a"),
             QStringList({"a/broken.mp4", "a/link.mp4", "a/notes.mp4", "a/one.mp4"}));
}

void TestInputs::folderThatIsALink() {
    QVERIFY(make({"a/one.mp4"}));
    QVERIFY(QFile::link(path("a"), path("link")));
    QCOMPARE(foundNames("link"), QStringList{"link/one.mp4"});
}

void TestInputs::linksInCircles() {
    QVERIFY(make({"a/b/one.mp4"}));
    QVERIFY(QFile::link(path("a"), path("a/b/again")));
    QVERIFY(QFile::link(path("a/self.mp4"), path("a/self.mp4")));
    // It is named like a video: that it cannot be read is said when it is its turn.
    QCOMPARE(foundNames(), QStringList({"a/b/one.mp4", "a/self.mp4"}));
}

void TestInputs::pipesAreLeftOut() {
    QVERIFY(make({"a.mp4"}));
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.mp4")).constData(), 0600), 0);
    QCOMPARE(foundNames(), QStringList{"a.mp4"});
}

void TestInputs::emptyFolderIsWarnedOf() {
    QVERIFY(make({"a/notes.txt", "a/b/.hidden.mp4"}));
    const Inputs inputs = found("a");
    QVERIFY(inputs.videos.isEmpty());
    QCOMPARE(inputs.complaints.size(), 1);
    QCOMPARE(inputs.complaints[0].subject, path("a"));
    QVERIFY(inputs.complaints[0].reason.startsWith("warning: "));
    QVERIFY(!inputs.complaints[0].isFailure);
}

void TestInputs::unreadableFolderIsNamed() {
    if (geteuid() == 0)
        QSKIP("root reads every folder");
    QVERIFY(make({"a/one.mp4", "b/two.mp4", "c/three.mp4"}));
    QCOMPARE(::chmod(QFile::encodeName(path("b")).constData(), 0), 0);
    const Inputs inputs = found();
    QCOMPARE(::chmod(QFile::encodeName(path("b")).constData(), 0700), 0);
    QCOMPARE(inputs.videos, QStringList({path("a/one.mp4"), path("c/three.mp4")}));
    QCOMPARE(inputs.complaints.size(), 1);
    QCOMPARE(inputs.complaints[0].subject, path("b"));
    QVERIFY(inputs.complaints[0].reason.endsWith("Permission denied"));
    QVERIFY(inputs.complaints[0].isFailure);
}

/// A path longer than the system takes cannot be opened, not even by root.
void TestInputs::tooDeepFolderIsNamed() {
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
    const Inputs inputs = found();
    QCOMPARE(QProcess::execute("rm", {"-rf", path("a")}), 0); // Qt cannot remove it, either
    QCOMPARE(inputs.videos, QStringList({path("a/one.mp4"), path("z.mp4")}));
    QCOMPARE(inputs.complaints.size(), 1);
    QVERIFY(inputs.complaints[0].subject.startsWith(path("a/ddd")));
    QVERIFY2(inputs.complaints[0].reason.endsWith("File name too long"),
             qPrintable(inputs.complaints[0].reason));
    QVERIFY(inputs.complaints[0].isFailure);
}

void TestInputs::listHasALinePerName() {
    QVERIFY(writeFile(path("list"), "b.mp4\n\n a \x01.mp4 \n#c\nx\r\n\xff\nlast.mp4"));
    Inputs inputs;
    addNamed("first.mp4", inputs);
    addListed(path("list"), '\n', inputs);
    QByteArrayList names;
    for (const QString& video : inputs.videos)
        names.append(QFile::encodeName(video));
    QCOMPARE(names, QByteArrayList(
                        {"first.mp4", "b.mp4", " a \x01.mp4 ", "#c", "x\r", "\xff", "last.mp4"}));
    QVERIFY(inputs.complaints.isEmpty());
}

void TestInputs::listWithNullBytes() {
    QVERIFY(writeFile(path("list"), QByteArray("a\nb.mp4\0\0c.mp4\0", 15)));
    Inputs inputs;
    addListed(path("list"), '\0', inputs);
    QCOMPARE(inputs.videos, QStringList({"a\nb.mp4", "c.mp4"}));
}

void TestInputs::listNamesFolders() {
    QVERIFY(make({"a/2.mp4", "a/1.mp4"}));
    QVERIFY(writeFile(path("list"), (path("a") + "\nb.mp4\n").toUtf8()));
    Inputs inputs;
    addListed(path("list"), '\n', inputs);
    QCOMPARE(inputs.videos, QStringList({path("a/1.mp4"), path("a/2.mp4"), "b.mp4"}));
}

void TestInputs::emptyListIsWarnedOf() {
    QVERIFY(writeFile(path("list"), "\n\n"));
    Inputs inputs;
    addListed(path("list"), '\n', inputs);
    QVERIFY(inputs.videos.isEmpty());
    QCOMPARE(inputs.complaints.size(), 1);
    QCOMPARE(inputs.complaints[0].subject, path("list"));
    QVERIFY(!inputs.complaints[0].isFailure);
}

void TestInputs::emptyNamesAreWarnedOfOnce() {
    QVERIFY(writeFile(path("list"), QByteArray("\0\0a.mp4\0\0b.mp4", 14)));
    Inputs inputs;
    addListed(path("list"), '\0', inputs);
    QCOMPARE(inputs.videos, QStringList({"a.mp4", "b.mp4"}));
    QCOMPARE(inputs.complaints.size(), 1);
    QCOMPARE(inputs.complaints[0].reason, QString("warning: empty names are left out: 3"));
    QVERIFY(!inputs.complaints[0].isFailure);
}

void TestInputs::binaryFileIsNoList() {
    QVERIFY(writeFile(path("list"), QByteArray("\x7f"
                                               "ELF\0\n",
                                               6) +
                                        QByteArray("a\n").repeated(5000)));
    Inputs inputs;
    addListed(path("list"), '\n', inputs);
    QVERIFY(inputs.videos.isEmpty());
    QCOMPARE(inputs.complaints.size(), 1);
    QVERIFY(inputs.complaints[0].reason.startsWith("this is no list: it has null bytes"));
    QVERIFY(inputs.complaints[0].isFailure);
}

void TestInputs::unreadableListIsNamed() {
    for (const QString& list : {path("missing"), folder->path()}) {
        Inputs inputs;
        addListed(list, '\n', inputs);
        QVERIFY(inputs.videos.isEmpty());
        QCOMPARE(inputs.complaints.size(), 1);
        QCOMPARE(inputs.complaints[0].subject, list);
        QVERIFY(inputs.complaints[0].reason.startsWith("cannot read this list: "));
        QVERIFY(inputs.complaints[0].isFailure);
    }
}

int main(int argc, char* argv[]) {
    installFileNameCodec();
    QCoreApplication application(argc, argv);
    TestInputs test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_inputs.moc"
