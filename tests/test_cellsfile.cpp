// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The file with maps by itself: what is written is read back, and nothing else is.

#include "cellsfile.h"
#include "files.h"
#include "valuesname.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <random>

namespace {

using State = CellsReading::State;

const QByteArray valuesDigest(64, 'a');

CellMap someMap(CellGrid grid, std::mt19937& random) {
    CellMap map(grid);
    map.brighter = CellBits(grid);
    for (int i = 0; i < grid.count() / 3; ++i) {
        const auto cell = int(random() % map.steps.size());
        map.steps[std::size_t(cell)] = std::uint8_t(random() % (cellSteps.size() + 1));
        map.brighter.add(cell % grid.columns, cell / grid.columns);
    }
    return map;
}

/// Of two grids, and more than two blocks.
CellMaps sample() {
    CellMaps maps;
    std::mt19937 random(1);
    for (int i = 0; i < mostBlockMaps + 20; ++i)
        maps.append(someMap({37, 23}, random));
    for (int i = 0; i < 30; ++i)
        maps.append(someMap({16, 9}, random));
    return maps;
}

const int sampleCount = mostBlockMaps + 50;

CellsOrigin originOf(int count) {
    return {7, valuesDigest, count};
}

bool areSame(const CellMaps& left, const CellMaps& right) {
    CellMapsReader one(left);
    CellMapsReader other(right);
    for (int i = 0; i < left.count(); ++i) {
        const CellMap* a = one.next();
        const CellMap* b = other.next();
        if (!a || !b || a->grid != b->grid || a->steps != b->steps ||
            a->brighter.words != b->brighter.words)
            return false;
    }
    return left.count() == right.count();
}

// Where things lie, as docs/formats.md has it.
constexpr int formatPlace = 16;
constexpr int definitionPlace = 20;
constexpr int countPlace = 24;
constexpr int blocksPlace = 28;
constexpr int digestPlace = 32;
constexpr int listPlace = 64;
constexpr int entryBytes = 20;

int numberAt(const QByteArray& bytes, int place) {
    return int(qFromLittleEndian<quint32>(bytes.constData() + place));
}

void setNumber(quint32 number, QByteArray& bytes, int place) {
    qToLittleEndian(number, bytes.data() + place);
}

/// With the digest that its head should have, whatever else is wrong with it.
QByteArray sealed(QByteArray bytes) {
    const int end = listPlace + entryBytes * numberAt(bytes, blocksPlace);
    return bytes.replace(end, 32,
                         QCryptographicHash::hash(bytes.left(end), QCryptographicHash::Sha256));
}

/// The most memory that this process ever had, in KiB.
long peak() {
    struct rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace

class TestCellsFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void readsBackWhatWasWritten();
    void givesTheSameBytesEachTime();
    void liesAsItIsDescribed();
    void noMapsAreNone();
    void ofAnotherOriginIsFlawed_data();
    void ofAnotherOriginIsFlawed();
    void forgedFilesAreFlawed_data();
    void forgedFilesAreFlawed();
    void damagedFilesAreFlawed_data();
    void damagedFilesAreFlawed();
    void forgedBlocksDoNoHarm();
    void absurdSizesTakeNoMemory_data();
    void absurdSizesTakeNoMemory();
    void whatIsNoFileIsFlawed();
    void missingIsNoFlaw();
    void whatCannotBeWrittenSaysWhy();
    void leavesNothingBesideIt();

private:
    QString path(const QString& name = QStringLiteral("a.cells")) const {
        return folder.filePath(name);
    }

    CellsReading readBytes(const QByteArray& bytes) const {
        return writeFile(path(), bytes) ? readCells(path(), originOf(sampleCount)) : CellsReading();
    }

    QTemporaryDir folder;
    QByteArray whole; ///< the sample's file
};

void TestCellsFile::initTestCase() {
    QCOMPARE(writeCells(sample(), originOf(sampleCount), path()), QString());
    whole = readFile(path());
    QCOMPARE(readBytes(whole).state, State::Good);
}

void TestCellsFile::readsBackWhatWasWritten() {
    const CellsReading reading = readBytes(whole);
    QCOMPARE(reading.flaw, QString());
    QCOMPARE(reading.state, State::Good);
    QCOMPARE(reading.maps.count(), sampleCount);
    QVERIFY(areSame(reading.maps, sample()));
}

void TestCellsFile::givesTheSameBytesEachTime() {
    QCOMPARE(writeCells(sample(), originOf(sampleCount), path()), QString());
    QCOMPARE(readFile(path()), whole);
    QCOMPARE(writeCells(readBytes(whole).maps, originOf(sampleCount), path()), QString());
    QCOMPARE(readFile(path()), whole);
}

void TestCellsFile::liesAsItIsDescribed() {
    QCOMPARE(whole.left(16), QByteArray("kestrova cells \n"));
    QCOMPARE(numberAt(whole, formatPlace), 1);
    QCOMPARE(numberAt(whole, definitionPlace), 7);
    QCOMPARE(numberAt(whole, countPlace), 300);
    QCOMPARE(numberAt(whole, blocksPlace), 3);
    QCOMPARE(whole.mid(digestPlace, 32), QByteArray(32, '\xaa'));
    const int counts[] = {250, 20, 30};
    qint64 end = listPlace + 3 * entryBytes + 32;
    for (int i = 0; i < 3; ++i) {
        const int place = listPlace + i * entryBytes;
        QCOMPARE(numberAt(whole, place), i < 2 ? 37 | 23 << 16 : 16 | 9 << 16);
        QCOMPARE(numberAt(whole, place + 4), counts[i]);
        end += numberAt(whole, place + 8);
    }
    QCOMPARE(qint64(whole.size()), end);
    QCOMPARE(sealed(whole), whole);
}

void TestCellsFile::noMapsAreNone() {
    QCOMPARE(writeCells(CellMaps(), originOf(0), path()), QString());
    QCOMPARE(readCells(path(), originOf(0)).state, State::Good);
    QCOMPARE(readCells(path(), originOf(1)).state, State::Flawed);
}

void TestCellsFile::ofAnotherOriginIsFlawed_data() {
    QTest::addColumn<int>("definition");
    QTest::addColumn<QByteArray>("digest");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("flaw");
    QTest::newRow("definition") << 8 << valuesDigest << sampleCount
                                << "it was measured by another version of this program";
    QTest::newRow("values") << 7 << QByteArray(64, 'b') << sampleCount << "it is of other values";
    QTest::newRow("fewer values") << 7 << valuesDigest << sampleCount - 1 << "its head is damaged";
    QTest::newRow("more values") << 7 << valuesDigest << sampleCount + 1 << "its head is damaged";
}

void TestCellsFile::ofAnotherOriginIsFlawed() {
    QFETCH(int, definition);
    QFETCH(QByteArray, digest);
    QFETCH(int, count);
    QVERIFY(writeFile(path(), whole));
    const CellsReading reading = readCells(path(), {definition, digest, count});
    QCOMPARE(reading.state, State::Flawed);
    QTEST(reading.flaw, "flaw");
    QCOMPARE(reading.maps.count(), 0);
}

void TestCellsFile::forgedFilesAreFlawed_data() {
    QTest::addColumn<int>("place");
    QTest::addColumn<quint32>("number");
    const auto row = [](const char* name, int place, quint32 number) {
        QTest::newRow(name) << place << number;
    };
    row("newer", formatPlace, 2);
    row("older than the first", formatPlace, 0);
    row("no maps", countPlace, 0);
    row("maps without end", countPlace, 0xFFFFFFFF);
    row("a block less", blocksPlace, 2);
    row("a block more", blocksPlace, 4);
    row("no blocks", blocksPlace, 0);
    row("blocks without end", blocksPlace, 0xFFFFFFFF);
    row("many blocks", blocksPlace, 0x7FFFFFFF);
    row("columns", listPlace, 161 | 23 << 16);
    row("rows", listPlace, 37 | 641 << 16);
    row("block without maps", listPlace + 4, 0);
    row("block with a map more", listPlace + 4, 251);
    row("block with a map less", listPlace + 4, 249);
    row("block with endless maps", listPlace + 4, 0xFFFFFFFF);
    row("block without bytes", listPlace + 8, 0);
    row("block with endless bytes", listPlace + 8, 0xFFFFFFFF);
    row("block with another sum", listPlace + 12, 1);
}

/// Each has the digest that belongs to it: somebody took pains.
void TestCellsFile::forgedFilesAreFlawed() {
    QFETCH(int, place);
    QFETCH(quint32, number);
    QByteArray bytes = whole;
    setNumber(number, bytes, place);
    const bool isListThere = numberAt(bytes, blocksPlace) >= 0 && numberAt(bytes, blocksPlace) < 9;
    const CellsReading reading = readBytes(isListThere ? sealed(bytes) : bytes);
    QCOMPARE(reading.state, State::Flawed);
    QVERIFY(!reading.flaw.isEmpty());
}

void TestCellsFile::damagedFilesAreFlawed_data() {
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"bit", "byte", "cut", "gap", "zeros", "twice", "behind"})
        QTest::newRow(kind) << kind;
}

