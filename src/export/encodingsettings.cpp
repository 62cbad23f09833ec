// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encodingsettings.h"

#include "settingstable.h"

EncodingSettings readEncodingSettings() {
    const QSettings store;
    EncodingSettings encoding;
    encoding.container = containerStoredAs(settings::container.read(store));
    encoding.doTranscoding = settings::transcoding.read(store);
    encoding.disableAudio = settings::audioDisabled.read(store);
    encoding.bitrateOutput = settings::bitrate.read(store);
    return encoding;
}
