// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mpvproperties.h"

#include "mpvhandle.h"

#include <cstdint>

namespace {

template<class Value>
Value valueOf(const mpv_event_property& told) {
    return *static_cast<const Value*>(told.data);
}

} // namespace

void MpvProperties::observe(MpvHandle& player) {
    for (const char* property : {"time-pos", "duration"})
        player.observe(property, MPV_FORMAT_DOUBLE);
    for (const char* property : {"pause", "eof-reached"})
        player.observe(property, MPV_FORMAT_FLAG);
    for (const char* property : {"dwidth", "dheight"})
        player.observe(property, MPV_FORMAT_INT64);
}

MpvProperties::Change MpvProperties::take(const mpv_event_property& told) {
    if (told.format == MPV_FORMAT_NONE)
        return Change::None;
    const QByteArray name = told.name;
    if (name == "time-pos") {
        time = valueOf<double>(told);
        return Change::Time;
    }
    if (name == "duration") {
        length = valueOf<double>(told);
        return Change::Length;
    }
    if (name == "eof-reached") {
        isAtEnd = valueOf<int>(told) != 0;
        return Change::End;
    }
    if (name == "pause") {
        isPaused = valueOf<int>(told) != 0;
        return Change::Pause;
    }
    if (name == "dwidth")
        shape.setWidth(int(valueOf<std::int64_t>(told)));
    else if (name == "dheight")
        shape.setHeight(int(valueOf<std::int64_t>(told)));
    return Change::Shape;
}
