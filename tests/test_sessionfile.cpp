// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "faults.h"
#include "folderlock.h"
#include "pictureshelf.h"
#include "process.h"
#include "sessionkeeper.h"
#include "sessions.h"
#include "sessionstore.h"
#include "video.h"

#include <QCryptographicHash>
#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <limits>
#include <memory>

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

/// What others may do with it, too.
int modeOf(const QString& path) {
    struct stat status = {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? int(status.st_mode & 0777) : 0;
}

/// An index with a digest that fits, whatever it says.
QByteArray sealed(const QByteArray& text, const QByteArray& version = "1") {
    const QByteArray digest = QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex();
    return "kestrova-session " + version + ' ' + digest + '\n' + text;
}

/// The JSON of an index without pictures.
QByteArray goodText() {
    SessionIndex index{sessions::full(), {"", ""}, {"", "", ""}};
    const QByteArray bytes = sessionBytes(index);
    return bytes.mid(bytes.indexOf('\n') + 1);
}

} // namespace

namespace {

/// Another program that holds a lock; it stays, or it ends and leaves a child behind.
class HoldingProgram {
public:
    enum Kind { Stays, LeavesAChild };

    HoldingProgram(const QString& path, Kind kind) {
        int ends[2] = {-1, -1};
        if (pipe(ends) != 0)
            return;
        const pid_t program = fork();
        if (program == 0)
            hold(path, kind, ends[1]);
        close(ends[1]);
        isHeld = ::read(ends[0], &left, sizeof left) == ssize_t(sizeof left);
        close(ends[0]);
        if (kind == LeavesAChild)
            waitpid(program, nullptr, 0);
    }

    ~HoldingProgram() {
        if (left > 0)
            kill(left, SIGKILL);
        waitpid(left, nullptr, 0);
    }

    HoldingProgram(const HoldingProgram&) = delete;
    HoldingProgram& operator=(const HoldingProgram&) = delete;

    bool hasHeld() const { return isHeld; }

private:
    [[noreturn]] static void hold(const QString& path, Kind kind, int told) {
        FolderLock lock(path);
        if (lock.tryHold() != FolderLock::Outcome::Held)
            _exit(1);
        const pid_t left = kind == Stays ? getpid() : fork();
        if (left != 0 && ::write(told, &left, sizeof left) != ssize_t(sizeof left))
            _exit(1);
        if (left == 0 || kind == Stays)
            pause();
        _exit(0);
    }

    pid_t left = 0;
    bool isHeld = false;
};

} // namespace

class TestSessionFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everythingComesBack();
    void olderSessionHasLess();
    void numbersThatAreNone();
    void namesOfAnyBytes();
    void onlyWhatWasNotOpenedHasNoFolder();
    void nothingIsThereAtFirst();
    void picturesAreWrittenOnce();
    void picturesThatAreLeftAtTheEndGoLater();
    void picturesOfEveryFormat();
    void picturesThatNobodyNeedsGo();
    void damagedIndexIsNeverTaken();
    void forgedIndexIsRefused_data();
    void forgedIndexIsRefused();
    void damagedSessionIsPutAside();
    void otherVersionIsPutAside();
    void sessionThatStaysWhereItIs();
    void picturesThatCannotBeRead();
    void regionThatIsLost();
    void exportedFileThatIsGone();
    void numbersOfFilesAreTaken();
    void folderIsItsOwners();
    void foldersOfOthersAreNotUsed_data();
    void foldersOfOthersAreNotUsed();
    void secondProgramKeepsNone();
    void otherProgramKeepsNone();
    void lockEndsWithItsProgram();
    void lockEndsThoughAChildIsLeft();
    void nothingElseIsTakenForALock_data();
    void nothingElseIsTakenForALock();
    void fileSystemWithoutLocks();
    void whatAKilledProgramLeft();
    void failingDisk_data();
    void failingDisk();
    void keeperWaitsForTheLastChange();
    void keeperWritesDuringSteadyChange();
    void keeperWritesAtTheEnd();
    void keeperEndsWhatItIsWriting();
    void keeperTellsAFailureOnce();
    void keeperHoldsBackWhileItReads();

