// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mpvlibrary.h"

#include <QLibrary>

#include <optional>

namespace {

template<class Function>
bool resolve(QLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

bool resolveHandle(QLibrary& file, MpvLibrary& mpv) {
    return resolve(file, "mpv_create", mpv.create) &&
           resolve(file, "mpv_initialize", mpv.initialize) &&
           resolve(file, "mpv_terminate_destroy", mpv.terminateDestroy) &&
           resolve(file, "mpv_set_option_string", mpv.setOption) &&
           resolve(file, "mpv_command_async", mpv.commandAsync) &&
           resolve(file, "mpv_set_property_async", mpv.setPropertyAsync) &&
           resolve(file, "mpv_get_property_async", mpv.getPropertyAsync) &&
           resolve(file, "mpv_observe_property", mpv.observeProperty) &&
           resolve(file, "mpv_wait_event", mpv.waitEvent) &&
           resolve(file, "mpv_set_wakeup_callback", mpv.setWakeupCallback) &&
           resolve(file, "mpv_error_string", mpv.errorString) &&
           resolve(file, "mpv_stream_cb_add_ro", mpv.addStream);
}

bool resolveRender(QLibrary& file, MpvLibrary& mpv) {
    return resolve(file, "mpv_render_context_create", mpv.createRender) &&
           resolve(file, "mpv_render_context_free", mpv.freeRender) &&
           resolve(file, "mpv_render_context_set_update_callback", mpv.setUpdateCallback) &&
           resolve(file, "mpv_render_context_update", mpv.update) &&
           resolve(file, "mpv_render_context_get_info", mpv.getInfo) &&
           resolve(file, "mpv_render_context_render", mpv.render);
}

std::optional<MpvLibrary> find() {
    QLibrary file(QStringLiteral("mpv"), MPV_CLIENT_API_VERSION >> 16);
    // It starts threads that nobody can wait for, and must not go before the process does.
    file.setLoadHints(QLibrary::PreventUnloadHint);
    MpvLibrary mpv{};
    if (!file.load() || !resolveHandle(file, mpv) || !resolveRender(file, mpv))
        return {};
    return mpv;
}

} // namespace

const MpvLibrary* MpvLibrary::load() {
    static const std::optional<MpvLibrary> library = find();
    return library ? &*library : nullptr;
}
