// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stretchpicture.h"

#include "snapshotimage.h"

#include <optional>
#include <utility>

namespace {

// Beside those that are in hand: half a minute of any camera's stream.
constexpr qint64 mostKeptBytes = 64 * 1024 * 1024;

} // namespace

StretchPicture::StretchPicture(StretchedPicture stretched,
                               std::shared_ptr<StretchCandidates> candidates)
    : picture(std::move(stretched))
    , candidates(std::move(candidates)) {
    (*this->candidates)[picture.index] = this;
    const QImage kept = keptPicture(picture);
    if (!kept.isNull())
        setSmall(kept);
}

StretchPicture::~StretchPicture() {
    if (picture.stretch)
        candidates->erase(picture.index);
}

QImage StretchPicture::snapshot() {
    makeSmall();
    return small;
}

void StretchPicture::shrink() {
    if (picture.stretch && keptBytes(picture) > mostKeptBytes)
        makeSmall();
}

/// The last picture of a stretch may have got its small one only with the next stretch.
void StretchPicture::makeSmall() {
    if (!picture.stretch)
        return;
    const QImage kept = keptPicture(picture);
    if (kept.isNull())
        decodeAll();
    else
        setSmall(kept);
}

void StretchPicture::decodeAll() {
    const std::shared_ptr<const Stretch> stretch = picture.stretch;
    std::map<int, std::optional<QImage>> images; // nothing where no picture comes
    for (const auto& [place, candidate] : *candidates)
        images[place];
    decodeAgain(*stretch, [&images](int place, const FramePointer& frame) {
        const auto wanted = images.find(place);
        if (wanted != images.end())
            wanted->second = snapshotImage(*frame);
        return place < images.rbegin()->first;
    });
    for (auto& [place, image] : images) {
        StretchPicture& candidate = *candidates->at(place);
        if (!image)
            candidate.error = QStringLiteral("its picture cannot be decoded once more");
        candidate.setSmall(image.value_or(QImage()));
    }
}

void StretchPicture::setSmall(QImage image) {
    small = std::move(image);
    picture.stretch.reset();
    candidates->erase(picture.index);
}

ClipPicturePointer StretchHandles::handleOf(const StretchedPicture& picture) {
    if (!candidates || stretch.lock() != picture.stretch) {
        stretch = picture.stretch;
        candidates = std::make_shared<StretchCandidates>();
    }
    return std::make_shared<StretchPicture>(picture, candidates);
}
