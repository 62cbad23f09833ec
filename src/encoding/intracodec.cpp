#include "intracodec.h"

bool isIntraCodec(const QByteArray& codecName) {
    return codecName == "mjpeg" || codecName == "mjpegb" || codecName == "lagarith";
}
