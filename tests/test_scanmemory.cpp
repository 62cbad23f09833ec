// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner where pictures are huge or memory is short: all of a recording, or a clear word.

#include "files.h"
#include "hugepictures.h"
#include "media.h"
#include "process.h"

#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <sys/resource.h>

namespace {

const QStringList options = {"--quiet", "--format", "jsonl", "--minimum", "2"};

/// In an address space of that many KB.
ProcessResult scanWithin(int kilobytes, const QStringList& arguments) {
    const QString command = QStringLiteral("ulimit -v %1 && exec \"$0\" \"$@\"").arg(kilobytes);
    return runProgram("/bin/sh",
                      QStringList{"-c", command, media::programDirectory() + "/kestrova-scan"} +
                          options + arguments);
}

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", options + arguments);
}

QByteArray complaint(const QString& video, const QByteArray& reason) {
    return "kestrova-scan: " + video.toUtf8() + ": " + reason + '\n';
}

} // namespace

class TestScanMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // First, since the peak of all programs that have ended is looked at.
    void headersOfManyUnits();

    void picturesThatAreTooLarge();
    void picturesThatBecomeTooLarge();
    void decoderThatAllocatesByItself();
    void memoryIsShort_data();
    void memoryIsShort();

private:
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

void TestScanMemory::picturesThatAreTooLarge() {
    QVERIFY(media::writeGif(path("huge.gif"), 16000, 16000, 84));
    const ProcessResult result = scan({path("huge.gif")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, complaint(path("huge.gif"), "pictures of 16000 x 16000 are too large"));
    QCOMPARE(jsonLines(result.output).last()["state"].toString(), QString("failed"));
}

void TestScanMemory::picturesThatBecomeTooLarge() {
    const QString video = path("grows.avi");
    // Slow enough to stay in the left third, which is what is measured of packed pictures.
    QVERIFY(media::encode(media::crossingBox(8, 2, 20, "160x128") +
                          QStringList{"-pix_fmt", "rgb24", "-c:v", "png", video}));
    // With three bytes per pixel, only one picture would fit.
    QVERIFY(media::changePngSize(video, 150, 16000, 16000));
    const ProcessResult result = scan({video});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, complaint(video, "pictures of 16000 x 16000 are too large"));
    const QList<QJsonObject> lines = jsonLines(result.output);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0]["end"].toDouble(), 149 / 25.0); // the clip that was open
    QCOMPARE(lines[1]["state"].toString(), QString("failed"));
    QCOMPARE(lines[1]["frames"].toInt(), 150);
}

