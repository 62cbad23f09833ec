// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellsfile.h"

#include "cellsformat.h"
#include "keptfile.h"
#include "regularfile.h"

#include <QCryptographicHash>
#include <QFile>

#include <fcntl.h>
#include <memory>
#include <new>
#include <unistd.h>

namespace {

/// What may stand in a file: of all blocks no more than maps can take.
bool isWithinBounds(const std::vector<CellsEntry>& entries) {
    qint64 bytes = 0;
    for (const CellsEntry& entry : entries)
        bytes += entry.bytes - mostBytesOf(entry.grid, entry.count);
    return bytes <= 0;
}

/// A file that stays open for as long as maps lie in it that are not in memory. Nobody of us writes
/// to it: it is replaced, or removed, whole.
class KeptOpen {
public:
    /// One that is so small that all of its maps can be in memory is not kept open.
    explicit KeptOpen(const QFile& file) {
        const bool isLarge = file.size() > qint64(mostMapsInMemory);
        const int copy = isLarge ? fcntl(file.handle(), F_DUPFD_CLOEXEC, 0) : -1;
        if (copy >= 0)
            descriptor.reset(new int(copy), [](const int* open) {
                close(*open);
                delete open;
            });
    }

    /// Of some of its bytes; null where it is not open.
    FilePlacePointer place(qint64 offset, qint64 bytes) const {
        if (!descriptor)
            return nullptr;
        return {new FilePlace{*descriptor, offset, std::size_t(bytes)},
                [held = descriptor](const FilePlace* place) { delete place; }};
    }

private:
    std::shared_ptr<const int> descriptor; ///< null: not open
};

/// Reads one file with maps. Functions answer false where it is flawed.
class CellsParser {
public:
    CellsParser(QFile& file, const CellsOrigin& origin)
        : file(file)
        , origin(origin) {}

    /// What is wrong, empty if nothing is.
    QString run() {
        const bool isGood = readHead() && judgeEntries() && readBlocks();
        return isGood ? QString() : error;
    }

    CellMaps maps;

private:
    bool fail(const QString& what) {
        error = what;
        return false;
    }

    bool failDamaged() { return fail(QStringLiteral("it is damaged")); }

    /// False where there are not as many.
    bool read(qint64 bytes, void* into) {
        auto* next = static_cast<char*>(into);
        qint64 part = 1;
        for (; bytes > 0 && part > 0; bytes -= part, next += part)
            part = file.read(next, bytes);
        return bytes == 0;
    }

    QByteArray read(qint64 bytes) {
        QByteArray all(int(bytes), Qt::Uninitialized);
        return read(bytes, all.data()) ? all : QByteArray();
    }

    bool readHead() {
        const QByteArray fixed = read(cellsFixedBytes);
        int count = 0;
        const QString flaw = readFixedHead(fixed, origin, count);
        if (!flaw.isEmpty())
            return fail(flaw);
        const qint64 listBytes = qint64(count) * cellsEntryBytes;
        if (cellsFixedBytes + listBytes + cellsDigestBytes > file.size())
            return fail(QStringLiteral("it is cut off"));
        const QByteArray list = read(listBytes);
        const QByteArray digest = read(cellsDigestBytes);
        if (digest != QCryptographicHash::hash(fixed + list, QCryptographicHash::Sha256))
            return fail(QStringLiteral("its head is damaged"));
        return readEntries(list);
    }

    bool readEntries(const QByteArray& list) {
        for (int at = 0; at < list.size(); at += cellsEntryBytes) {
            const auto entry = readEntry(reinterpret_cast<const uchar*>(list.constData()) + at);
            if (!entry)
                return failDamaged();
            entries.push_back(*entry);
        }
        return true;
    }

    bool judgeEntries() {
        qint64 count = 0;
        qint64 bytes = file.pos();
        for (const CellsEntry& entry : entries) {
            count += entry.count;
            bytes += entry.bytes;
        }
        if (bytes > file.size())
            return fail(QStringLiteral("it is cut off"));
        const bool isGood =
            bytes == file.size() && count == origin.count && isWithinBounds(entries);
        return isGood || failDamaged();
    }

    bool readBlocks() {
        const KeptOpen keptOpen(file);
        for (const CellsEntry& entry : entries) {
            const qint64 place = file.pos();
            CellBlock block{entry.grid, entry.count, {}};
            block.bytes.resize(std::size_t(entry.bytes));
            if (!read(entry.bytes, block.bytes.data()))
                return failDamaged();
            const StoredBlock stored(std::make_shared<const CellBlock>(std::move(block)),
                                     keptOpen.place(place, entry.bytes));
            if (stored.sum() != entry.sum)
                return failDamaged();
            maps.append(stored);
        }
        return true;
    }

    QFile& file;
    const CellsOrigin& origin;
    std::vector<CellsEntry> entries;
    QString error;
};

bool give(const CellBlock& block, const PieceSink& sink) {
    return sink(QByteArray::fromRawData(reinterpret_cast<const char*>(block.bytes.data()),
                                        int(block.bytes.size())));
}

} // namespace

QString writeCells(const CellMaps& maps, const CellsOrigin& origin, const QString& path) {
    try {
        const std::vector<StoredBlock> blocks = maps.blocks();
        return writeKeptFile(path, [&](const PieceSink& sink) {
            bool isWanted = sink(cellsHead(origin, blocks));
            for (std::size_t i = 0; isWanted && i < blocks.size(); ++i)
                isWanted = give(*blocks[i].read(), sink);
        });
    } catch (const std::bad_alloc&) {
        return QStringLiteral("out of memory");
    }
}

CellsReading readCells(const QString& path, const CellsOrigin& origin) {
    QFile file;
    QString flaw;
    const bool isOpen = openRegularFile(path, file, flaw);
    if (!isOpen && flaw.isEmpty())
        return {};
    CellsParser parser(file, origin);
    if (isOpen)
        flaw = parser.run();
    if (!flaw.isEmpty())
        return {CellsReading::State::Flawed, flaw, {}};
    return {CellsReading::State::Good, {}, std::move(parser.maps)};
}
