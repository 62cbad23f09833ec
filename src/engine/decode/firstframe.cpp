#include "firstframe.h"

#include "ffmpegmutex.h"
#include "logging.h"

#include <opencv2/core.hpp>
#include <opencv2/videoio.hpp>

#include <QFile>
#include <QMutexLocker>

#include <exception>

namespace {

bool grab(const std::string& fileName, QImage* image) {
    routeLibavLog();
    cv::VideoCapture capture;
    {
        QMutexLocker lock(&ffmpegMutex());
        // Named, so that no other back end answers for a file that is not a video.
        capture.open(fileName, cv::CAP_FFMPEG);
    }
    if (!capture.isOpened())
        return false;
    // The region is measured on pictures as they are decoded, so it must be drawn on such a one.
    capture.set(cv::CAP_PROP_ORIENTATION_AUTO, 0);
    cv::Mat picture;
    if (!capture.read(picture) || !picture.data || picture.total() == 0 ||
        picture.type() != CV_8UC3)
        return false;
    *image =
        QImage(picture.data, picture.cols, picture.rows, int(picture.step), QImage::Format_RGB888)
            .rgbSwapped();
    QMutexLocker lock(&ffmpegMutex());
    capture.release();
    return true;
}

} // namespace

bool grabFirstFrame(const QString& fileName, QImage* image) {
    try {
        return grab(QFile::encodeName(fileName).toStdString(), image);
    } catch (const std::exception& exception) {
        qCWarning(engineLog, "no first picture: %s", exception.what());
        return false;
    }
}
