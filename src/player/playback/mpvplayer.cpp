// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mpvplayer.h"

#include "containername.h"
#include "failuretexts.h"
#include "mediafile.h"

#include <QFile>

#include <algorithm>
#include <cstring>

namespace {

// What replies are for.
constexpr quint64 forLoading = 1;
constexpr quint64 forFirstTime = 2;
constexpr quint64 forClip = 3;
constexpr quint64 forTime = 4;

// Seconds before its target at which a search for it begins: where a file has no index, it may come
// out behind the key frame that is needed.
constexpr double usualLead = 1.0;
constexpr double longLead = 20.0;
constexpr double lateSeconds = 0.1; // a picture is not the one that was looked for

QByteArray numberText(double number) {
    return QByteArray::number(number, 'f', 6);
}

QByteArray flagText(bool flag) {
    return flag ? "yes" : "no";
}

/// 0 where the reply has none.
std::int64_t entryOf(const mpv_node& result) {
    for (int i = 0; result.format == MPV_FORMAT_NODE_MAP && i < result.u.list->num; ++i) {
        if (std::strcmp(result.u.list->keys[i], "playlist_entry_id") == 0)
            return result.u.list->values[i].u.int64;
    }
    return 0;
}

/// 0 where the reply has none.
double timeOf(const mpv_event& reply) {
    if (reply.error < 0)
        return 0.0;
    return *static_cast<double*>(static_cast<const mpv_event_property*>(reply.data)->data);
}

/// The first picture that an edit list has left; seconds as the player counts.
double editedStart(const QString& fileName) {
    const MediaFile media(QFile::encodeName(fileName));
    if (!media.hasTimes())
        return 0.0;
    const AVStream& stream = *media.stream();
    return double(stream.start_time) * av_q2d(stream.time_base) -
           media.facts().description.startTime;
}

} // namespace

MpvPlayer::MpvPlayer(PictureSlot& pictures)
    : pictures(pictures) {}

MpvPlayer::~MpvPlayer() = default;

void MpvPlayer::play(const PlayRequest& wanted) {
    const bool isSame =
        stage != Stage::Nothing && wanted.clip.file == request.clip.file && file->isStillThere();
    request = wanted;
    if (isSame && stage == Stage::Loading)
        return;
    if (isSame) {
        showClip();
        return;
    }
    QString error = start();
    if (error.isEmpty())
        error = load();
    if (!error.isEmpty())
        fail(error);
}

/// Why there is no player; empty if there is one.
QString MpvPlayer::start() {
    if (player)
        return {};
    const MpvLibrary* library = MpvLibrary::load();
    if (!library)
        return tr("The library that plays recordings, libmpv 2, is not installed.");
    const auto once = [this](std::atomic<bool>& isSent, const char* slot) {
        if (!isSent.exchange(true))
            QMetaObject::invokeMethod(this, slot, Qt::QueuedConnection);
    };
    player = std::make_unique<MpvHandle>(
        *library, [this, once] { once(isWoken, "takeEvents"); },
        [this, once] { once(isUpdated, "drawNewest"); });
    if (!player->open() || !stream.addTo(*library, player->get())) {
        player.reset();
        return tr("The library that plays recordings, libmpv, cannot begin.");
    }
    for (const char* property : {"time-pos", "duration"})
        player->observe(property, MPV_FORMAT_DOUBLE);
    for (const char* property : {"pause", "eof-reached"})
        player->observe(property, MPV_FORMAT_FLAG);
    for (const char* property : {"dwidth", "dheight"})
        player->observe(property, MPV_FORMAT_INT64);
    return {};
}

QString MpvPlayer::load() {
    QString error = openFile();
    if (!error.isEmpty())
        return error;
    // The demuxer that searches have, too: playlists and the like are refused as there.
    const ContainerName container = containerNameOf(request.clip.file, [] { return false; });
    if (!container.error.isEmpty())
        return tr("Cannot be played: %1").arg(translatedFailure(container.error));
    stage = Stage::Loading;
    entry = 0;
    setLead(usualLead);
    setSpeed(request.speed);
    setMuted(request.isMuted);
    player->set("demuxer-lavf-format", container.name.toLatin1());
    player->set("pause", "yes");
    player->set("ab-loop-a", "no");
    player->set("ab-loop-b", "no");
    player->command({"loadfile", stream.lead(file), "replace"}, forLoading);
    return {};
}