private:
    QString path(const QString& name) const { return folder->filePath("data/session/" + name); }
    QStringList pictures() const { return QDir(path("pictures")).entryList(QDir::Files); }
    std::unique_ptr<SessionStore> store() const {
        return std::make_unique<SessionStore>(folder->filePath("data/session"));
    }
    SavedSession readBack() const {
        const auto other = store();
        other->look();
        return other->read();
    }
    void save(const SavedSession& session) const { QCOMPARE(store()->save(session), QString()); }

    std::unique_ptr<QTemporaryDir> folder;
};

void TestSessionFile::init() {
    folder = std::make_unique<QTemporaryDir>();
}

void TestSessionFile::everythingComesBack() {
    save(sessions::full());
    const auto other = store();
    const LastSession last = other->look();
    QCOMPARE(last.recordings, 2);
    QCOMPARE(last.clips, 3);
    QVERIFY(last.state == IndexState::Good && last.putAside.isEmpty() && !last.isOthers);
    sessions::compare(other->read(), sessions::full());
}

void TestSessionFile::olderSessionHasLess() {
    QByteArray text = goodText();
    for (const char* key : {"\"strength\"", "\"joined\"", "\"file\":{"}) {
        QVERIFY2(text.contains(key), key);
        text.replace(key, QByteArray(key).replace(1, 1, "_"));
    }
    SessionIndex index;
    QVERIFY(readSession(sealed(text), index) == IndexState::Good);
    QCOMPARE(index.session.clips[1].strength, -1.0F);
    QCOMPARE(index.session.clips[1].joinedFile, QString());
    QVERIFY(!index.session.jobs[0].facts.file);
}

void TestSessionFile::numbersThatAreNone() {
    SavedSession session = sessions::full();
    session.clips[0].start = -std::numeric_limits<double>::infinity();
    session.clips[0].end = std::numeric_limits<double>::quiet_NaN();
    save(session);
    const SavedClip clip = readBack().clips[0];
    QVERIFY(clip.start == session.clips[0].start && std::isnan(clip.end));
}

void TestSessionFile::namesOfAnyBytes() {
    SavedSession session;
    for (int byte = 1; byte < 128; ++byte)
        session.jobs.append(sessions::plainJob(QString("/a") + QChar(byte) + "%41", 4));
    save(session);
    sessions::compare(readBack(), session);
}

/// And no clips, which would be written nobody knows where.
void TestSessionFile::onlyWhatWasNotOpenedHasNoFolder() {
    SessionIndex index;
    index.session.jobs.append(sessions::plainJob("/broken.mp4", Video::Failed));
    index.session.jobs[0].clipDirectory.clear();
    index.masks.append(QString());
    SessionIndex found;
    QVERIFY(readSession(sessionBytes(index), found) == IndexState::Good);
    sessions::compare(found.session, index.session);

    index.session.jobs[0].state = Video::Waiting;
    QVERIFY(readSession(sessionBytes(index), found) == IndexState::Damaged);
    index.session.jobs[0].state = Video::Failed;
    index.session.clips.append(sessions::clip(0, 0, 1));
    index.snapshots.append(QString());
    QVERIFY(readSession(sessionBytes(index), found) == IndexState::Damaged);
}

void TestSessionFile::nothingIsThereAtFirst() {
    const LastSession last = store()->look();
    QCOMPARE(last.recordings, 0);
    QVERIFY(last.putAside.isEmpty() && last.failure.isEmpty() && !last.isOthers);
}

