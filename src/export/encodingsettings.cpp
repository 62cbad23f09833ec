#include "encodingsettings.h"

#include <QSettings>

EncodingSettings readEncodingSettings() {
    const QSettings store;
    EncodingSettings settings;
    settings.outputFormat = store.value(QStringLiteral("output_format"), 0).toInt();
    settings.doTranscoding = store.value(QStringLiteral("do_transcoding"), false).toBool();
    settings.disableAudio = store.value(QStringLiteral("disable_audio"), false).toBool();
    settings.bitrateOutput = store.value(QStringLiteral("bitrate_output"), 2).toDouble();
    return settings;
}
