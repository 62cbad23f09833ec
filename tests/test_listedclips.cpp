// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The lists for other programs, as texts.

#include "editlists.h"
#include "filenamecodec.h"
#include "playlists.h"

#include <QFile>
#include <QRegularExpression>
#include <QUrl>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

const QByteArray oddName = "/a b/caf\xe9 \"x\" & <y>'s\n#%,;=?.mp4";

ListedRecording recording(const QString& path, int numerator = 25, int denominator = 1) {
    ListedRecording recording;
    recording.path = path;
    recording.name = path.mid(path.lastIndexOf('/') + 1);
    recording.size = QSize(640, 360);
    recording.frameRateNumerator = numerator;
    recording.frameRateDenominator = denominator;
    return recording;
}

ListedClip clip(const ListedRecording& recording, double start, double end, int index = 0) {
    return {recording, index, start, end};
}

struct XmlElement {
    QString name;
    QXmlStreamAttributes attributes;
    QString text; ///< of an element that holds no other
};

/// Every element in the order in which they begin; none if the document is not well formed.
QVector<XmlElement> xmlElements(const QByteArray& document) {
    QXmlStreamReader reader(document);
    QVector<XmlElement> elements;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement)
            elements.append({reader.name().toString(), reader.attributes(), {}});
        else if (token == QXmlStreamReader::Characters && !elements.isEmpty())
            elements.last().text += reader.text();
    }
    return reader.hasError() ? QVector<XmlElement>() : elements;
}

QStringList attributesOf(const QVector<XmlElement>& elements, const QString& element,
                         const QString& attribute) {
    QStringList values;
    for (const XmlElement& candidate : elements) {
        if (candidate.name == element)
            values += candidate.attributes.value(attribute).toString();
    }
    return values;
}

/// Reel, source in and out, record in and out of every event.
QList<QStringList> events(const QByteArray& list) {
    const QRegularExpression event("^(\\d{3,})  ([A-Z0-9 ]{8}) V     C        (\\S+) (\\S+) "
                                   "(\\S+) (\\S+)$",
                                   QRegularExpression::MultilineOption);
    QList<QStringList> all;
    for (auto match = event.globalMatch(QString::fromUtf8(list)); match.hasNext();)
        all += match.next().capturedTexts().mid(1);
    return all;
}

} // namespace

class TestListedClips : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void m3uNamesTimesAndUrl();
    void m3uUrlsKeepEveryByte();
    void mpvNamesTimesAndPath();
    void mpvCountsBytesOfPaths();
    void cutsAreTabbed();
    void timesCountFromTheFilesBeginning();
    void edlHasAnEventPerClip();
    void edlCountsInTheFirstRate();
    void edlReelsDiffer();
    void edlWithoutClips();
    void mltHasProfileProducersAndEntries();
    void mltPositionsAreFrames_data();
    void mltPositionsAreFrames();
    void mltEscapesNames();
    void mltWithoutClips();
    void xmlHoldsSomeNamesOnly_data();
    void xmlHoldsSomeNamesOnly();
};

void TestListedClips::m3uNamesTimesAndUrl() {
    QCOMPARE(m3uHead(), QByteArray("#EXTM3U\n"));
    QCOMPARE(m3uLines(clip(recording("/cam/garden.mp4"), 2.4, 15.84, 3)),
             QByteArray("#EXTINF:14,garden.mp4 #3\n"
                        "#EXTVLCOPT:start-time=2.400000\n"
                        "#EXTVLCOPT:stop-time=15.840000\n"
                        "file:///cam/garden.mp4\n"));
}

void TestListedClips::m3uUrlsKeepEveryByte() {
    const ListedClip odd = clip(recording(QFile::decodeName(oddName)), 0.0, 1.0);
    const QByteArray url = m3uLines(odd).trimmed().split('\n').last();
    QVERIFY2(url.startsWith("file:///a%20b/caf%E9%20"), url.constData());
    QCOMPARE(QByteArray::fromPercentEncoding(url.mid(7)), oddName);
    for (const char letter : url)
        QVERIFY(QByteArray("/:%-._~").contains(letter) || QChar(letter).isLetterOrNumber());
}

void TestListedClips::mpvNamesTimesAndPath() {
    QCOMPARE(mpvHead(), QByteArray("# mpv EDL v0\n"));
    QCOMPARE(mpvLine(clip(recording("/cam/garden.mp4"), 2.4, 15.84)),
             QByteArray("%15%/cam/garden.mp4,2.400000,13.440000\n"));
}