void TestSessionFile::picturesAreWrittenOnce() {
    SavedSession session = sessions::full();
    session.clips.append(sessions::clip(0, 0, 1)); // the first one's picture once more
    const auto first = store();
    QCOMPARE(first->save(session), QString());
    QCOMPARE(pictures().size(), 3); // two of clips, and a mask
    for (const QString& name : pictures())
        write(path("pictures/" + name), "not written again");
    const QByteArray before = contentOf(path("index"));
    session.clips[0].status = 5;
    QCOMPARE(first->save(session), QString());
    QVERIFY(contentOf(path("index")) != before);
    for (const QString& name : pictures())
        QCOMPARE(contentOf(path("pictures/" + name)), QByteArray("not written again"));
}

void TestSessionFile::picturesThatAreLeftAtTheEndGoLater() {
    const QString shelfPath = folder->filePath("shelf");
    QVERIFY(QDir().mkpath(shelfPath));
    const auto files = [&] { return QDir(shelfPath).entryList(QDir::Files); };
    PictureShelf shelf(shelfPath);
    const QImage picture = sessions::clip(0, 0, 0).snapshot;
    QCOMPARE(shelf.put(picture), QString());
    shelf.keepOnly({}, {true});
    QCOMPARE(files(), QStringList(shelf.nameOf(picture)));
    shelf.keepOnly({}, {false});
    QCOMPARE(files(), QStringList());
    QCOMPARE(shelf.put(picture), QString()); // and is known to be gone
    QCOMPARE(files().size(), 1);
}

void TestSessionFile::picturesOfEveryFormat() {
    const QImage picture = sessions::clip(0, 0, 0).snapshot.convertToFormat(QImage::Format_RGB32);
    QImage littered = picture;
    for (int y = 0; y < littered.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(littered.scanLine(y));
        for (int x = 0; x < littered.width(); ++x)
            line[x] = (line[x] & 0xffffff) | (QRgb(x) << 24); // nobody sees that byte
    }
    SavedSession session;
    session.jobs = {sessions::plainJob("/videos/plain.avi", 4)};
    for (const QImage& same : {picture, littered, picture.convertToFormat(QImage::Format_RGB888)}) {
        session.clips.append(sessions::clip(0, session.clips.size(), 0));
        session.clips.last().snapshot = same;
    }
    save(session);
    QCOMPARE(pictures().size(), 1);
    const SavedSession found = readBack();
    for (const SavedClip& clip : found.clips)
        QCOMPARE(clip.snapshot.convertToFormat(QImage::Format_RGB888),
                 picture.convertToFormat(QImage::Format_RGB888));
}

void TestSessionFile::picturesThatNobodyNeedsGo() {
    SavedSession session = sessions::full();
    save(session);
    session.clips.removeAt(1);
    save(session); // as another run of the program, too
    QCOMPARE(pictures().size(), 2);
    sessions::compare(readBack(), session);
}

void TestSessionFile::damagedIndexIsNeverTaken() {
    const QByteArray good = sealed(goodText());
    SessionIndex index;
    QVERIFY(readSession(good, index) == IndexState::Good);
    QRandomGenerator chance(17);
    for (int i = 0; i < 2000; ++i) {
        QByteArray bytes = good;
        const int at = chance.bounded(bytes.size());
        switch (i % 4) {
        case 0:
            bytes[at] = char(bytes[at] ^ (1 << chance.bounded(8)));
            break;
        case 1:
            bytes.truncate(at);
            break;
        case 2:
            bytes.remove(at, 1 + chance.bounded(200));
            break;
        default:
            bytes.insert(at, QByteArray(1 + chance.bounded(200), char(chance.bounded(256))));
        }
        QVERIFY2(readSession(bytes, index) != IndexState::Good, qPrintable(QString::number(i)));
        QVERIFY(index.session.jobs.isEmpty() && index.session.clips.isEmpty());
    }
}

