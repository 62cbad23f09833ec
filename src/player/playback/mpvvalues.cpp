// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mpvvalues.h"

#include <cstring>

QByteArray numberText(double number) {
    return QByteArray::number(number, 'f', 6);
}

QByteArray flagText(bool flag) {
    return flag ? "yes" : "no";
}

std::int64_t entryOf(const mpv_node& result) {
    for (int i = 0; result.format == MPV_FORMAT_NODE_MAP && i < result.u.list->num; ++i) {
        if (std::strcmp(result.u.list->keys[i], "playlist_entry_id") == 0)
            return result.u.list->values[i].u.int64;
    }
    return 0;
}

double secondsOf(const mpv_event& reply) {
    if (reply.error < 0)
        return 0.0;
    return *static_cast<double*>(static_cast<const mpv_event_property*>(reply.data)->data);
}
