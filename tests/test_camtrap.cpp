// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camtrapcontent.h"
#include "camtrapfolder.h"
#include "camtrapmetadata.h"
#include "camtrapsites.h"
#include "camtraptables.h"
#include "camtraptime.h"
#include "filelimit.h"
#include "filenamecodec.h"
#include "files.h"
#include "mediapath.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimeZone>
#include <QtTest>

namespace {

QDateTime berlin(const QString& time) {
    const QDateTime wall = QDateTime::fromString(time, Qt::ISODateWithMs);
    return {wall.date(), wall.time(), QTimeZone("Europe/Berlin")};
}

RecordingStart sureStart(const QString& time) {
    return {berlin(time), StartSource::Name, StartCertainty::Sure, {}};
}

/// A recording of a minute with these clips.
CamtrapRecording recorded(const QString& path, const QString& time,
                          const QVector<CamtrapClip>& clips = {}) {
    return {path, sureStart(time), 60.0, {}, clips};
}

CamtrapClip clipOf(int index, double start, double end) {
    return {index, start, end, (start + end) / 2, {}, {}};
}

const CamtrapSite north = {"/cams/north", 52.5, 13.25};
const CamtrapSite south = {"/cams/south", -33.0, 18.125};

/// Lines of CSV without quotes, each by the names of its columns.
QList<QMap<QString, QString>> linesOf(const QByteArray& table) {
    QStringList lines = QString::fromUtf8(table).split("\r\n");
    const QStringList columns = lines.takeFirst().split(',');
    if (lines.takeLast() != QString())
        return {};
    QList<QMap<QString, QString>> all;
    for (const QString& line : qAsConst(lines)) {
        const QStringList fields = line.split(',');
        QMap<QString, QString> named;
        for (int i = 0; i < columns.size(); ++i)
            named[columns[i]] = fields.value(i);
        all.append(named);
    }
    return all;
}

} // namespace

/// Camtrap DP packages: what stands in their tables.
class TestCamtrap : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void timesHaveZonesAndWholeSeconds_data();
    void timesHaveZonesAndWholeSeconds();
    void pathsAreThoseOfTheStandard_data();
    void pathsAreThoseOfTheStandard();
    void mediaTypesAreOfVideos_data();
    void mediaTypesAreOfVideos();
    void sitesAreFolders();
    void sitesOfToldFolders();
    void eventsLieInTheirDeployment();
    void daylightSavingIsKept();
    void doubtfulTimesAreTold();
    void filesOfClipsAreMedia();
    void namesAreThoseOfPaths();
    void namesOfAnyKind();
    void metadataTellsThePlacesAndDays();
    void packageIsWritten();
    void whatCannotBeWrittenIsTold();
    void olderPackageStaysWhereThereIsNoRoom();
};

void TestCamtrap::timesHaveZonesAndWholeSeconds_data() {
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("behind");
    QTest::addRow("whole") << berlin("2026-11-16T09:05:00") << "2026-11-16T09:05:00+01:00"
                           << "2026-11-16T09:05:00+01:00";
    QTest::addRow("part of a second")
        << berlin("2026-11-16T09:05:00.001") << "2026-11-16T09:05:00+01:00"
        << "2026-11-16T09:05:01+01:00";
    QTest::addRow("summer") << berlin("2026-07-01T23:59:59.999") << "2026-07-01T23:59:59+02:00"
                            << "2026-07-02T00:00:00+02:00";
    QTest::addRow("UTC") << QDateTime({2026, 1, 2}, {3, 4, 5}, Qt::UTC) << "2026-01-02T03:04:05Z"
                         << "2026-01-02T03:04:05Z";
    QTest::addRow("west") << QDateTime({2026, 1, 2}, {3, 4, 5}, Qt::OffsetFromUTC, -12600)
                          << "2026-01-02T03:04:05-03:30"
                          << "2026-01-02T03:04:05-03:30";
}

void TestCamtrap::timesHaveZonesAndWholeSeconds() {
    QFETCH(QDateTime, time);
    QTEST(secondBefore(time), "before");
    QTEST(secondBehind(time), "behind");
}

