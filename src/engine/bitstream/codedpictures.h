// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetbytes.h"

#include <memory>
#include <optional>

struct AVCodecParameters;
struct AVPacket;

/// What a packet tells of the picture in it without being decoded.
struct CodedPicture {
    int kind = 0; ///< pictures of one kind cost about the same; 0..63

    std::optional<int> quantiser; ///< of its first slice; 6 more halve the bits, about
};

/// Reads that from the packets of one codec, which may hold anything.
class CodedPictureReader {
public:
    virtual ~CodedPictureReader() = default;
    virtual CodedPicture of(const PacketBytes& packet, bool isKey) = 0;
};

/// The packets of one stream as coded pictures: H.264 by the header of the first slice, HEVC and
/// AV1 by the type of the picture, others by the container's key flag.
class CodedPictures {
public:
    explicit CodedPictures(const AVCodecParameters& parameters);

    /// The stream's next packet.
    CodedPicture of(const AVPacket& packet);

private:
    std::unique_ptr<CodedPictureReader> reader;
};
