// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mpvplayer.h"

#include "failuretexts.h"
#include "mpvvalues.h"
#include "openedrecording.h"

#include <algorithm>

namespace {

// What replies are for.
constexpr quint64 forLoading = 1;
constexpr quint64 forFirstTime = 2;
constexpr quint64 forClip = 3;
constexpr quint64 forTime = 4;
constexpr quint64 purposes = 5;

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
    MpvProperties::observe(*player);
    return {};
}

QString MpvPlayer::load() {
    const OpenedRecording opened = openForPlaying(
        request.clip, [this] { QMetaObject::invokeMethod(this, "tellCut", Qt::QueuedConnection); });
    file = opened.file;
    if (!opened.error.isEmpty())
        return opened.error;
    stage = Stage::Loading;
    entry = 0;
    ++loads;
    search.forget(*player);
    setSpeed(request.speed);
    setMuted(request.isMuted);
    player->set("demuxer-lavf-format", opened.demuxer);
    player->set("pause", "yes");
    player->set("ab-loop-a", "no");
    player->set("ab-loop-b", "no");
    player->command({"loadfile", stream.lead(file), "replace"}, tagged(forLoading));
    return {};
}

/// What is answered of one recording may come when the next has been asked for.
quint64 MpvPlayer::tagged(quint64 purpose) const {
    return loads * purposes + purpose;
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
    seekTo(request.clip.start, tagged(forClip));
}

void MpvPlayer::setLoop() {
    const bool isLooped = !request.isWhole && request.clip.end > request.clip.start;
    const double start = std::max(request.clip.start, 0.0);
    player->set("ab-loop-b", isLooped ? numberText(search.first + request.clip.end) : "no");
    player->set("ab-loop-a", isLooped ? numberText(search.first + start) : "no");
}

void MpvPlayer::seekTo(double seconds, quint64 id) {
    drawNewest(); // what comes from now on is of this search
    search.begin(*player, seconds, id);
}

void MpvPlayer::setPaused(bool isPaused) {
    request.isPlaying = !isPaused;
    if (stage != Stage::Shown)
        return; // soon
    if (!isPaused && told.isAtEnd)
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
    if (event.reply_userdata == tagged(forLoading) && event.error >= 0)
        entry = entryOf(static_cast<const mpv_event_command*>(event.data)->result);
    else if (event.reply_userdata == tagged(forFirstTime))
        takeFirstTime(secondsOf(event));
    else if (event.reply_userdata == tagged(forTime))
        takeClipTime(secondsOf(event));
    // Where it cannot seek it goes on from where it is.
    else if (event.reply_userdata == tagged(forClip) && event.error < 0)
        takeRestart();
}

void MpvPlayer::takeRestart() {
    if (stage == Stage::Loading)
        player->ask("time-pos", MPV_FORMAT_DOUBLE, tagged(forFirstTime));
    else if (stage == Stage::Seeking)
        player->ask("time-pos", MPV_FORMAT_DOUBLE, tagged(forTime));
}

/// Where the clip is, is known once the first picture is: streams count from anywhere.
void MpvPlayer::takeFirstTime(double seconds) {
    if (stage != Stage::Loading)
        return;
    // Before zero are pictures that an edit list has taken out, which the player shows all the
    // same.
    search.first = seconds < 0.0 ? editedStart(request.clip.file) : seconds;
    showClip();
}

void MpvPlayer::takeClipTime(double seconds) {
    if (stage != Stage::Seeking)
        return;
    drawNewest();
    told.time = seconds;
    if (search.isFound(seconds) || !searchFromEarlier(tagged(forClip)))
        show();
}

bool MpvPlayer::searchFromEarlier(quint64 id) {
    if (!search.widen(*player))
        return false;
    seekTo(search.target(), id);
    return true;
}

/// A search that came out behind the last key frame finds no picture at all.
void MpvPlayer::takeEnd() {
    drawNewest();
    constexpr double nearEnd = 1.0;
    const bool isLost = told.isAtEnd && (!search.hasPicture() || told.time + nearEnd < told.length);
    if (stage == Stage::Seeking && told.isAtEnd && !(isLost && searchFromEarlier(tagged(forClip))))
        show();
    else if (stage == Stage::Shown && isLost)
        searchFromEarlier(0);
}

void MpvPlayer::show() {
    stage = Stage::Shown;
    setLoop();
    player->set("pause", flagText(!request.isPlaying));
    Q_EMIT sized(told.shape);
    draw();
    Q_EMIT shown(request.number, std::max(told.length - search.first, 0.0));
    Q_EMIT paused(!request.isPlaying);
    Q_EMIT moved(told.time - search.first);
}

void MpvPlayer::takeProperty(const mpv_event_property& property) {
    using Change = MpvProperties::Change;
    const Change change = told.take(property);
    if (change == Change::End)
        takeEnd();
    else if (stage == Stage::Shown && change == Change::Time)
        Q_EMIT moved(told.time - search.first);
    else if (stage == Stage::Shown && change == Change::Pause)
        Q_EMIT paused(told.isPaused);
    else if (stage == Stage::Shown && change == Change::Shape)
        Q_EMIT sized(told.shape);
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
    if (isNew && player->hasNewPicture())
        search.take();
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