void TestCamtrap::pathsAreThoseOfTheStandard_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("path");
    QTest::addRow("in the package") << QByteArray("/pkg/clips/a b.mkv") << "clips/a b.mkv";
    QTest::addRow("beside it") << QByteArray("/pkg2/a b.mkv") << "file:///pkg2/a%20b.mkv";
    QTest::addRow("through it") << QByteArray("/pkg/../night/a.mkv") << "file:///night/a.mkv";
    QTest::addRow("hidden") << QByteArray("/pkg/.a.mkv") << "file:///pkg/.a.mkv";
    QTest::addRow("a tilde") << QByteArray("/pkg/~a.mkv") << "file:///pkg/~a.mkv";
    QTest::addRow("a tilde inside") << QByteArray("/pkg/a~.mkv") << "a~.mkv";
    QTest::addRow("two full stops") << QByteArray("/pkg/a..mkv") << "file:///pkg/a%2E%2Emkv";
    QTest::addRow("three elsewhere") << QByteArray("/n/a...mkv") << "file:///n/a%2E%2E.mkv";
    QTest::addRow("no UTF-8") << QByteArray("/pkg/\xe9.mkv") << "file:///pkg/%E9.mkv";
    QTest::addRow("a line break") << QByteArray("/pkg/a\nb.mkv") << "file:///pkg/a%0Ab.mkv";
}

void TestCamtrap::pathsAreThoseOfTheStandard() {
    QFETCH(QByteArray, file);
    const QString path = mediaPath(QFile::decodeName(file), "/pkg");
    QTEST(path, "path");
    static const QRegularExpression standard("^(?=^[^./~])(^((?!\\.{2}).)*$).*$");
    QVERIFY(standard.match(path).hasMatch());
}

void TestCamtrap::mediaTypesAreOfVideos_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("type");
    QTest::addRow("mp4") << "/a/b.MP4"
                         << "video/mp4";
    QTest::addRow("mkv") << "b.mkv"
                         << "video/matroska";
    QTest::addRow("png") << "b.png"
                         << "image/png";
    QTest::addRow("rare") << "b.nut"
                          << "video/x-nut";
    QTest::addRow("odd") << "b.x,y"
                         << "video/x-unknown";
    QTest::addRow("none") << "/a.b/c"
                          << "video/x-unknown";
}

void TestCamtrap::mediaTypesAreOfVideos() {
    QFETCH(QString, file);
    QTEST(mediaType(file), "type");
}

void TestCamtrap::sitesAreFolders() {
    CamtrapSites sites({{QString(), 1.5, 2.5}});
    const auto site = sites.siteOf("/cams/north/day/../a.mp4");
    QVERIFY(site.has_value());
    QCOMPARE(site->folder, QString("/cams/north"));
    QCOMPARE(site->latitude, 1.5);
    QCOMPARE(site->longitude, 2.5);
    QCOMPARE(sites.siteOf("/cams/south/a.mp4")->folder, QString("/cams/south"));
    QCOMPARE(sites.idle(), QStringList());
}

void TestCamtrap::sitesOfToldFolders() {
    CamtrapSites sites({{"/cams/north", 1, 0}, {"/cams/north/new/", 2, 0}, {"/cams/west", 3, 0}});
    QCOMPARE(sites.siteOf("/cams/north/monday/a.mp4")->folder, QString("/cams/north"));
    QCOMPARE(sites.siteOf("/cams/north/tuesday/a.mp4")->latitude, 1.0);
    QCOMPARE(sites.siteOf("/cams/north/new/a.mp4")->folder, QString("/cams/north/new"));
    QVERIFY(!sites.siteOf("/cams/northern/a.mp4").has_value());
    QCOMPARE(sites.idle(), QStringList({"/cams/west"}));

    CamtrapSites all({{"/", 1, 0}, {QString(), 2, 0}});
    QCOMPARE(all.siteOf("/a.mp4")->latitude, 1.0);
}

