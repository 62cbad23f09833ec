// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mpvhandle.h"

#include "logging.h"
#include "mpvoptions.h"

#include <utility>
#include <vector>

namespace {

void call(void* function) {
    (*static_cast<const std::function<void()>*>(function))();
}

void* pointerTo(const std::function<void()>& function) {
    return const_cast<std::function<void()>*>(&function);
}

} // namespace

MpvHandle::MpvHandle(const MpvLibrary& library, std::function<void()> woken,
                     std::function<void()> updated)
    : library(library)
    , woken(std::move(woken))
    , updated(std::move(updated)) {}

/// The picture goes first, as the library demands.
MpvHandle::~MpvHandle() {
    if (render) {
        library.setUpdateCallback(render, nullptr, nullptr);
        library.freeRender(render);
    }
    if (!handle)
        return;
    library.setWakeupCallback(handle, nullptr, nullptr);
    library.terminateDestroy(handle);
    takeBackLibavLog();
}

bool MpvHandle::open() {
    handle = library.create();
    // It has sent the media libraries' log to itself, where nobody counts the errors of searches.
    takeBackLibavLog();
    if (!handle || !setPlayerOptions(library, handle) || library.initialize(handle) < 0)
        return false;
    library.setWakeupCallback(handle, call, pointerTo(woken));
    return openPicture();
}

bool MpvHandle::openPicture() {
    char api[] = MPV_RENDER_API_TYPE_SW;
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_API_TYPE, api},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    if (library.createRender(&render, handle, parameters) < 0)
        return false;
    library.setUpdateCallback(render, call, pointerTo(updated));
    return true;
}

void MpvHandle::command(std::initializer_list<QByteArray> words, quint64 id) {
    std::vector<const char*> arguments;
    for (const QByteArray& word : words)
        arguments.push_back(word.constData());
    arguments.push_back(nullptr);
    library.commandAsync(handle, id, arguments.data());
}

void MpvHandle::set(const char* property, const QByteArray& value) {
    const char* text = value.constData();
    library.setPropertyAsync(handle, 0, property, MPV_FORMAT_STRING, &text);
}

void MpvHandle::ask(const char* property, mpv_format format, quint64 id) {
    library.getPropertyAsync(handle, id, property, format);
}

void MpvHandle::observe(const char* property, mpv_format format) {
    library.observeProperty(handle, 0, property, format);
}

bool MpvHandle::hasNewPicture() const {
    mpv_render_frame_info info{};
    library.getInfo(render, {MPV_RENDER_PARAM_NEXT_FRAME_INFO, &info});
    return (info.flags & MPV_RENDER_FRAME_INFO_PRESENT) != 0 &&
           (info.flags & MPV_RENDER_FRAME_INFO_REDRAW) == 0;
}

const mpv_event* MpvHandle::nextEvent() {
    const mpv_event* event = library.waitEvent(handle, 0.0);
    return event->event_id == MPV_EVENT_NONE ? nullptr : event;
}