void TestSessionFile::forgedIndexIsRefused_data() {
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto add = [](const char* name, const char* before, const char* after) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(after);
    };
    add("job behind the last", "\"job\":1", "\"job\":2");
    add("job before the first", "\"job\":1", "\"job\":-1");
    add("half a job", "\"job\":1", "\"job\":0.5");
    add("job that is a text", "\"job\":1", "\"job\":\"1\"");
    add("job without an end", "\"job\":1", "\"job\":1e300");
    add("status that is none", "\"status\":4", "\"status\":6");
    add("state that is none", "\"state\":1", "\"state\":5");
    add("negative clip number", "\"index\":5", "\"index\":-5");
    add("clip number too large", "\"index\":5", "\"index\":4294967296");
    add("clip number without one behind it", "\"index\":5", "\"index\":2147483647");
    add("next number without one behind it", "\"nextClip\":7", "\"nextClip\":2147483647");
    add("negative size", "\"size\":4711", "\"size\":-4711");
    add("start missing", "\"snapshotTime\"", "\"snapshotTimes\"");
    add("start that is a list", "\"snapshotTime\":", "\"snapshotTime\":[0],\"x\":");
    add("step that is none", "\"step\":3", "\"step\":5");
    add("step 0", "\"step\":3", "\"step\":0");
    add("negative skip", "\"skip\":3", "\"skip\":-3");
    add("rectangle far away", "[1,2,30,40]", "[1,2,30,40000000]");
    add("rectangle with three sides", "[1,2,30,40]", "[1,2,30]");
    add("rectangle with five sides", "[1,2,30,40]", "[1,2,30,40,50]");
    add("packets below none", "\"damagedPackets\":4711", "\"damagedPackets\":-1");
    add("file smaller than nothing", "\"bytes\":4711", "\"bytes\":-4711");
    add("folder that could be an option", "\"folder\":\"/clips", "\"folder\":\"-clips");
    add("time of a file that is none", "1700000000123456789", "17000000001234567890");
    add("no time", "2026-02-03", "2026-02-31");
    add("clips missing", "\"clips\"", "\"clops\"");
    add("jobs that are none", "\"jobs\":[", "\"jobs\":[7,");
    add("no object", "{\"clips\"", "[{\"clips\"");
}

void TestSessionFile::forgedIndexIsRefused() {
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QByteArray text = goodText();
    const int at = text.indexOf(before);
    QVERIFY2(at >= 0, text.constData());
    text.replace(at, before.size(), after);
    SessionIndex index;
    QVERIFY(readSession(sealed(text), index) == IndexState::Damaged);
    QVERIFY(index.session.jobs.isEmpty());
}

void TestSessionFile::damagedSessionIsPutAside() {
    for (int number = 1; number <= 2; ++number) {
        save(sessions::full());
        QByteArray damaged = contentOf(path("index"));
        damaged.chop(number);
        write(path("index"), damaged);
        const auto other = store();
        const LastSession last = other->look();
        QVERIFY(last.state == IndexState::Damaged);
        QCOMPARE(last.recordings, 0);
        const QString aside = folder->filePath("data/session.damaged-%1").arg(number);
        QCOMPARE(last.putAside, aside);
        QCOMPARE(contentOf(aside + "/index"), damaged);
        QCOMPARE(QDir(aside + "/pictures").entryList(QDir::Files).size(), 3);
        QVERIFY(!QFile::exists(path("index")));
        QCOMPARE(other->save(sessions::full()), QString()); // this one is kept
        QVERIFY(QFile::exists(path("index")));
    }
}

void TestSessionFile::otherVersionIsPutAside() {
    save(sessions::full());
    write(path("index"), sealed("{\"later\":true}", "2"));
    const LastSession last = store()->look();
    QVERIFY(last.state == IndexState::OtherVersion);
    QCOMPARE(last.putAside, folder->filePath("data/session.damaged-1"));
}