void TestCamtrap::eventsLieInTheirDeployment() {
    CamtrapPackage package;
    CamtrapContent content(package);
    content.add(recorded("/cams/north/b.mp4", "2026-11-16T10:00:00", {clipOf(0, 58, 61.5)}), north);
    content.add(recorded("/cams/south/c.mp4", "2026-11-18T10:00:00"), south);
    content.add(recorded("/cams/north/a.mp4", "2026-11-15T08:00:00.25",
                         {clipOf(0, -2.5, 6.25), clipOf(1, 10, 20)}),
                north);

    const auto deployments = linesOf(deploymentsTable(package));
    QCOMPARE(deployments.size(), 2);
    QCOMPARE(deployments[0]["locationName"], QString("north"));
    QCOMPARE(deployments[0]["latitude"], QString("52.5"));
    QCOMPARE(deployments[0]["longitude"], QString("13.25"));
    QCOMPARE(deployments[0]["deploymentStart"], QString("2026-11-15T08:00:00+01:00"));
    QCOMPARE(deployments[0]["deploymentEnd"], QString("2026-11-16T10:01:02+01:00"));
    QCOMPARE(deployments[1]["latitude"], QString("-33"));
    QCOMPARE(deployments[1]["deploymentEnd"], QString("2026-11-18T10:01:00+01:00"));

    const auto media = linesOf(mediaTable(package, "/pkg"));
    QCOMPARE(media.size(), 3);
    QCOMPARE(media[2]["timestamp"], QString("2026-11-15T08:00:00+01:00"));
    QCOMPARE(media[2]["fileName"], QString("a.mp4"));
    QCOMPARE(media[2]["captureMethod"], QString());
    QCOMPARE(media[2]["deploymentID"], deployments[0]["deploymentID"]);
    QCOMPARE(media[1]["deploymentID"], deployments[1]["deploymentID"]);

    const auto events = linesOf(observationsTable(package).replace("\"", "'"));
    QCOMPARE(events.size(), 3);
    QCOMPARE(events[0]["eventStart"], QString("2026-11-16T10:00:58+01:00"));
    QCOMPARE(events[0]["eventEnd"], QString("2026-11-16T10:01:02+01:00"));
    // Nothing was recorded before the first picture.
    QCOMPARE(events[1]["eventStart"], QString("2026-11-15T08:00:00+01:00"));
    QCOMPARE(events[1]["eventEnd"], QString("2026-11-15T08:00:07+01:00"));
    for (const auto& event : events) {
        QCOMPARE(event["observationLevel"], QString("event"));
        QCOMPARE(event["observationType"], QString("unclassified"));
        QCOMPARE(event["mediaID"], QString());
        QCOMPARE(event["deploymentID"], deployments[0]["deploymentID"]);
    }
}

void TestCamtrap::daylightSavingIsKept() {
    CamtrapPackage package;
    CamtrapContent content(package);
    // The clock is put back from 3 to 2 in this recording of 4 hours.
    CamtrapRecording recording = recorded("/cams/north/a.mp4", "2026-10-25T01:00:00",
                                          {clipOf(0, 3600, 3601), clipOf(1, 7200, 7201)});
    recording.seconds = 4 * 3600;
    content.add(recording, north);
    const auto events = linesOf(observationsTable(package));
    QCOMPARE(events[0]["eventStart"], QString("2026-10-25T02:00:00+02:00"));
    QCOMPARE(events[1]["eventStart"], QString("2026-10-25T02:00:00+01:00"));
    QCOMPARE(linesOf(deploymentsTable(package))[0]["deploymentEnd"],
             QString("2026-10-25T04:00:00+01:00"));
}

void TestCamtrap::doubtfulTimesAreTold() {
    CamtrapPackage package;
    CamtrapContent content(package);
    content.add(recorded("/cams/north/a.mp4", "2026-11-16T10:00:00"), north);
    content.add(recorded("/cams/south/a.mp4", "2026-11-16T10:00:00"), south);
    CamtrapRecording rough = recorded("/cams/south/b.mp4", "2026-11-16T11:00:00");
    rough.start.certainty = StartCertainty::Rough;
    content.add(rough, south);
    const auto deployments = linesOf(deploymentsTable(package));
    QCOMPARE(deployments[0]["timestampIssues"], QString());
    QCOMPARE(deployments[1]["timestampIssues"], QString("true"));
}

