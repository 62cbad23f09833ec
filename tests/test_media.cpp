// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The recordings that tests make are the same, byte for byte, on every machine with these encoders.

#include "files.h"
#include "media.h"

#include <QTemporaryDir>
#include <QtTest>

class TestMedia : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bytesDoNotDependOnCores_data();
    void bytesDoNotDependOnCores();

private:
    QByteArray bytesWith(int cores, const QString& name, const QStringList& options);

    QTemporaryDir folder;
};

void TestMedia::bytesDoNotDependOnCores_data() {
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("options");
    const auto row = [](const char* suffix, const char* options) {
        QTest::newRow(options) << QString(suffix) << QString(options);
    };
    row("mp4", "-c:v libx264");
    row("mkv", "-c:v libx265 -preset ultrafast -x265-params log-level=none:keyint=25");
    row("mp4", "-c:v libx265 -preset ultrafast");
    row("avi", "-c:v mpeg4 -bf 2");
    row("ts", "-c:v mpeg2video");
    row("mkv", "-c:v libsvtav1 -preset 12");
    row("webm", "-c:v libvpx-vp9 -deadline realtime -cpu-used 8");
    row("mkv", "-c:v ffv1 -level 3");
}

QByteArray TestMedia::bytesWith(int cores, const QString& name, const QStringList& options) {
    const QString path = folder.filePath(name);
    QFile::remove(path);
    qputenv("SEEN_CORES", QByteArray::number(cores));
    qputenv("LD_PRELOAD", KESTROVA_SEEN_CORES);
    const bool isMade =
        media::encode(media::crossingBox(3, 1, 2, "160x128") + options + QStringList{path});
    qunsetenv("LD_PRELOAD");
    return isMade ? readFile(path) : QByteArray();
}

void TestMedia::bytesDoNotDependOnCores() {
    QFETCH(QString, suffix);
    QFETCH(QString, options);
    const QStringList arguments = options.split(' ');
    if (!media::hasEncoder(arguments.at(1)))
        QSKIP("this encoder is not installed");
    const QByteArray expected = bytesWith(1, "one." + suffix, arguments);
    QVERIFY(!expected.isEmpty());
    for (const int cores : {2, 16})
        QVERIFY(bytesWith(cores, "several." + suffix, arguments) == expected);
}

QTEST_GUILESS_MAIN(TestMedia)
#include "test_media.moc"