void TestSessionFile::sessionThatStaysWhereItIs() {
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        const ProcessResult result =
            runProgramIn(faults::callError("rename", EROFS, "session.damaged"),
                         QCoreApplication::applicationFilePath(), {"sessionThatStaysWhereItIs"});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    save(sessions::full());
    write(path("index"), "garbage");
    const auto other = store();
    const LastSession last = other->look();
    QVERIFY(last.putAside.isEmpty());
    QCOMPARE(last.failure, qt_error_string(EROFS));
    QCOMPARE(other->save(sessions::full()), qt_error_string(EROFS));
    QCOMPARE(contentOf(path("index")), QByteArray("garbage"));
}

void TestSessionFile::picturesThatCannotBeRead() {
    SavedSession session;
    session.jobs = {sessions::plainJob("/videos/plain.avi", 4)};
    for (int i = 0; i < 200; ++i)
        session.clips.append(sessions::clip(0, i, 0));
    save(session);
    SessionIndex index;
    QVERIFY(readSession(contentOf(path("index")), index) == IndexState::Good);
    QRandomGenerator chance(3);
    const auto fileOf = [&](int clip) { return path("pictures/" + index.snapshots[clip]); };
    for (int i = 0; i < 200; i += 4) {
        QVERIFY(QFile::remove(fileOf(i)));
        write(fileOf(i + 1), contentOf(fileOf(i + 3))); // another's picture
        QByteArray spoiled = contentOf(fileOf(i + 2));
        spoiled[chance.bounded(spoiled.size())] = char(chance.bounded(256));
        spoiled.truncate(chance.bounded(spoiled.size() * 2));
        write(fileOf(i + 2), spoiled);
    }
    const SavedSession found = readBack();
    QCOMPARE(found.clips.size(), 200);
    for (int i = 0; i < 200; i += 4) {
        QVERIFY(found.clips[i].snapshot.isNull());
        QVERIFY(found.clips[i + 1].snapshot.isNull());
        const QImage& spoiled = found.clips[i + 2].snapshot; // or only what stands beside it was
        QVERIFY(spoiled.isNull() || spoiled == session.clips[i + 2].snapshot);
        QCOMPARE(found.clips[i + 3].snapshot, session.clips[i + 3].snapshot);
    }
}

void TestSessionFile::regionThatIsLost() {
    SavedSession session = sessions::full();
    session.jobs[1].mask = sessions::mask();
    save(session);
    for (const QString& name : pictures()) {
        if (QImage(path("pictures/" + name)).hasAlphaChannel())
            QVERIFY(QFile::remove(path("pictures/" + name)));
    }
    // What was to be searched with a region is not searched without one.
    const SavedSession found = readBack();
    QCOMPARE(found.jobs[0].state, int(Video::CancelRequested));
    QVERIFY(found.jobs[0].mask.isNull() && !found.jobs[0].roiRect);
    QCOMPARE(found.jobs[1].state, int(Video::Finished));
}

void TestSessionFile::exportedFileThatIsGone() {
    SavedSession session = sessions::full();
    write(folder->filePath("there.mp4"), "recorded");
    write(folder->filePath("empty.mp4"), "");
    session.clips[0].outputPath = folder->filePath("there.mp4");
    session.clips[1].outputPath = folder->filePath("empty.mp4");
    session.clips[2].outputPath = folder->filePath("gone.mp4");
    save(session);
    const SavedSession found = readBack();
    QVERIFY(!found.clips[0].isFileMissing);
    QVERIFY(found.clips[1].isFileMissing);
    QVERIFY(found.clips[2].isFileMissing);
}