void TestCamtrap::filesOfClipsAreMedia() {
    CamtrapClip clip = clipOf(3, 10.5, 20.5);
    clip.exportFile = "/pkg/clips/0003.mkv";
    clip.snapshotFile = "/pkg/pictures/a-0003.png";
    CamtrapPackage package;
    CamtrapContent(package).add(recorded("/cams/north/a.mp4", "2026-11-16T10:00:00", {clip}),
                                north);
    const auto media = linesOf(mediaTable(package, "/pkg"));
    QCOMPARE(media.size(), 3);
    QCOMPARE(media[1]["filePath"], QString("clips/0003.mkv"));
    QCOMPARE(media[1]["timestamp"], QString("2026-11-16T10:00:10+01:00"));
    QCOMPARE(media[1]["captureMethod"], QString("activityDetection"));
    QCOMPARE(media[2]["filePath"], QString("pictures/a-0003.png"));
    QCOMPARE(media[2]["timestamp"], QString("2026-11-16T10:00:15+01:00"));
    QCOMPARE(media[2]["fileMediatype"], QString("image/png"));
    // Whoever puts media and events together goes by their times.
    const auto event = linesOf(observationsTable(package))[0];
    for (int i : {1, 2})
        QVERIFY(event["eventStart"] <= media[i]["timestamp"] &&
                media[i]["timestamp"] <= event["eventEnd"]);
}

void TestCamtrap::namesAreThoseOfPaths() {
    const auto idsOf = [](const QStringList& paths) {
        CamtrapPackage package;
        CamtrapContent content(package);
        for (const QString& path : paths)
            content.add(recorded(path, "2026-11-16T10:00:00", {clipOf(0, 1, 2)}),
                        {QFileInfo(path).path(), 1, 2});
        QStringList ids;
        for (const CamtrapDeployment& deployment : package.deployments)
            ids += deployment.id;
        for (const CamtrapMedia& media : package.media)
            ids += media.id;
        for (const CamtrapObservation& observation : package.observations)
            ids += observation.id;
        ids.sort();
        return ids;
    };
    const QStringList both = idsOf({"/x/cam/a.mp4", "/y/cam/a.mp4"});
    QCOMPARE(both.size(), 6);
    QCOMPARE(QSet<QString>(both.cbegin(), both.cend()).size(), 6);
    QCOMPARE(idsOf({"/y/cam/a.mp4", "/x/cam/a.mp4"}), both);
    for (const QString& id : idsOf({"/x/cam/a.mp4"}))
        QVERIFY(both.contains(id));
    QCOMPARE(idsOf({"/x/cam/a.mp4", "/x/cam/a.mp4"}), idsOf({"/x/cam/a.mp4"})); // named twice
}

void TestCamtrap::namesOfAnyKind() {
    const QString folder = QFile::decodeName("/cams/caf\xe9, \"north\"");
    CamtrapPackage package;
    CamtrapContent(package).add(
        recorded(folder + "/a\n\x1b.mp4", "2026-11-16T10:00:00", {clipOf(0, 1, 2)}),
        {folder, 1, 2});
    for (const QByteArray& table :
         {deploymentsTable(package), mediaTable(package, "/pkg"), observationsTable(package)}) {
        QCOMPARE(QString::fromUtf8(table).toUtf8(), table);
        QVERIFY(!table.contains("\xef\xbf\xbd\xef\xbf\xbd"));
    }
    QVERIFY(deploymentsTable(package).contains(", \"\"north\"\"\","));
    QVERIFY(observationsTable(package).contains("\"a\\n\\x1b.mp4, 1 s to 2 s\"\r\n"));
    CamtrapPackage root;
    CamtrapContent(root).add(recorded("/a.mp4", "2026-11-16T10:00:00"), {"/", 1, 2});
    QCOMPARE(root.deployments[0].name, QString("recordings"));
}

