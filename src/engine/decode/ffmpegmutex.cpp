#include "ffmpegmutex.h"

QMutex& ffmpegMutex() {
    static QMutex mutex;
    return mutex;
}