QString MpvPlayer::openFile() {
    file = std::make_shared<RecordingFile>(request.clip.file, [this] {
        QMetaObject::invokeMethod(this, "tellCut", Qt::QueuedConnection);
    });
    if (file->error() == ENOENT)
        return tr("The recording is no longer there.");
    if (!file->isOpen())
        return file->error() == 0 ? tr("This is no file that can be played.")
                                  : tr("Cannot be read: %1").arg(qt_error_string(file->error()));
    if (request.clip.bytes >= 0 && request.clip.bytes != file->size())
        return tr("The recording has changed since it was searched.");
    return {};
}

void MpvPlayer::fail(const QString& reason) {
    unload();
    Q_EMIT failed(request.number, reason);
}

void MpvPlayer::unload() {
    stage = Stage::Nothing;
    file.reset();
    stream.lead(nullptr);
    if (player)
        player->command({"stop"});
}

void MpvPlayer::showClip() {
    stage = Stage::Seeking;
    // It would go round without a picture where the search for the first one fails.
    player->set("ab-loop-a", "no");
    player->set("pause", "yes");
    seekTo(request.clip.start, forClip);
}

void MpvPlayer::setLead(double seconds) {
    lead = seconds;
    player->set("hr-seek-demuxer-offset", numberText(seconds));
}

void MpvPlayer::setLoop() {
    const bool isLooped = !request.isWhole && request.clip.end > request.clip.start;
    const double start = std::max(request.clip.start, 0.0);
    player->set("ab-loop-b", isLooped ? numberText(first + request.clip.end) : "no");
    player->set("ab-loop-a", isLooped ? numberText(first + start) : "no");
}

void MpvPlayer::seekTo(double seconds, quint64 id) {
    // What is below zero counts from the end.
    target = std::max(first + std::max(seconds, 0.0), 0.0);
    drawNewest(); // what comes from now on is of this search
    hasPicture = false;
    player->command({"seek", numberText(target), "absolute+exact"}, id);
}

void MpvPlayer::setPaused(bool isPaused) {
    request.isPlaying = !isPaused;
    if (stage != Stage::Shown)
        return; // soon
    if (!isPaused && isAtEnd)
        seekTo(request.isWhole ? 0.0 : request.clip.start, 0);
    player->set("pause", flagText(isPaused));
}

void MpvPlayer::seek(double seconds) {
    if (stage == Stage::Shown)
        seekTo(seconds, 0);
}

void MpvPlayer::step(bool isBack) {
    if (stage == Stage::Shown)
        player->command({isBack ? "frame-back-step" : "frame-step"});
}

void MpvPlayer::setSpeed(double speed) {
    request.speed = speed;
    if (player)
        player->set("speed", numberText(speed));
}

void MpvPlayer::setMuted(bool isMuted) {
    request.isMuted = isMuted;
    if (player)
        player->set("mute", flagText(isMuted));
}

void MpvPlayer::setWhole(bool isWhole) {
    request.isWhole = isWhole;
    if (stage != Stage::Seeking && stage != Stage::Shown)
        return;
    if (isWhole)
        setLoop();
    else
        showClip();
}

void MpvPlayer::setSize(const QSize& size) {
    picture.setSize(size);
    if (stage == Stage::Shown)
        draw();
}

void MpvPlayer::takeEvents() {
    isWoken = false;
    while (const mpv_event* event = player ? player->nextEvent() : nullptr)
        take(*event);
}

void MpvPlayer::take(const mpv_event& event) {
    const bool isCurrent = entry != 0 && startedEntry == entry;
    if (event.event_id == MPV_EVENT_COMMAND_REPLY || event.event_id == MPV_EVENT_GET_PROPERTY_REPLY)
        takeReply(event);
    else if (event.event_id == MPV_EVENT_PROPERTY_CHANGE)
        takeProperty(*static_cast<const mpv_event_property*>(event.data));
    else if (event.event_id == MPV_EVENT_START_FILE)
        startedEntry = static_cast<const mpv_event_start_file*>(event.data)->playlist_entry_id;
    else if (event.event_id == MPV_EVENT_PLAYBACK_RESTART && isCurrent)
        takeRestart();
    else if (event.event_id == MPV_EVENT_END_FILE && isCurrent && stage != Stage::Nothing) {
        const auto& end = *static_cast<const mpv_event_end_file*>(event.data);
        fail(tr("Cannot be played: %1")
                 .arg(translatedFailure(
                     QString::fromUtf8(player->functions().errorString(end.error)))));
    }
}

