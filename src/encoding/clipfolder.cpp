#include "clipfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace {

/// In bytes.
int longestName(const QDir& directory) {
    constexpr int usual = 255;
    const long longest = pathconf(QFile::encodeName(directory.path()).constData(), _PC_NAME_MAX);
    return longest > 0 ? int(longest) : usual;
}

/// Takes off the last character, whole.
void chopCharacter(QString& text) {
    const QStringView last = QStringView(text).mid(qMax(0, text.size() - 2));
    const bool isPair = last.size() == 2 && last[0].isHighSurrogate() && last[1].isLowSurrogate();
    text.chop(isPair ? 2 : 1);
}

/// Shortens the base name, and the suffix where that is not enough, until `longest` bytes hold it.
QString folderName(QString baseName, QString suffix, int number, int longest) {
    // All at once: a file name may hold a "%3" of its own.
    const auto joined = [&] {
        return QStringLiteral("%1_%2_%3").arg(baseName, suffix, QString::number(number));
    };
    while (QFile::encodeName(joined()).size() > longest && !(baseName + suffix).isEmpty())
        chopCharacter(baseName.isEmpty() ? suffix : baseName);
    return joined();
}

} // namespace

QString makeClipFolder(const QString& fileName, const QString& exportDirectory) {
    const QFileInfo file(fileName);
    const QDir directory(exportDirectory);
    const int longest = longestName(directory);
    QString name;
    int number = 0;
    do {
        name = folderName(file.baseName(), file.suffix(), number++, longest);
    } while (directory.exists(name));
    directory.mkpath(name);
    return directory.absoluteFilePath(name);
}
