// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "mpvlibrary.h"

#include <QByteArray>

#include <functional>
#include <initializer_list>

/// One player of the library, with what it draws pictures with. Nothing here waits for it but the
/// beginning and the end: what is asked is answered by events.
class MpvHandle {
public:
    /// `woken` and `updated` are called by any thread, until this object is gone: events wait, or
    /// there is a picture to draw. They must do no more than send word.
    MpvHandle(const MpvLibrary& library, std::function<void()> woken,
              std::function<void()> updated);
    ~MpvHandle();
    MpvHandle(const MpvHandle&) = delete;
    MpvHandle& operator=(const MpvHandle&) = delete;

    /// False where it cannot begin. Once per object.
    bool open();

    mpv_handle* get() const { return handle; }
    mpv_render_context* picture() const { return render; }
    const MpvLibrary& functions() const { return library; }

    /// `id` comes back with the reply.
    void command(std::initializer_list<QByteArray> words, quint64 id = 0);
    void set(const char* property, const QByteArray& value);
    void ask(const char* property, mpv_format format, quint64 id);
    void observe(const char* property, mpv_format format);

    /// Whether the picture to be drawn now is another one than the last.
    bool hasNewPicture() const;

    /// The next event; null where none waits. Valid until the next call.
    const mpv_event* nextEvent();

private:
    bool openPicture();

    const MpvLibrary& library;
    const std::function<void()> woken;
    const std::function<void()> updated;
    mpv_handle* handle = nullptr;
    mpv_render_context* render = nullptr;
};
