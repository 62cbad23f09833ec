// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What is put aside in a file without a name, and maps that lie there: the same as in memory, and
// never something else, whatever becomes of the file.

#include "asidefile.h"
#include "cellmaps.h"
#include "cellsfile.h"
#include "filelimit.h"
#include "files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <new>
#include <random>
#include <thread>

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes someBytes(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes(size);
    for (std::uint8_t& byte : bytes)
        byte = std::uint8_t(random());
    return bytes;
}

Bytes bytesAt(const FilePlacePointer& place) {
    Bytes bytes;
    return place && readAt(*place, bytes) ? bytes : Bytes();
}

/// That the file takes on its disk.
qint64 diskBytes(int descriptor) {
    struct stat found {};
    return fstat(descriptor, &found) == 0 ? qint64(found.st_blocks) * 512 : -1;
}

constexpr CellGrid grid{160, 120};
constexpr int busyCount = 2000; // some 16 MB, packed

/// The maps of a picture in which anything changes at any time, one by one.
class BusyMaps {
public:
    const CellMap& next() {
        for (std::size_t cell = 0; cell < map.steps.size(); cell += 32) {
            std::uint64_t bits = random();
            for (std::size_t i = 0; i < 32 && cell + i < map.steps.size(); ++i, bits >>= 2)
                map.steps[cell + i] = std::uint8_t(bits & 3);
        }
        return map;
    }

private:
    std::mt19937_64 random{1};
    CellMap map{grid};
};

CellMaps busyMaps() {
    CellMaps maps;
    BusyMaps all;
    for (int i = 0; i < busyCount; ++i)
        maps.append(all.next());
    return maps;
}

/// Whether all of them are those of `BusyMaps`. Throws what reading throws.
bool areBusy(const CellMaps& maps) {
    CellMapsReader reader(maps);
    BusyMaps expected;
    int count = 0;
    while (const CellMap* map = reader.next()) {
        if (map->steps != expected.next().steps)
            return false;
        ++count;
    }
    return count == busyCount;
}

struct Bytewise {
    std::size_t inMemory = 0;
    std::size_t inFiles = 0;
};

Bytewise sizeOf(const CellMaps& maps) {
    Bytewise size;
    for (const StoredBlock& block : maps.blocks())
        (block.isInMemory() ? size.inMemory : size.inFiles) += block.size();
    return size;
}

CellsOrigin origin() {
    return {7, QByteArray(64, 'a'), busyCount};
}

/// The most memory that this process ever had, in bytes.
qint64 peak() {
    struct rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) * 1024;
}

} // namespace

class TestAsideFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // First, since the peak of the whole process is looked at.
    void mapsTakeLittleMemory();

    void hasNoName();
    void givesBackWhatWasPut();
    void servesManyThreads();
    void whatNobodyHoldsTakesNoDisk();
    void liesWhereItIsAskedTo();
    void fullDiskTakesNothing();
    void cutOffFileIsNotRead();

    void mapsAreWrittenFromTheFile();
    void mapsStayInMemoryWithoutAFile();
    void mapsThatAreGoneAreNoOthers();
    void keptMapsAreLeftInTheirFile();
    void keptMapsThatAreReplacedStayThemselves();
    void keptMapsThatAreOverwrittenAreNoOthers();

private:
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

void TestAsideFile::mapsTakeLittleMemory() {
    BusyMaps all;
    CellMaps maps;
    for (int i = 0; i < mostBlockMaps + 1; ++i) // what packs one block
        maps.append(all.next());
    const qint64 before = peak();
    for (int i = mostBlockMaps + 1; i < busyCount; ++i)
        maps.append(all.next());
    const qint64 more = peak() - before;
    constexpr std::size_t most = 8 * mostMapsInMemory; // packing takes most of that
    const Bytewise size = sizeOf(maps);
    QVERIFY(size.inFiles > most);
    QVERIFY(size.inMemory < 2 * mostMapsInMemory); // with the block that is not full yet
#ifndef __SANITIZE_ADDRESS__                       // it keeps what was let go for a while
    QVERIFY2(more < qint64(most), qPrintable(QString::number(more)));
#else
    Q_UNUSED(more)
#endif
    QVERIFY(areBusy(maps));
}

