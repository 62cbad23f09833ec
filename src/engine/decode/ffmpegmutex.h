#pragma once

#include <QMutex>

/// The process-wide, non-recursive lock around opening and closing media files.
///
/// Whoever opens or closes a file with the media libraries holds it; reading and decoding do not.
QMutex& ffmpegMutex();
