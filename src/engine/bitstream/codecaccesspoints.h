// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "packetbytes.h"
#include "packetkind.h"

#include <memory>

/// What the packets of one codec are, as far as their bytes tell.
class CodecAccessPoints {
public:
    virtual ~CodecAccessPoints() = default;

    /// The stream's next packet. `isLeading` says that it is shown before the picture before it in
    /// the stream, wherever it stands; of `isKey`, the container's word, nothing is to be believed
    /// that the bytes can tell.
    virtual PacketKind kindOf(const PacketBytes& packet, bool isKey) = 0;
};

/// Makes one of them for one stream. `header`: its extradata.
using AccessPointsMaker = std::unique_ptr<CodecAccessPoints> (*)(const PacketBytes& header);

/// H.264: an instantaneous decoding refresh, nal_unit_type 5, is a closed GOP (ITU-T H.264, 7.4.1,
/// Table 7-1). Recovery points, which a message tells of, are none.
std::unique_ptr<CodecAccessPoints> h264AccessPoints(const PacketBytes& header);

/// HEVC: an instantaneous decoding refresh that lets the pictures before it be shown
/// (no_output_of_prior_pics_flag) is a closed GOP, clean random access an open one, whose RADL and
/// RASL pictures are leading (ITU-T H.265, 7.4.2.2, Table 7-1, and 7.3.6.1). A broken link is none.
std::unique_ptr<CodecAccessPoints> hevcAccessPoints(const PacketBytes& header);

/// MPEG-1 and MPEG-2: an I picture behind a sequence header, closed if its group's closed_gop says
/// so (ISO/IEC 13818-2, 6.3.8 and 6.3.9; start codes and places are the same in ISO/IEC 11172-2,
/// 2.4.2).
std::unique_ptr<CodecAccessPoints> mpeg12AccessPoints(const PacketBytes& header);

/// MPEG-4 Part 2: every I-VOP is an open GOP (ISO/IEC 14496-2, 6.3.5): how long the pictures shown
/// before it last is counted from the picture before, closed_gov or not.
std::unique_ptr<CodecAccessPoints> mpeg4AccessPoints(const PacketBytes& header);

/// AV1: a shown key frame behind a sequence header that is the only one so far (AV1 bitstream
/// specification, 6.4.1 and 6.8.2).
std::unique_ptr<CodecAccessPoints> av1AccessPoints(const PacketBytes& header);

/// MJPEG: a picture that brings every table that one has brought before it. Those that it leaves
/// out (abbreviated format, ITU-T T.81, B.4) are taken from an earlier one.
std::unique_ptr<CodecAccessPoints> jpegAccessPoints(const PacketBytes& header);

/// VP8: a key frame by its frame tag and start code (RFC 6386, 9.1) that the container calls one,
/// too: what looks like one by chance is none.
std::unique_ptr<CodecAccessPoints> vp8AccessPoints(const PacketBytes& header);

/// VP9: the same by its uncompressed header (VP9 bitstream specification, 6.2 and 7.2). Of several
/// frames in a packet the first one counts: what follows it can use nothing older.
std::unique_ptr<CodecAccessPoints> vp9AccessPoints(const PacketBytes& header);