/// A program that is killed cannot note what it has just exported.
void TestSessionFile::numbersOfFilesAreTaken() {
    SavedSession session;
    session.jobs = {sessions::plainJob("/videos/a.mp4", 2), sessions::plainJob("/videos/b.mp4", 2)};
    session.jobs[0].clipDirectory = folder->filePath("a_mp4_0");
    session.jobs[0].nextClipNumber = 3;
    session.jobs[1].nextClipNumber = 3;
    QVERIFY(QDir().mkpath(session.jobs[0].clipDirectory));
    for (const char* name : {"0001.avi", "0007.mkv", "0099", "12.avi", "2147483647.avi", "x8.avi"})
        write(session.jobs[0].clipDirectory + '/' + name, "a file");
    QVERIFY(QDir().mkpath(session.jobs[0].clipDirectory + "/0200.avi"));
    save(session);
    const SavedSession found = readBack();
    QCOMPARE(found.jobs[0].nextClipNumber, 100);
    QCOMPARE(found.jobs[1].nextClipNumber, 3);
}

/// Also where an older version of the program has made the folder.
void TestSessionFile::folderIsItsOwners() {
    const mode_t before = umask(022);
    QVERIFY(QDir().mkpath(path("pictures")));
    write(path("index"), "readable");
    QCOMPARE(modeOf(path("index")), 0644);
    save(sessions::full());
    umask(before);
    QCOMPARE(modeOf(path(".")), 0700);
    QCOMPARE(modeOf(path("pictures")), 0700);
    QCOMPARE(modeOf(path("index")), 0600);
    for (const QString& name : pictures())
        QCOMPARE(modeOf(path("pictures/" + name)), 0600);
}

void TestSessionFile::foldersOfOthersAreNotUsed_data() {
    QTest::addColumn<bool>("isLink");
    QTest::newRow("link") << true;
    QTest::newRow("owner") << false;
}

void TestSessionFile::foldersOfOthersAreNotUsed() {
    QFETCH(bool, isLink);
    save(sessions::full());
    const QString planted = folder->filePath("planted");
    if (isLink) {
        QVERIFY(QDir().rename(folder->filePath("data/session"), planted));
        QVERIFY(QFile::link(planted, folder->filePath("data/session")));
    } else if (chown(QFile::encodeName(path(".")).constData(), 65534, 65534) != 0) {
        QSKIP("only root can give a folder to somebody else");
    }
    const QByteArray before = contentOf(path("index"));
    SessionKeeper keeper(folder->filePath("data/session"), [] { return SavedSession(); });
    QSignalSpy told(&keeper, SIGNAL(told(QString)));
    QSignalSpy found(&keeper, SIGNAL(found(int, int)));
    keeper.look();
    QVERIFY(told.wait());
    QVERIFY2(told[0][0].toString().contains(isLink ? "is a link" : "belongs to somebody else"),
             qPrintable(told[0][0].toString()));
    keeper.change();
    QTest::qWait(1500);
    QCOMPARE(told.size(), 1); // once
    QCOMPARE(found.size(), 0);
    QCOMPARE(contentOf(path("index")), before);
}

void TestSessionFile::secondProgramKeepsNone() {
    const auto first = store();
    QCOMPARE(first->save(sessions::full()), QString());
    const QByteArray kept = contentOf(path("index"));
    const auto second = store();
    const LastSession last = second->look();
    QVERIFY(last.isOthers);
    QCOMPARE(last.recordings, 0);
    QCOMPARE(second->save({}), QString());
    QCOMPARE(contentOf(path("index")), kept);
}

void TestSessionFile::otherProgramKeepsNone() {
    save(sessions::full());
    const HoldingProgram other(path("../session.lock"), HoldingProgram::Stays);
    QVERIFY(other.hasHeld());
    const auto mine = store();
    QVERIFY(mine->look().isOthers);
    QCOMPARE(mine->save({}), QString());
    QCOMPARE(readBack().jobs.size(), 0);
}

/// As a program does that is killed while it starts an encoder.
void TestSessionFile::lockEndsThoughAChildIsLeft() {
    save(sessions::full());
    const HoldingProgram killed(path("../session.lock"), HoldingProgram::LeavesAChild);
    QVERIFY(killed.hasHeld());
    QCOMPARE(store()->look().recordings, 2);
}

