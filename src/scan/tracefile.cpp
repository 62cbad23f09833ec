#include "tracefile.h"

#include <QLocale>

namespace {

QByteArray exact(double value) {
    return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}

} // namespace

bool TraceFile::open(const QString& fileName) {
    file.setFileName(fileName);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

void TraceFile::add(const FrameReport& frame) {
    if (!file.isOpen())
        return;
    file.write(QByteArray::number(frame.number) + '\t' + exact(frame.time) + '\t' +
               exact(frame.motion) + '\n');
}

bool TraceFile::close() {
    if (!file.isOpen())
        return true;
    const bool isWritten = file.flush() && file.error() == QFileDevice::NoError;
    file.close();
    return isWritten;
}

QString TraceFile::errorText() const {
    return file.errorString();
}
