// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <mpv/client.h>
#include <mpv/render.h>
#include <mpv/stream_cb.h>

/// The functions of libmpv, which is looked for when somebody wants to play, not when the program
/// starts: it takes a hundred libraries along. Each is named as there, less its "mpv_".
struct MpvLibrary {
    decltype(&mpv_create) create;
    decltype(&mpv_initialize) initialize;
    decltype(&mpv_terminate_destroy) terminateDestroy;
    decltype(&mpv_set_option_string) setOption;
    decltype(&mpv_command_async) commandAsync;
    decltype(&mpv_set_property_async) setPropertyAsync;
    decltype(&mpv_get_property_async) getPropertyAsync;
    decltype(&mpv_observe_property) observeProperty;
    decltype(&mpv_wait_event) waitEvent;
    decltype(&mpv_set_wakeup_callback) setWakeupCallback;
    decltype(&mpv_error_string) errorString;
    decltype(&mpv_stream_cb_add_ro) addStream;
    decltype(&mpv_render_context_create) createRender;
    decltype(&mpv_render_context_free) freeRender;
    decltype(&mpv_render_context_set_update_callback) setUpdateCallback;
    decltype(&mpv_render_context_update) update;
    decltype(&mpv_render_context_get_info) getInfo;
    decltype(&mpv_render_context_render) render;

    /// Null where it is not installed, or not whole. Any thread; takes a while the first time.
    static const MpvLibrary* load();
};
