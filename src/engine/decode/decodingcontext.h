// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "framethreadeddecoder.h"
#include "keyframedecoder.h"
#include "packetreader.h"
#include "serialdecoder.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>

/// One open file. Exactly one of the three decoders is there once the file is open.
struct DecodingContext {
    PacketReader reader;
    PictureMemory memory; ///< outlives the decoders
    std::unique_ptr<FrameThreadedDecoder> threaded;
    std::unique_ptr<SerialDecoder> serial;
    std::unique_ptr<KeyFrameDecoder> keys;
    std::deque<NumberedPacket> replay; ///< packets that the serial decoder takes before reading on
    qint64 lastNumber = -1;            ///< packet that completed the last picture handed out
    QByteArray codecName;              ///< empty until a decoder is open
    QString error;
    ReadEnd end; ///< where the reader does not know it

    /// False if it cannot be opened; `error` tells why.
    bool open(const char* fileName, int threads, bool areKeysWanted);

    /// Nothing at the end; `end` or the reader's tells why.
    std::optional<CompletedPicture> nextPicture();

    /// As `VideoDecoder::seekBefore`, in the stream's time base.
    bool seekBefore(std::int64_t dts);

private:
    bool openKeys(int threads);
    std::optional<NumberedPacket> seekToKey(std::int64_t latest);
    std::optional<NumberedPacket> nextKey();
    std::optional<CompletedPicture> nextKeyPicture();
    std::optional<CompletedPicture> nextSerialPicture();
    std::optional<NumberedPacket> nextSerialPacket();
    bool goSerial();
};