void TestScanMemory::decoderThatAllocatesByItself() {
    if (!media::hasEncoder("libsvtav1"))
        QSKIP("the encoder cannot write AV1 fast enough");
    const auto encode = [this](const QString& name, const QString& size, const QString& pictures) {
        return media::encode({"-f", "lavfi", "-i", "color=c=gray:r=5:s=" + size, "-frames:v",
                              pictures, "-c:v", "libsvtav1", "-preset", "12", path(name)});
    };
    QVERIFY(encode("large.obu", "8300x8300", "3"));
    const ProcessResult large = scan({"--fps", "5", path("large.obu")});
    QCOMPARE(large.status, 1);
    QCOMPARE(large.errors, complaint(path("large.obu"), "pictures of 8300 x 8300 are too large"));

    QVERIFY(encode("grows.obu", "320x240", "10"));
    QFile grows(path("grows.obu"));
    QVERIFY(grows.open(QIODevice::Append));
    grows.write(readFile(path("large.obu")));
    grows.close();
    const ProcessResult result = scan({"--fps", "5", path("grows.obu")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, complaint(path("grows.obu"), "its pictures become too large"));
    QCOMPARE(jsonLines(result.output).last()["frames"].toInt(), 10);
}

namespace {

/// An AVI file whose stream has `header` behind its format, `avi` being one without any.
QByteArray withHeader(QByteArray avi, const QByteArray& header) {
    const auto grow = [&avi](int place, quint32 bytes) {
        char* size = avi.data() + place + 4;
        qToLittleEndian(qFromLittleEndian<quint32>(size) + bytes, size);
    };
    const int format = avi.indexOf("strf");
    const auto size = qFromLittleEndian<quint32>(avi.constData() + format + 4);
    const int headers = avi.indexOf("LIST");
    for (const int chunk : {0, headers, int(avi.indexOf("LIST", headers + 12)), format})
        grow(chunk, quint32(header.size()));
    const int content = format + 8;
    qToLittleEndian(size + quint32(header.size()), avi.data() + content); // biSize
    return avi.insert(content + int(size), header);
}

} // namespace

// The decoder takes 4 KB for each unit; the most here would take 1.2 GB.
void TestScanMemory::headersOfManyUnits() {
    const QString video = path("units.avi");
    QVERIFY(media::encode(media::crossingBox(8, 2, 6, "96x64") +
                          QStringList{"-c:v", "libx264", "-bsf:v", "h264_mp4toannexb", video}));
    const QByteArray plain = readFile(video);
    const ProcessResult expected = scan({video});
    QCOMPARE(expected.status, 0);
    const QByteArray set = QByteArray::fromHex("00000168008095ff");
    for (const char* threads : {"1", "2"}) {
        QVERIFY(writeFile(video, withHeader(plain, set.repeated(20000))));
        const ProcessResult many = scan({"--threads", threads, video});
        QCOMPARE(many.errors, QByteArray());
        QCOMPARE(many.output, expected.output);
        QVERIFY(writeFile(video, withHeader(plain, set.repeated(300000))));
        const ProcessResult tooMany = scan({"--threads", threads, video});
        QCOMPARE(tooMany.errors, complaint(video, "its headers hold too many parameter sets"));
        QCOMPARE(tooMany.status, 3);
    }
    struct rusage usage {};
    QCOMPARE(getrusage(RUSAGE_CHILDREN, &usage), 0);
#ifdef __SANITIZE_ADDRESS__
    constexpr long mostKilobytes = 800 * 1024; // it keeps what was let go for a while
#else
    constexpr long mostKilobytes = 400 * 1024;
#endif
    QVERIFY2(usage.ru_maxrss < mostKilobytes, qPrintable(QString::number(usage.ru_maxrss)));
}

void TestScanMemory::memoryIsShort_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("encoding");
    QTest::newRow("GIF") << "short.gif" << QStringList();
    QTest::newRow("H.264") << "short.mp4"
                           << QStringList{"-c:v", "libx264", "-preset", "ultrafast", "-refs", "4"};
}

void TestScanMemory::memoryIsShort() {
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the address sanitizer needs all of the address space");
#endif
    QFETCH(QString, name);
    QFETCH(QStringList, encoding);
    const QString video = path(name);
    const QStringList input = {"-f", "lavfi", "-i", "testsrc2=s=3840x2160:r=5:d=2"};
    QVERIFY(encoding.isEmpty() ? media::writeGif(video, 4000, 4000, 20)
                               : media::encode(input + encoding + QStringList{video}));
    for (const char* threads : {"1", "4"}) {
        const QByteArray whole = scan({"--threads", threads, video}).output;
        QVERIFY(whole.contains("finished"));
        int failures = 0;
        int successes = 0;
        for (int megabytes = 200; megabytes <= 600; megabytes += 50) {
            const ProcessResult found = scanWithin(megabytes * 1024, {"--threads", threads, video});
            if (found.status == 0) {
                QCOMPARE(found.output, whole);
                ++successes;
            } else if (found.status == 1) {
                QCOMPARE(found.errors, complaint(video, "out of memory"));
                QVERIFY(!found.output.contains("finished"));
                ++failures;
            } else {
                QCOMPARE(found.status, 127); // its libraries found no room
            }
        }
        QVERIFY2(failures > 0 && successes > 0, qPrintable(QString::number(failures)));
    }
}

QTEST_GUILESS_MAIN(TestScanMemory)
#include "test_scanmemory.moc"
