// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Names that would steer a terminal or turn the direction of writing, through the whole scanner.

#include "filenamecodec.h"
#include "files.h"
#include "media.h"
#include "process.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// A terminal that a program writes to.
class Terminal {
public:
    Terminal()
        : descriptor(posix_openpt(O_RDWR | O_NOCTTY)) {
        isOpen = descriptor >= 0 && grantpt(descriptor) == 0 && unlockpt(descriptor) == 0;
        // Held open, so that what was written can still be read when the program has ended.
        held = isOpen ? open(ptsname(descriptor), O_RDWR | O_NOCTTY) : -1;
    }
    ~Terminal() {
        close(held);
        close(descriptor);
    }

    QString name() const { return QString::fromLatin1(ptsname(descriptor)); }

    /// What is there to be read, its line ends as they were written.
    QByteArray shown() const {
        QByteArray all;
        fcntl(descriptor, F_SETFL, O_NONBLOCK);
        char bytes[4096];
        for (ssize_t size = 0; (size = read(descriptor, bytes, sizeof bytes)) > 0;)
            all.append(bytes, int(size));
        return all.replace("\r\n", "\n");
    }

    bool isOpen = false;

private:
    int descriptor;
    int held = -1;
};

/// Whether nothing in it steers a terminal that takes bytes, or one that knows UTF-8.
bool isHarmless(const QByteArray& text) {
    const QByteArray withoutLineEnds = QByteArray(text).replace('\n', ' ');
    for (const char byte : withoutLineEnds) {
        if (uchar(byte) < ' ' || byte == '\x7f')
            return false;
    }
    return !text.contains("\xc2\x9b") && !text.contains("\xe2\x80\xae") && !text.contains("x\x9b");
}

} // namespace

class TestSteering : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void messagesAndTextAreHarmless();
    void jsonIsPlainAndComesBack();
    void filesGetNamesAsTheyAre();
    void xmlComesBack();
    void reportsAreIsolated();
    void terminalsAreNotSteered_data();
    void terminalsAreNotSteered();
    void libraryTextsAreHarmless();

private:
    ProcessResult scan(const QStringList& arguments) const {
        return runProgram("kestrova-scan",
                          QStringList{"--minimum", "2", "--postrecord", "2"} + arguments);
    }

    QTemporaryDir folder;
    QString video;   ///< one clip, UTF-8 in its name
    QString oldName; ///< the same with a byte of a terminal without UTF-8
    QByteArray name; ///< the bytes of the first
};

