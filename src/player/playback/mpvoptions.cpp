// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mpvoptions.h"

#include <algorithm>
#include <array>

namespace {

struct Option {
    const char* name;
    const char* value;
};

/// Without these it is not used at all.
constexpr std::array needed = {
    Option{"config", "no"},
    Option{"load-scripts", "no"},
    Option{"ytdl", "no"},
    Option{"terminal", "no"},
    Option{"idle", "yes"},
    Option{"vo", "libmpv"},
    Option{"hwdec", "no"},
    // Nothing but the one file.
    Option{"demuxer", "lavf"}, // its own ones know playlists, edit lists and archives
    Option{"demuxer-lavf-o", "protocol_whitelist=none"},
    Option{"access-references", "no"},
    Option{"load-unsafe-playlists", "no"},
    Option{"autoload-files", "no"},
    Option{"sub-auto", "no"},
    Option{"audio-file-auto", "no"},
    Option{"cover-art-auto", "no"},
    Option{"resume-playback", "no"},
    Option{"save-position-on-quit", "no"},
    // The picture as it was searched, and its times.
    Option{"video-rotate", "no"},
    Option{"keepaspect", "no"}, // who draws it gives it its room
    Option{"hr-seek", "yes"},
    Option{"keep-open", "yes"},
    Option{"sid", "no"},
    Option{"osd-level", "0"},
    Option{"audio-fallback-to-null", "yes"},
    // A clip is looked at here and there: reading far ahead is of no use.
    Option{"cache", "no"},
    Option{"demuxer-max-bytes", "16MiB"},
    Option{"demuxer-max-back-bytes", "4MiB"},
};

/// Not every version knows them.
constexpr std::array wished = {
    Option{"osc", "no"},
    Option{"load-stats-overlay", "no"},
    Option{"load-osd-console", "no"},
    Option{"load-console", "no"},
    Option{"load-select", "no"},
    Option{"load-positioning", "no"},
    Option{"load-commands", "no"},
    Option{"load-auto-profiles", "no"},
    Option{"input-default-bindings", "no"},
    Option{"input-builtin-bindings", "no"},
    Option{"input-media-keys", "no"},
    Option{"input-vo-keyboard", "no"},
    Option{"stop-screensaver", "no"},
    Option{"embeddedfonts", "no"},
    Option{"audio-display", "no"},
    Option{"audio-client-name", "Kestrova"},
    Option{"ao", "pipewire,pulse,alsa"}, // others start servers of their own
    Option{"vd-lavc-threads", "4"},      // each more keeps pictures
};

} // namespace

bool setPlayerOptions(const MpvLibrary& library, mpv_handle* player) {
    for (const Option& option : wished)
        library.setOption(player, option.name, option.value);
    return std::all_of(needed.begin(), needed.end(), [&](const Option& option) {
        return library.setOption(player, option.name, option.value) >= 0;
    });
}