/// So many files of each kind, the same in every run: 300, or as the environment says.
void TestCellsFile::damagedFilesAreFlawed() {
    QFETCH(QString, kind);
    std::mt19937 random(7);
    const auto below = [&random](int end) { return int(random() % unsigned(end)); };
    const int wanted = std::max(300, qEnvironmentVariableIntValue("KESTROVA_DAMAGED_FILES"));
    int tried = 0;
    while (tried < wanted) {
        QByteArray bytes = whole;
        // Half of them in the head, which is but a small part of it.
        const int place = below(tried % 2 == 0 ? whole.size() : listPlace + 3 * entryBytes + 32);
        if (kind == "bit")
            bytes[place] = char(bytes[place] ^ (1 << below(8)));
        else if (kind == "byte")
            bytes[place] = char(random());
        else if (kind == "cut")
            bytes.truncate(place);
        else if (kind == "gap")
            bytes.remove(place, 1 + below(50));
        else if (kind == "zeros")
            bytes.replace(place, 64, QByteArray(64, '\0'));
        else if (kind == "twice")
            bytes.insert(place, bytes.mid(place, 1 + below(100)));
        else
            bytes += QByteArray(1 + below(5), char(random()));
        if (bytes == whole)
            continue;
        ++tried;
        const CellsReading reading = readBytes(bytes);
        QVERIFY2(reading.state == State::Flawed && !reading.flaw.isEmpty(),
                 qPrintable(QStringLiteral("%1 %2").arg(tried).arg(place)));
    }
}

