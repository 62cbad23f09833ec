// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "missingpicture.h"

namespace {

class MissingPicture : public ClipPicture {
public:
    QImage snapshot() override { return {}; }
    void shrink() override {}
};

} // namespace

ClipPicturePointer noPicture() {
    static const ClipPicturePointer none = std::make_shared<MissingPicture>();
    return none;
}