void MpvPlayer::takeReply(const mpv_event& event) {
    if (event.reply_userdata == forLoading && event.error >= 0)
        entry = entryOf(static_cast<const mpv_event_command*>(event.data)->result);
    else if (event.reply_userdata == forFirstTime)
        takeFirstTime(timeOf(event));
    else if (event.reply_userdata == forTime)
        takeClipTime(timeOf(event));
    // Where it cannot seek it goes on from where it is.
    else if (event.reply_userdata == forClip && event.error < 0)
        takeRestart();
}

void MpvPlayer::takeRestart() {
    if (stage == Stage::Loading)
        player->ask("time-pos", MPV_FORMAT_DOUBLE, forFirstTime);
    else if (stage == Stage::Seeking)
        player->ask("time-pos", MPV_FORMAT_DOUBLE, forTime);
}

/// Where the clip is, is known once the first picture is: streams count from anywhere.
void MpvPlayer::takeFirstTime(double seconds) {
    if (stage != Stage::Loading)
        return;
    // Before zero are pictures that an edit list has taken out, which the player shows all the
    // same.
    first = seconds < 0.0 ? editedStart(request.clip.file) : seconds;
    showClip();
}

void MpvPlayer::takeClipTime(double seconds) {
    if (stage != Stage::Seeking)
        return;
    drawNewest();
    time = seconds;
    const bool isFound = hasPicture && time <= target + lateSeconds;
    if (isFound || !searchFromEarlier(forClip))
        show();
}

bool MpvPlayer::searchFromEarlier(quint64 id) {
    if (lead >= longLead)
        return false;
    setLead(longLead);
    seekTo(target - first, id);
    return true;
}

/// A search that came out behind the last key frame finds no picture at all.
void MpvPlayer::takeEnd(bool isReached) {
    isAtEnd = isReached;
    drawNewest();
    constexpr double nearEnd = 1.0;
    const bool isLost = isAtEnd && (!hasPicture || time + nearEnd < length);
    if (stage == Stage::Seeking && isAtEnd && !(isLost && searchFromEarlier(forClip)))
        show();
    else if (stage == Stage::Shown && isLost)
        searchFromEarlier(0);
}

void MpvPlayer::show() {
    stage = Stage::Shown;
    setLoop();
    player->set("pause", flagText(!request.isPlaying));
    Q_EMIT sized(shape);
    draw();
    Q_EMIT shown(request.number, std::max(length - first, 0.0));
    Q_EMIT paused(!request.isPlaying);
    Q_EMIT moved(time - first);
}

void MpvPlayer::takeProperty(const mpv_event_property& property) {
    if (property.format == MPV_FORMAT_NONE)
        return;
    const QByteArray name = property.name;
    if (name == "time-pos")
        takeTime(*static_cast<double*>(property.data));
    else if (name == "duration")
        length = *static_cast<double*>(property.data);
    else if (name == "eof-reached")
        takeEnd(*static_cast<int*>(property.data) != 0);
    else if (name == "dwidth")
        shape.setWidth(int(*static_cast<std::int64_t*>(property.data)));
    else if (name == "dheight")
        shape.setHeight(int(*static_cast<std::int64_t*>(property.data)));
    else if (name == "pause" && stage == Stage::Shown)
        Q_EMIT paused(*static_cast<int*>(property.data) != 0);
    if (name.startsWith('d') && stage == Stage::Shown)
        Q_EMIT sized(shape);
}

void MpvPlayer::takeTime(double seconds) {
    time = seconds;
    if (stage == Stage::Shown)
        Q_EMIT moved(time - first);
}

void MpvPlayer::tellCut() {
    if (stage != Stage::Nothing && file && !file->isStillThere())
        fail(tr("The recording has changed while it was played."));
}

void MpvPlayer::drawNewest() {
    isUpdated = false;
    const bool isNew =
        player && player->picture() &&
        (player->functions().update(player->picture()) & MPV_RENDER_UPDATE_FRAME) != 0;
    hasPicture = hasPicture || (isNew && player->hasNewPicture());
    if (isNew && stage == Stage::Shown)
        draw();
    else if (isNew)
        picture.skip(*player);
}

void MpvPlayer::draw() {
    const QImage image = picture.draw(*player);
    if (!image.isNull() && pictures.put(image))
        Q_EMIT drawn();
}