void TestSessionFile::lockEndsWithItsProgram() {
    save(sessions::full());
    // Killed between making the file and writing into it, or in the middle; and a number that
    // another program has now.
    for (const QByteArray& content :
         {QByteArray(), QByteArray("12"), QByteArray::number(qlonglong(getppid()))}) {
        write(path("../session.lock"), content);
        QCOMPARE(store()->look().recordings, 2);
    }
}

void TestSessionFile::nothingElseIsTakenForALock_data() {
    QTest::addColumn<QString>("kind");
    QTest::newRow("link") << "link";
    QTest::newRow("folder") << "folder";
    QTest::newRow("pipe") << "pipe";
}

void TestSessionFile::nothingElseIsTakenForALock() {
    QFETCH(QString, kind);
    save(sessions::full());
    const QByteArray kept = contentOf(path("index"));
    const QString lock = path("../session.lock");
    QVERIFY(QFile::remove(lock));
    if (kind == "link")
        QVERIFY(QFile::link(folder->filePath("planted"), lock));
    else if (kind == "folder")
        QVERIFY(QDir().mkdir(lock));
    else
        QCOMPARE(mkfifo(QFile::encodeName(lock).constData(), 0600), 0);
    const auto other = store();
    QCOMPARE(other->look().recordings, 0);
    QVERIFY(!other->save({}).isEmpty());
    QCOMPARE(contentOf(path("index")), kept);
    QVERIFY(!QFile::exists(folder->filePath("planted")));
}

/// What is listed is kept there, too, though a second program is not kept out.
void TestSessionFile::fileSystemWithoutLocks() {
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        const ProcessResult result =
            runProgramIn(faults::callError("lock", ENOLCK, "/session.lock", 0),
                         QCoreApplication::applicationFilePath(), {"fileSystemWithoutLocks"});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    save(sessions::full());
    QCOMPARE(store()->look().recordings, 2);
}

void TestSessionFile::whatAKilledProgramLeft() {
    save(sessions::full());
    write(path("index.ab12cd"), "half");
    write(path("pictures/0123.ab12cd"), "half");
    const auto other = store();
    QCOMPARE(other->look().recordings, 2);
    QCOMPARE(other->save({}), QString());
    QCOMPARE(QDir(path(".")).entryList(QDir::Files), QStringList{"index"});
    QCOMPARE(pictures(), QStringList());
}

void TestSessionFile::failingDisk_data() {
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("room");
    QTest::newRow("no room at all") << QByteArray("write") << ENOSPC << "/session/" << 0;
    QTest::newRow("no room for a picture") << QByteArray("write") << ENOSPC << "/pictures/" << 50;
    QTest::newRow("no room for the index") << QByteArray("write") << ENOSPC << "/index" << 100;
    QTest::newRow("not on the disk") << QByteArray("fsync") << EIO << "/index" << 0;
    QTest::newRow("not renamed") << QByteArray("rename") << EACCES << "/index" << 0;
    QTest::newRow("no folder") << QByteArray("mkdir") << EROFS << "/session" << 0;
}

void TestSessionFile::failingDisk() {
    QFETCH(QByteArray, call);
    QFETCH(int, error);
    QFETCH(QString, file);
    QFETCH(int, room);
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        const QByteArray row = QByteArray("failingDisk:") + QTest::currentDataTag();
        const ProcessResult result =
            runProgramIn(faults::callError(call.constData(), error, file, room),
                         QCoreApplication::applicationFilePath(), {QString::fromLatin1(row)});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    const auto failing = store();
    failing->look();
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(failing->save(sessions::full()), qt_error_string(error));
        QVERIFY(!QFile::exists(path("index")));
    }
    QCOMPARE(QDir(path(".")).entryList({"index*"}, QDir::Files), QStringList());
    QVERIFY(!pictures().join(' ').contains('.')); // nothing half written
}