void TestListedClips::mpvCountsBytesOfPaths() {
    const QByteArray line = mpvLine(clip(recording(QFile::decodeName(oddName)), 0.0, 1.0));
    QCOMPARE(line,
             '%' + QByteArray::number(oddName.size()) + '%' + oddName + ",0.000000,1.000000\n");
}

void TestListedClips::cutsAreTabbed() {
    QCOMPARE(cutLine(clip(recording("/cam/garden.mp4"), 2.4, 4000.04, 12)),
             QByteArray("2.400000\t4000.040000\tgarden.mp4 #12\n"));
}

void TestListedClips::timesCountFromTheFilesBeginning() {
    ListedRecording late = recording("/a.ts");
    late.offset = 1.5;
    QCOMPARE(cutLine(clip(late, 2.0, 4.0)), QByteArray("3.500000\t5.500000\ta.ts #0\n"));
    QCOMPARE(mpvLine(clip(late, 2.0, 4.0)), QByteArray("%5%/a.ts,3.500000,2.000000\n"));
    QVERIFY(m3uLines(clip(late, 2.0, 4.0)).contains("start-time=3.500000\n"));
    // A start before the first picture, and before the file.
    QCOMPARE(cutLine(clip(late, -1.0, 4.0)), QByteArray("0.500000\t5.500000\ta.ts #0\n"));
    QCOMPARE(mpvLine(clip(late, -2.0, 4.0)), QByteArray("%5%/a.ts,0.000000,5.500000\n"));
}

void TestListedClips::edlHasAnEventPerClip() {
    const QByteArray list = editDecisionList({clip(recording("/cam/garden.mp4"), 2.4, 15.84),
                                              clip(recording("/cam/gate.avi"), 61.0, 63.0),
                                              clip(recording("/cam/garden.mp4"), -2.0, 0.4, 1)});
    QVERIFY(list.startsWith("TITLE: KESTROVA CLIPS\nFCM: NON-DROP FRAME\n\n001  "));
    const QList<QStringList> all = events(list);
    QCOMPARE(all.size(), 3);
    QCOMPARE(all[0], QStringList({"001", "GARDEN  ", "00:00:02:10", "00:00:15:21", "00:00:00:00",
                                  "00:00:13:11"}));
    QCOMPARE(all[1], QStringList({"002", "GATE    ", "00:01:01:00", "00:01:03:00", "00:00:13:11",
                                  "00:00:15:11"}));
    QCOMPARE(all[2], QStringList({"003", "GARDEN  ", "00:00:00:00", "00:00:00:10", "00:00:15:11",
                                  "00:00:15:21"}));
    QCOMPARE(list.count("\n* FROM CLIP NAME: garden.mp4 #"), 2);
    QVERIFY(list.endsWith("\n* FROM CLIP NAME: garden.mp4 #1\n"));
}

void TestListedClips::edlCountsInTheFirstRate() {
    const QByteArray list = editDecisionList({clip(recording("/a.mp4", 30000, 1001), 1.001, 2.002),
                                              clip(recording("/b.mp4", 10), 1.001, 2.002)});
    for (const QStringList& event : events(list))
        QCOMPARE(event.mid(2, 2), QStringList({"00:00:01:00", "00:00:02:00"}));
}

void TestListedClips::edlReelsDiffer() {
    QVector<ListedClip> clips;
    for (const char* path : {"/a/front-door 1.mp4", "/a/front-door 2.mp4", "/b/FRONTDOO.avi",
                             "/a/front-door 1.mp4", "/--.mp4", "/x", "/\xc3\xa9t\xc3\xa9.mp4"})
        clips.append(clip(recording(path), 1.0, 2.0));
    for (int i = 0; i < 10; ++i)
        clips.append(clip(recording(QStringLiteral("/%1/x").arg(i)), 1.0, 2.0));
    QStringList reels;
    for (const QStringList& event : events(editDecisionList(clips)))
        reels += event[1].trimmed();
    QCOMPARE(reels, QStringList({"FRONTDOO", "FRONTDO2", "FRONTDO3", "FRONTDOO", "REEL", "X", "T",
                                 "X2", "X3", "X4", "X5", "X6", "X7", "X8", "X9", "X10", "X11"}));
}

void TestListedClips::edlWithoutClips() {
    QCOMPARE(editDecisionList({}), QByteArray("TITLE: KESTROVA CLIPS\nFCM: NON-DROP FRAME\n"));
}

