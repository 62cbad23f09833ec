// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cellsformat.h"

#include "keptvalues.h"

#include <QCryptographicHash>
#include <QtEndian>

namespace {

template<typename Number>
void append(Number number, QByteArray& bytes) {
    char text[sizeof number];
    qToLittleEndian(number, text);
    bytes.append(text, sizeof number);
}

int numberAt(const QByteArray& bytes, int place) {
    return int(qFromLittleEndian<quint32>(bytes.constData() + place));
}

} // namespace

qint64 mostBytesOf(CellGrid grid, int count) {
    constexpr qint64 beginning = 4096;
    return beginning + qint64(grid.count()) * count * 3 / 2;
}

QByteArray cellsHead(const CellsOrigin& origin, const std::vector<StoredBlock>& blocks) {
    QByteArray head(cellsFormatName);
    for (const int number :
         {cellsFormatNumber, origin.definition, origin.count, int(blocks.size())})
        append(quint32(number), head);
    head += QByteArray::fromHex(origin.valuesDigest);
    for (const StoredBlock& block : blocks) {
        append(quint16(block.grid().columns), head);
        append(quint16(block.grid().rows), head);
        append(quint32(block.count()), head);
        append(quint32(block.size()), head);
        append(quint64(block.sum()), head);
    }
    return head + QCryptographicHash::hash(head, QCryptographicHash::Sha256);
}

QString readFixedHead(const QByteArray& head, const CellsOrigin& origin, int& blocks) {
    if (!head.startsWith(cellsFormatName) || head.size() < cellsFixedBytes)
        return QStringLiteral("it is no file with maps of cells");
    const int format = numberAt(head, cellsNameBytes);
    const int definition = numberAt(head, cellsNameBytes + 4);
    const int count = numberAt(head, cellsNameBytes + 8);
    blocks = numberAt(head, cellsNameBytes + 12);
    if (format != cellsFormatNumber)
        return QStringLiteral("its format is not that of this program");
    if (definition != origin.definition)
        return QStringLiteral("it was measured by another version of this program");
    if (head.mid(cellsNameBytes + 16) != QByteArray::fromHex(origin.valuesDigest))
        return QStringLiteral("it is of other values");
    const bool isSane = count == origin.count && blocks >= 0 && blocks <= count;
    return isSane ? QString() : QStringLiteral("its head is damaged");
}

std::optional<CellsEntry> readEntry(const uchar* bytes) {
    CellsEntry entry;
    entry.grid = {qFromLittleEndian<quint16>(bytes), qFromLittleEndian<quint16>(bytes + 2)};
    const auto count = qFromLittleEndian<quint32>(bytes + 4);
    entry.bytes = qFromLittleEndian<quint32>(bytes + 8);
    entry.sum = qFromLittleEndian<quint64>(bytes + 12);
    if (entry.grid.columns > mostCellColumns || entry.grid.rows > mostCellRows || count < 1 ||
        count > quint32(mostKeptPictures))
        return std::nullopt;
    entry.count = int(count);
    return entry;
}