void TestSessionFile::keeperWaitsForTheLastChange() {
    int asked = 0;
    SessionKeeper keeper(folder->filePath("data/session"), [&asked] {
        ++asked;
        return sessions::full();
    });
    for (int i = 0; i < 10; ++i) {
        keeper.change();
        QTest::qWait(50);
    }
    QCOMPARE(asked, 0);
    QTRY_VERIFY(QFile::exists(path("index")));
    QCOMPARE(asked, 1);
}

void TestSessionFile::keeperWritesDuringSteadyChange() {
    SessionKeeper keeper(folder->filePath("data/session"), sessions::full);
    QTimer steady;
    connect(&steady, SIGNAL(timeout()), &keeper, SLOT(change()));
    steady.start(100);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(path("index")), 8000);
}

void TestSessionFile::keeperWritesAtTheEnd() {
    SessionKeeper keeper(folder->filePath("data/session"), sessions::full);
    keeper.change();
    keeper.finish();
    QVERIFY(QFile::exists(path("index")));
}

/// The program ends before the pictures are written.
void TestSessionFile::keeperEndsWhatItIsWriting() {
    SavedSession session = sessions::full();
    for (int i = 10; i < 70; ++i) {
        session.clips.append(sessions::clip(0, i, 0));
        QImage& noise = session.clips.last().snapshot = QImage(320, 240, QImage::Format_RGB32);
        auto* pixels = reinterpret_cast<quint32*>(noise.bits());
        QRandomGenerator(uint(i)).generate(pixels, pixels + noise.sizeInBytes() / 4);
    }
    bool isAsked = false;
    {
        SessionKeeper keeper(folder->filePath("data/session"), [&] {
            isAsked = true;
            return session;
        });
        keeper.change();
        QTRY_VERIFY(isAsked);
        QVERIFY(!QFile::exists(path("index")));
        keeper.finish();
    }
    QCOMPARE(store()->look().clips, session.clips.size()); // pictures may take too long
}

void TestSessionFile::keeperTellsAFailureOnce() {
    QVERIFY(QDir().mkpath(folder->filePath("data/session")));
    write(path("pictures"), "in the place of a folder");
    SessionKeeper keeper(folder->filePath("data/session"), sessions::full);
    QSignalSpy told(&keeper, SIGNAL(told(QString)));
    keeper.change();
    QVERIFY(told.wait());
    QVERIFY(told[0][0].toString().startsWith("The session cannot be kept: "));
    keeper.change();
    QVERIFY(!told.wait(2000));
    QVERIFY(QFile::remove(path("pictures")));
    keeper.change();
    QTRY_VERIFY(QFile::exists(path("index")));
    QCOMPARE(told.size(), 1);
    // A later failure is told again.
    QVERIFY(QDir(path("pictures")).removeRecursively());
    write(path("pictures"), "in the place of a folder");
    keeper.change();
    QVERIFY(told.wait());
}

void TestSessionFile::keeperHoldsBackWhileItReads() {
    save(sessions::full());
    const QByteArray kept = contentOf(path("index"));
    SessionKeeper keeper(folder->filePath("data/session"), [] { return SavedSession(); });
    QSignalSpy found(&keeper, SIGNAL(found(int, int)));
    keeper.look();
    QVERIFY(found.wait());
    QCOMPARE(found[0], QVariantList({2, 3}));
    SavedSession session;
    connect(&keeper, &SessionKeeper::readBack, this,
            [&session](const SavedSession& read) { session = read; });
    QVERIFY(keeper.read());
    keeper.change();
    QTRY_COMPARE(session.jobs.size(), 2);
    QTest::qWait(1500);
    QCOMPARE(contentOf(path("index")), kept);
    keeper.resume();
    QTRY_VERIFY(contentOf(path("index")) != kept);
}

QTEST_GUILESS_MAIN(TestSessionFile)
#include "test_sessionfile.moc"
