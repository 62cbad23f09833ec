// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "chunkreader.h"
#include "framethreadeddecoder.h"
#include "keyframedecoder.h"
#include "mediafile.h"
#include "partreading.h"
#include "serialdecoder.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>

/// One open file. Exactly one of the four decoders is there once the file is open.
struct DecodingContext {
    MediaFile file;
    PacketReader& reader = file.packets();
    FrameBudget memory; ///< outlives the decoders
    std::unique_ptr<FrameThreadedDecoder> threaded;
    std::unique_ptr<SerialDecoder> serial;
    std::unique_ptr<KeyframeDecoder> keys;
    std::unique_ptr<ChunkReader> chunks; ///< gone where `ffmpegMutex` is held to close the rest
    PictureKeeperMaker chunkKeeper;      ///< of `chunks`; may be null. Set before `open`.
    std::deque<NumberedPacket> replay; ///< packets that the serial decoder takes before reading on
    qint64 lastNumber = -1;            ///< packet that completed the last picture handed out
    int threads = 1;                   ///< that may decode
    QString error;
    ReadEnd end;                     ///< where the reader does not know it
    std::optional<PartReading> part; ///< where only one is read
    qint64 undecodedPackets = 0;     ///< behind the first picture, but for the last one so far

    explicit DecodingContext(const char* fileName, const std::function<bool()>& isInterrupted)
        : file(fileName, isInterrupted) {}

    /// False if it cannot be opened; `error` tells why. With a `comparison` the file is decoded in
    /// chunks where that is exact and pays.
    bool open(int threads, bool isKeyframesOnly, const PictureComparisonMaker& comparison);

    /// Nothing at the end; `end` or the reader's tells why. Not while there are chunks.
    std::optional<CompletedPicture> nextPicture();

    /// The same of `chunks`, which must be there. They are gone once the rest is to be had from
    /// `nextPicture`.
    std::optional<ChunkFrame> nextChunkFrame();

    /// As `VideoDecoder::skipTo`, in the stream's time base.
    bool skipTo(std::int64_t dts);

    /// As `VideoDecoder::beginPart`.
    bool beginPart(RecordingPart wanted, qint64 delay);

    /// As `VideoDecoder::seekBefore`, in the stream's time base.
    bool seekBefore(std::int64_t dts);

private:
    bool openKeys();
    bool openChunks(const ChunkPlan& plan, const PictureComparisonMaker& comparison);
    bool openWhole(const AVCodecParameters& parameters, const AVPacket* firstPacket);
    OpenedCodec openLocked(const AVCodecParameters& parameters, int count);
    void leaveChunks();
    bool goOn(ChunkReader::Rest rest);
    std::optional<NumberedPacket> seekToKey(std::int64_t latest);
    std::optional<NumberedPacket> nextKey();
    std::optional<CompletedPicture> nextKeyPicture();
    std::optional<CompletedPicture> nextSerialPicture();
    std::optional<NumberedPacket> nextSerialPacket();
    bool goSerial();
    void noteRefusal(qint64 packet);

    bool isLastUndecoded = false; ///< the last packet
};