void TestCamtrap::metadataTellsThePlacesAndDays() {
    CamtrapPackage package;
    package.project = {"Otters \"at\" night", {"Anna", "Society"}, "targeted"};
    package.created = QDateTime({2026, 11, 20}, {1, 2, 3}, Qt::UTC);
    CamtrapContent content(package);
    content.add(recorded("/cams/north/a.mp4", "2026-11-16T23:59:30"), north);
    QJsonObject object = QJsonDocument::fromJson(camtrapMetadata(package)).object();
    QCOMPARE(object["created"].toString(), QString("2026-11-20T01:02:03Z"));
    QCOMPARE(object["project"].toObject()["title"].toString(), package.project.title);
    QCOMPARE(object["project"].toObject()["samplingDesign"].toString(), QString("targeted"));
    QCOMPARE(object["contributors"].toArray().size(), 2);
    QCOMPARE(object["contributors"].toArray()[1].toObject()["title"].toString(),
             QString("Society"));
    QCOMPARE(object["spatial"].toObject()["type"].toString(), QString("Point"));
    QCOMPARE(object["spatial"].toObject()["coordinates"].toArray(), QJsonArray({13.25, 52.5}));
    QCOMPARE(object["temporal"].toObject()["start"].toString(), QString("2026-11-16"));
    QCOMPARE(object["temporal"].toObject()["end"].toString(), QString("2026-11-17"));
    QCOMPARE(object["taxonomic"].toArray().size(), 0);
    QVERIFY(!object.contains("description"));

    content.add(recorded("/cams/south/a.mp4", "2026-11-14T12:00:00"), south);
    package.description = "Cut short";
    object = QJsonDocument::fromJson(camtrapMetadata(package)).object();
    QCOMPARE(object["spatial"].toObject()["type"].toString(), QString("MultiPoint"));
    QCOMPARE(object["spatial"].toObject()["coordinates"].toArray().size(), 2);
    QCOMPARE(object["temporal"].toObject()["start"].toString(), QString("2026-11-14"));
    QCOMPARE(object["temporal"].toObject()["end"].toString(), QString("2026-11-17"));
    QCOMPARE(object["description"].toString(), QString("Cut short"));
}

void TestCamtrap::packageIsWritten() {
    QTemporaryDir folder;
    CamtrapPackage package;
    CamtrapContent(package).add(recorded("/cams/north/a.mp4", "2026-11-16T10:00:00"), north);
    QCOMPARE(writeCamtrapPackage(package, folder.path()), QString());
    QCOMPARE(readFile(folder.filePath("deployments.csv")), deploymentsTable(package));
    QCOMPARE(readFile(folder.filePath("media.csv")), mediaTable(package, folder.path()));
    QCOMPARE(readFile(folder.filePath("observations.csv")), observationsTable(package));
    QCOMPARE(readFile(folder.filePath("datapackage.json")), camtrapMetadata(package));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 4);
}

void TestCamtrap::whatCannotBeWrittenIsTold() {
    QTemporaryDir folder;
    CamtrapPackage package;
    CamtrapContent(package).add(recorded("/cams/north/a.mp4", "2026-11-16T10:00:00"), north);
    QVERIFY(QDir(folder.path()).mkpath("media.csv/in the way"));
    QVERIFY(writeCamtrapPackage(package, folder.path()).startsWith("media.csv: "));
    QVERIFY(!QFileInfo::exists(folder.filePath("datapackage.json")));
}

/// With tables of two packages none would be whole.
void TestCamtrap::olderPackageStaysWhereThereIsNoRoom() {
    QTemporaryDir folder;
    CamtrapPackage package;
    CamtrapContent content(package);
    content.add(recorded("/cams/north/a.mp4", "2026-11-16T10:00:00"), north);
    QCOMPARE(writeCamtrapPackage(package, folder.path()), QString());
    const QByteArray deployments = readFile(folder.filePath("deployments.csv"));

    for (int i = 0; i < 20; ++i)
        content.add(recorded(QStringLiteral("/cams/south/%1.mp4").arg(i), "2026-11-16T10:00:00"),
                    south);
    const int room = mediaTable(package, folder.path()).size() - 1;
    QVERIFY(deploymentsTable(package).size() <= room);
    const FileLimit limit(room);
    const QString failure = writeCamtrapPackage(package, folder.path());
    QVERIFY2(failure.startsWith("media.csv: "), qPrintable(failure));
    QCOMPARE(readFile(folder.filePath("deployments.csv")), deployments);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 4);
}

int main(int argc, char* argv[]) {
    installFileNameCodec();
    QCoreApplication application(argc, argv);
    TestCamtrap test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_camtrap.moc"
