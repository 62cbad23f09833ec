// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camtraptables.h"

#include "camtraptime.h"
#include "escaping.h"
#include "mediapath.h"

#include <QFileInfo>
#include <QHash>
#include <QLocale>

namespace {

/// One table, line by line.
class Table {
public:
    explicit Table(const char* header)
        : columns(QByteArray(header).split(','))
        , lines(QByteArray(header) + "\r\n") {}

    /// A line that holds these fields, given by the names of their columns; the others are empty.
    void add(const QHash<QByteArray, QString>& fields) {
        QByteArrayList line;
        for (const QByteArray& column : columns)
            line.append(csvField(fields.value(column).toUtf8()));
        lines += line.join(',') + "\r\n";
    }

    const QByteArray& text() const { return lines; }

private:
    QByteArrayList columns;
    QByteArray lines;
};

/// As many digits as were told.
QString degrees(double value) {
    return QString::number(value, 'f', QLocale::FloatingPointShortest);
}

QString whereTrue(bool condition) {
    return condition ? QStringLiteral("true") : QString();
}

} // namespace

QByteArray deploymentsTable(const CamtrapPackage& package) {
    Table table("deploymentID,locationID,locationName,latitude,longitude,coordinateUncertainty,"
                "deploymentStart,deploymentEnd,setupBy,cameraID,cameraModel,cameraDelay,"
                "cameraHeight,cameraDepth,cameraTilt,cameraHeading,detectionDistance,"
                "timestampIssues,baitUse,featureType,habitat,deploymentGroups,deploymentTags,"
                "deploymentComments");
    for (const CamtrapDeployment& deployment : package.deployments)
        table.add({{"deploymentID", deployment.id},
                   {"locationName", deployment.name},
                   {"latitude", degrees(deployment.latitude)},
                   {"longitude", degrees(deployment.longitude)},
                   {"deploymentStart", secondBefore(deployment.start)},
                   {"deploymentEnd", secondBehind(deployment.end)},
                   {"timestampIssues", whereTrue(deployment.areTimesDoubtful)}});
    return table.text();
}

QByteArray mediaTable(const CamtrapPackage& package, const QString& folder) {
    Table table("mediaID,deploymentID,captureMethod,timestamp,filePath,filePublic,fileName,"
                "fileMediatype,exifData,favorite,mediaComments");
    for (const CamtrapMedia& media : package.media)
        table.add(
            {{"mediaID", media.id},
             {"deploymentID", media.deploymentId},
             {"captureMethod", media.isOfMotion ? QStringLiteral("activityDetection") : QString()},
             {"timestamp", secondBefore(media.time)},
             {"filePath", mediaPath(media.file, folder)},
             {"filePublic", QStringLiteral("false")},
             {"fileName", QFileInfo(media.file).fileName()},
             {"fileMediatype", mediaType(media.file)},
             {"mediaComments", media.comments}});
    return table.text();
}

QByteArray observationsTable(const CamtrapPackage& package) {
    Table table("observationID,deploymentID,mediaID,eventID,eventStart,eventEnd,observationLevel,"
                "observationType,cameraSetupType,scientificName,count,lifeStage,sex,behavior,"
                "individualID,individualPositionRadius,individualPositionAngle,individualSpeed,"
                "bboxX,bboxY,bboxWidth,bboxHeight,classificationMethod,classifiedBy,"
                "classificationTimestamp,classificationProbability,observationTags,"
                "observationComments");
    for (const CamtrapObservation& observation : package.observations)
        table.add({{"observationID", observation.id},
                   {"deploymentID", observation.deploymentId},
                   {"eventID", observation.id},
                   {"eventStart", secondBefore(observation.start)},
                   {"eventEnd", secondBehind(observation.end)},
                   {"observationLevel", QStringLiteral("event")},
                   {"observationType", QStringLiteral("unclassified")},
                   {"observationComments", observation.comments}});
    return table.text();
}