/// Blocks whose sums and sizes are right, though nobody has packed them: they are read as maps,
/// whatever these are.
void TestCellsFile::forgedBlocksDoNoHarm() {
    std::mt19937 random(3);
    const auto blocks = sample().blocks();
    for (int i = 0; i < 1000; ++i) {
        CellMaps maps;
        for (const StoredBlock& block : blocks) {
            CellBlock forged = *block.read();
            for (unsigned flaw = 0; flaw < random() % 8; ++flaw)
                forged.bytes[random() % forged.bytes.size()] = std::uint8_t(random());
            maps.append(StoredBlock(std::make_shared<const CellBlock>(std::move(forged))));
        }
        QCOMPARE(writeCells(maps, originOf(sampleCount), path()), QString());
        const CellsReading reading = readCells(path(), originOf(sampleCount));
        QCOMPARE(reading.state, State::Good);
        CellMapsReader reader(reading.maps);
        CellMapsReader quick(reading.maps);
        for (int map = 0; map < sampleCount; ++map) {
            const CellMap* found = reader.next();
            QVERIFY(found);
            const CellBits* bits = quick.next(changedStep);
            QVERIFY(bits->grid == found->grid && quick.isQuiet() == (bits->count() == 0));
        }
    }
}

void TestCellsFile::absurdSizesTakeNoMemory_data() {
    QTest::addColumn<int>("place");
    QTest::addColumn<quint32>("number");
    QTest::newRow("nothing but length") << 0 << 0U;
    QTest::newRow("blocks") << blocksPlace << quint32(sampleCount);
    QTest::newRow("bytes of a block") << listPlace + 8 << 0xF0000000U;
}

/// In a file of 4 GB, which is as long as what it says: sparse, no machine need have that memory.
void TestCellsFile::absurdSizesTakeNoMemory() {
    QFETCH(int, place);
    QFETCH(quint32, number);
    QByteArray bytes = whole;
    setNumber(number, bytes, place);
    QVERIFY(writeFile(path(), place == blocksPlace ? bytes : sealed(bytes)));
    QFile file(path());
    const long before = peak();
    QVERIFY(file.resize(Q_INT64_C(1) << 32));
    const CellsReading reading = readCells(path(), originOf(sampleCount));
    QCOMPARE(reading.state, State::Flawed);
    QVERIFY2(peak() - before < 50 * 1024, qPrintable(QString::number(peak() - before)));
    QVERIFY(QFile::resize(path(), 0));
}

void TestCellsFile::whatIsNoFileIsFlawed() {
    const QString name = path("place.cells");
    const auto read = [&name] { return readCells(name, originOf(sampleCount)); };
    QVERIFY(QDir().mkdir(name));
    QCOMPARE(read().state, State::Flawed);
    QVERIFY(QDir().rmdir(name));
    QCOMPARE(mkfifo(QFile::encodeName(name).constData(), 0600), 0);
    QCOMPARE(read().state, State::Flawed); // and does not wait for somebody who writes
    QVERIFY(QFile::remove(name));
    QVERIFY(QFile::link(name, name));
    QCOMPARE(read().state, State::Flawed);
    QVERIFY(!read().flaw.isEmpty());
    QVERIFY(QFile::remove(name));
    QVERIFY(writeFile(name, {}));
    QCOMPARE(read().state, State::Flawed);
    QVERIFY(writeFile(name, QByteArray(100000, '\0')));
    QCOMPARE(read().flaw, QStringLiteral("it is no file with maps of cells"));
}

void TestCellsFile::missingIsNoFlaw() {
    QCOMPARE(readCells(path("nowhere/b.cells"), originOf(1)).state, State::Missing);
}

void TestCellsFile::whatCannotBeWrittenSaysWhy() {
    QVERIFY(writeFile(path("taken"), "x"));
    QVERIFY(!writeCells(sample(), originOf(sampleCount), path("taken/a.cells")).isEmpty());
    QVERIFY(QDir(folder.path()).mkpath("folder.cells/full"));
    QVERIFY(!writeCells(sample(), originOf(sampleCount), path("folder.cells")).isEmpty());
}

void TestCellsFile::leavesNothingBesideIt() {
    const QString own = path("own/a.cells");
    QCOMPARE(writeCells(sample(), originOf(sampleCount), own), QString());
    QCOMPARE(QDir(path("own")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{"a.cells"});
    QCOMPARE(cellsPath(path("own/a.values")), own);
}

QTEST_APPLESS_MAIN(TestCellsFile)
#include "test_cellsfile.moc"