void TestAsideFile::hasNoName() {
    AsideFile file;
    const FilePlacePointer place = file.put(someBytes(10, 1));
    QVERIFY(place);
    struct stat found {};
    QCOMPARE(fstat(place->descriptor, &found), 0);
    QCOMPARE(int(found.st_nlink), 0);
    QCOMPARE(int(found.st_mode & 0777), 0600);
    QVERIFY((fcntl(place->descriptor, F_GETFD) & FD_CLOEXEC) != 0);
}

void TestAsideFile::givesBackWhatWasPut() {
    AsideFile file;
    std::vector<FilePlacePointer> places;
    const std::vector<std::size_t> sizes{1, 4095, 4096, 4097, 100000, 0};
    for (const std::size_t size : sizes)
        places.push_back(file.put(someBytes(size, unsigned(size))));
    places[2].reset();
    places[2] = file.put(someBytes(sizes[2], 4096));
    for (std::size_t i = 0; i < sizes.size(); ++i)
        QVERIFY(bytesAt(places[i]) == someBytes(sizes[i], unsigned(sizes[i])));
}

void TestAsideFile::servesManyThreads() {
    AsideFile file;
    std::atomic<int> good{0};
    std::vector<std::thread> threads;
    for (unsigned thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&file, &good, thread] {
            std::vector<FilePlacePointer> places;
            for (unsigned i = 0; i < 200; ++i) {
                places.push_back(file.put(someBytes(1000 + 37 * i, thread * 1000 + i)));
                if (i % 3 == 2)
                    places[i - 1].reset();
            }
            for (unsigned i = 0; i < 200; ++i) {
                if (places[i] && bytesAt(places[i]) == someBytes(1000 + 37 * i, thread * 1000 + i))
                    ++good;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(good.load(), 4 * (200 - 66));
}

void TestAsideFile::whatNobodyHoldsTakesNoDisk() {
    constexpr std::size_t large = 1000 * 1000;
    AsideFile file;
    FilePlacePointer first = file.put(someBytes(large, 1));
    FilePlacePointer second = file.put(someBytes(large, 2));
    QVERIFY(first && second);
    const int descriptor = first->descriptor;
    QVERIFY(QFile(QString("/proc/self/fd/%1").arg(descriptor)).size() >= qint64(2 * large));
    fsync(descriptor); // what is not written yet may not be counted
    const qint64 both = diskBytes(descriptor);
    first.reset();
    QVERIFY2(diskBytes(descriptor) <= both - qint64(large), "holes cannot be made here");
    QVERIFY(bytesAt(second) == someBytes(large, 2));
    second.reset();
    QCOMPARE(diskBytes(descriptor), qint64(0));
    QVERIFY(bytesAt(file.put(someBytes(large, 3))) == someBytes(large, 3));
}

void TestAsideFile::liesWhereItIsAskedTo() {
    const auto folderOf = [] {
        AsideFile file;
        const FilePlacePointer place = file.put(someBytes(10, 1));
        const QString link = QString("/proc/self/fd/%1").arg(place ? place->descriptor : -1);
        return QFileInfo(QFile::symLinkTarget(link)).path();
    };
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(folder.path()));
    QCOMPARE(folderOf(), folder.path());
    qputenv("TMPDIR", QFile::encodeName(path("missing")));
    const QString other = folderOf();
    qputenv("TMPDIR", before);
    QVERIFY2(other == "/var/tmp" || other == "/tmp", qPrintable(other));
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TestAsideFile::fullDiskTakesNothing() {
    AsideFile file;
    const FilePlacePointer place = file.put(someBytes(5000, 1));
    {
        const FileLimit limit(10000);
        QVERIFY(!file.put(someBytes(5000, 2))); // a part of it has room
        QVERIFY(!file.put(someBytes(5000, 2)));
    }
    QVERIFY(bytesAt(file.put(someBytes(5000, 3))) == someBytes(5000, 3));
    QVERIFY(bytesAt(place) == someBytes(5000, 1));
}

void TestAsideFile::cutOffFileIsNotRead() {
    AsideFile file;
    const FilePlacePointer place = file.put(someBytes(5000, 1));
    QCOMPARE(ftruncate(place->descriptor, 4999), 0);
    Bytes bytes;
    QVERIFY(!readAt(*place, bytes));
}

void TestAsideFile::mapsAreWrittenFromTheFile() {
    const CellMaps aside = busyMaps();
    CellMaps inMemory;
    {
        const FileLimit limit(0);
        inMemory = busyMaps();
    }
    QVERIFY(sizeOf(aside).inFiles > 0);
    QCOMPARE(sizeOf(inMemory).inFiles, std::size_t(0));
    QCOMPARE(writeCells(aside, origin(), path("aside")), QString());
    QCOMPARE(writeCells(inMemory, origin(), path("memory")), QString());
    QVERIFY(readFile(path("aside")) == readFile(path("memory")));
}

void TestAsideFile::mapsStayInMemoryWithoutAFile() {
    CellMaps maps;
    {
        const FileLimit limit(0);
        maps = busyMaps();
    }
    QCOMPARE(sizeOf(maps).inFiles, std::size_t(0));
    QVERIFY(areBusy(maps));
}

void TestAsideFile::mapsThatAreGoneAreNoOthers() {
    const CellMaps maps = busyMaps();
    const int descriptor = AsideFile::instance().put(someBytes(1, 1))->descriptor;
    const auto before = off_t(QFile(QString("/proc/self/fd/%1").arg(descriptor)).size());
    QCOMPARE(ftruncate(descriptor, before / 2), 0);
    QVERIFY_EXCEPTION_THROWN(areBusy(maps), std::bad_alloc);
    QCOMPARE(writeCells(maps, origin(), path("gone")), QString("out of memory"));
    QCOMPARE(ftruncate(descriptor, before), 0); // what is missing is zeros now
    QVERIFY_EXCEPTION_THROWN(areBusy(maps), std::bad_alloc);
    QCOMPARE(writeCells(maps, origin(), path("gone")), QString("out of memory"));
    QVERIFY(!QFile::exists(path("gone")));
}

void TestAsideFile::keptMapsAreLeftInTheirFile() {
    QCOMPARE(writeCells(busyMaps(), origin(), path("kept")), QString());
    const CellsReading kept = readCells(path("kept"), origin());
    const Bytewise size = sizeOf(kept.maps);
    QVERIFY(size.inMemory <= mostMapsInMemory);
    QVERIFY(size.inFiles > 8 * mostMapsInMemory);
    QVERIFY(areBusy(kept.maps));
}

/// As by another run of the program.
void TestAsideFile::keptMapsThatAreReplacedStayThemselves() {
    QCOMPARE(writeCells(busyMaps(), origin(), path("kept")), QString());
    const CellsReading kept = readCells(path("kept"), origin());
    QCOMPARE(writeCells(CellMaps(), origin(), path("kept")), QString());
    QVERIFY(areBusy(kept.maps));
    QVERIFY(QFile::remove(path("kept")));
    QVERIFY(areBusy(kept.maps));
}

void TestAsideFile::keptMapsThatAreOverwrittenAreNoOthers() {
    QCOMPARE(writeCells(busyMaps(), origin(), path("kept")), QString());
    const CellsReading kept = readCells(path("kept"), origin());
    QFile file(path("kept"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek(file.size() / 2));
    QCOMPARE(file.write("another"), qint64(7));
    file.close();
    QVERIFY_EXCEPTION_THROWN(areBusy(kept.maps), std::bad_alloc);
}

QTEST_GUILESS_MAIN(TestAsideFile)
#include "test_asidefile.moc"