void TestListedClips::mltHasProfileProducersAndEntries() {
    ListedRecording garden = recording("/cam/garden.mp4", 25, 2);
    garden.size = QSize(720, 576);
    garden.pixelAspectNumerator = 16;
    garden.pixelAspectDenominator = 15;
    const auto elements = xmlElements(
        mltDocument({clip(garden, 2.4, 15.84), clip(recording("/gate.avi", 10), 1.0, 2.0),
                     clip(garden, 20.0, 21.6, 1)}));
    QCOMPARE(elements.value(0).name, QString("mlt"));
    QCOMPARE(elements.value(1).name, QString("profile"));
    const QXmlStreamAttributes& profile = elements[1].attributes;
    const QVector<QPair<QString, QString>> expected = {{"width", "720"},
                                                       {"height", "576"},
                                                       {"progressive", "1"},
                                                       {"sample_aspect_num", "16"},
                                                       {"sample_aspect_den", "15"},
                                                       {"display_aspect_num", "11520"},
                                                       {"display_aspect_den", "8640"},
                                                       {"frame_rate_num", "25"},
                                                       {"frame_rate_den", "2"}};
    QCOMPARE(profile.size(), expected.size());
    for (const auto& attribute : expected)
        QCOMPARE(profile.value(attribute.first).toString(), attribute.second);

    const QStringList ids = attributesOf(elements, "producer", "id");
    QCOMPARE(ids.size(), 2);
    QVERIFY(ids[0] != ids[1]);
    QStringList resources;
    for (const XmlElement& element : elements) {
        if (element.attributes.value("name") == "resource")
            resources += element.text.trimmed();
    }
    QCOMPARE(resources, QStringList({"/cam/garden.mp4", "/gate.avi"}));
    QCOMPARE(attributesOf(elements, "playlist", "id").size(), 1);
    QCOMPARE(attributesOf(elements, "entry", "producer"), QStringList({ids[0], ids[1], ids[0]}));
    // Pictures at 12.5 a second, the last one included.
    QCOMPARE(attributesOf(elements, "entry", "in"), QStringList({"30", "13", "250"}));
    QCOMPARE(attributesOf(elements, "entry", "out"), QStringList({"197", "24", "269"}));
}

void TestListedClips::mltPositionsAreFrames_data() {
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("out");
    QTest::newRow("whole") << 1.0 << 2.0 << "25"
                           << "49";
    QTest::newRow("before the first picture") << -1.0 << 2.0 << "0"
                                              << "49";
    QTest::newRow("shorter than a picture") << 1.0 << 1.001 << "25"
                                            << "25";
    QTest::newRow("nearest") << 1.019 << 2.021 << "25"
                             << "50";
}

void TestListedClips::mltPositionsAreFrames() {
    QFETCH(double, start);
    QFETCH(double, end);
    const auto elements = xmlElements(mltDocument({clip(recording("/a.mp4"), start, end)}));
    QTEST(attributesOf(elements, "entry", "in").value(0), "in");
    QTEST(attributesOf(elements, "entry", "out").value(0), "out");
}

void TestListedClips::mltEscapesNames() {
    const QString path = "/a b/\"x\" & <y>'s\n\t]]>&amp; \u00e9\u96ea\U0001F408.mp4";
    const auto elements = xmlElements(mltDocument({clip(recording(path), 1.0, 2.0)}));
    QString resource;
    for (const XmlElement& element : elements) {
        if (element.attributes.value("name") == "resource")
            resource = element.text;
    }
    QCOMPARE(resource.left(path.size()), path);
    QCOMPARE(resource.trimmed(), path);
}

void TestListedClips::mltWithoutClips() {
    const auto elements = xmlElements(mltDocument({}));
    QCOMPARE(elements.size(), 2);
    QCOMPARE(elements[1].name, QString("playlist"));
}

void TestListedClips::xmlHoldsSomeNamesOnly_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isHeld");
    QTest::newRow("plain") << QByteArray("/a.mp4") << true;
    QTest::newRow("blanks") << QByteArray("/a \t\n\r.mp4") << true;
    QTest::newRow("a cat") << QByteArray("/\xf0\x9f\x90\x88.mp4") << true;
    QTest::newRow("no UTF-8") << QByteArray("/caf\xe9.mp4") << false;
    QTest::newRow("bell") << QByteArray("/\a.mp4") << false;
    QTest::newRow("escape") << QByteArray("/\x1b[2J.mp4") << false;
    QTest::newRow("no character") << QByteArray("/\xef\xbf\xbe.mp4") << false;
}

void TestListedClips::xmlHoldsSomeNamesOnly() {
    QFETCH(QByteArray, name);
    QTEST(canBeInXml(QFile::decodeName(name)), "isHeld");
}

int main(int argc, char* argv[]) {
    installFileNameCodec();
    QCoreApplication application(argc, argv);
    TestListedClips test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_listedclips.moc"