void TestSteering::initTestCase() {
    installFileNameCodec();
    name = folder.path().toUtf8() + "/gpj.\xe2\x80\xaehsalf\xc2\x9b"
                                    "2J\x7f,.mp4";
    video = QFile::decodeName(name);
    oldName = QFile::decodeName(folder.path().toUtf8() + "/x\x9b"
                                                         "2J.mp4");
    const QString plain = folder.filePath("plain.mp4");
    QVERIFY(media::encode(media::crossingBox(20, 6, 12) +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", plain}));
    QVERIFY(QFile::rename(plain, video));
    QVERIFY(QFile::copy(video, oldName));
}

void TestSteering::messagesAndTextAreHarmless() {
    const ProcessResult result = scan({video, oldName, video + "missing", oldName + "missing"});
    QVERIFY(result.output.contains("x\\x9b2J.mp4  #0"));
    QVERIFY(result.output.contains("gpj.\\xe2\\x80\\xaehsalf\\xc2\\x9b2J\\x7f,.mp4  #0"));
    QVERIFY2(isHarmless(result.output), result.output.constData());
    QCOMPARE(result.errors.count("missing"), 2);
    QVERIFY2(isHarmless(result.errors), result.errors.constData());
    const QString wrong = "x\u202e\u009b";
    for (const QStringList& arguments : {QStringList{"--" + wrong, video},
                                         {"--format", wrong, video},
                                         {"--trace", video, video}}) {
        const ProcessResult rejected = scan(arguments);
        QCOMPARE(rejected.status, 2);
        QVERIFY2(isHarmless(rejected.errors), rejected.errors.constData());
    }
}

void TestSteering::jsonIsPlainAndComesBack() {
    const QByteArray lines = scan({"--quiet", "--format", "jsonl", video, oldName}).output;
    QVERIFY2(isHarmless(lines), lines.constData());
    QVERIFY(lines.contains("gpj.\\u202ehsalf\\u009b2J\\u007f,.mp4\""));
    const QList<QJsonObject> objects = jsonLines(lines);
    QCOMPARE(objects.size(), 4);
    QCOMPARE(objects[0]["video"].toString().toUtf8(), name);
    QCOMPARE(QByteArray::fromBase64(objects[2]["videoBytes"].toString().toLatin1()),
             QFile::encodeName(oldName));
}

void TestSteering::filesGetNamesAsTheyAre() {
    QVERIFY(scan({"--quiet", "--format", "csv", video}).output.contains('"' + name + '"'));
    QVERIFY(scan({"--quiet", "--format", "mpv", video}).output.contains('%' + name + ','));
    QCOMPARE(scan({"--names", video}).output, name + '\0');
}

void TestSteering::xmlComesBack() {
    const QByteArray document = scan({"--quiet", "--format", "mlt", video}).output;
    QVERIFY2(isHarmless(document), document.constData());
    QXmlStreamReader reader(document);
    QString resource;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement &&
            reader.attributes().value("name") == "resource")
            resource = reader.readElementText();
    }
    QVERIFY(!reader.hasError());
    QCOMPARE(resource, video);
}

void TestSteering::reportsAreIsolated() {
    QCOMPARE(scan({"--quiet", "--report", folder.filePath("report"), video, oldName}).status, 0);
    const QByteArray page = readFile(folder.filePath("report/index.html"));
    QVERIFY(!page.contains("\xe2\x80\xae") && !page.contains("\xc2\x9b"));
    QVERIFY(page.contains("<wbr><bdi>gpj.\\xe2\\x80\\xaehsalf\\xc2\\x9b2J\\x7f,.mp4</bdi>"));
    QVERIFY(page.contains("<wbr><bdi>x\\x9b2J.mp4</bdi>"));
}

void TestSteering::terminalsAreNotSteered_data() {
    QTest::addColumn<QStringList>("options");
    for (const char* format : {"text", "jsonl", "csv", "m3u", "mpv", "cuts", "edl", "mlt"})
        QTest::newRow(format) << QStringList{"--quiet", "--format", format};
    QTest::newRow("names") << QStringList{"--names"};
}

void TestSteering::terminalsAreNotSteered() {
    QFETCH(QStringList, options);
    const Terminal terminal;
    if (!terminal.isOpen)
        QSKIP("this system gives no terminals");
    QProcess process;
    process.setStandardOutputFile(terminal.name());
    process.start(media::programDirectory() + "/kestrova-scan",
                  QStringList{"--minimum", "2", "--postrecord", "2"} + options +
                      QStringList{video});
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 0);
    const QByteArray shown = terminal.shown();
    QVERIFY2(shown.contains("hsalf"), shown.constData());
    QVERIFY2(isHarmless(QByteArray(shown).replace('\t', ' ').replace("\r\n", "\n")),
             shown.constData());
}

void TestSteering::libraryTextsAreHarmless() {
    // What the libraries say of a file has its texts, here a title.
    const QString titled = folder.filePath("titled.mkv");
    QVERIFY(media::encode({"-i", video, "-c", "copy", "-metadata", "title=\x1b[2J\u202e", titled}));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_LOGGING_RULES", "kestrova.libav=true");
    const ProcessResult result =
        runProgramIn(environment, "kestrova-scan", {"--quiet", "--to", "1", titled});
    QVERIFY2(result.errors.contains("title "), result.errors.constData());
    QVERIFY2(isHarmless(result.errors), result.errors.constData());
}

QTEST_GUILESS_MAIN(TestSteering)
#include "test_steering.moc"
