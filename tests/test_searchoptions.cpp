// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What a job is told beside job setup and settings, and that the scanner finds the same when it is
// told the same.

#include "celldefaults.h"
#include "files.h"
#include "footage.h"
#include "jobrun.h"
#include "process.h"
#include "sample.h"

#include <QDir>
#include <QJsonObject>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

namespace {

DecidingOptions cells() {
    DecidingOptions options;
    options.detector = Detector::Cells;
    options.segmentation.minimum = cellsMinimum;
    options.segmentation.motionThreshold.value = float(cellsThreshold);
    return options;
}

struct Case {
    const char* name;
    QStringList arguments; ///< of the scanner
    SearchOptions search;
};

QVector<Case> allCases() {
    QVector<Case> all;
    all.append({"as set up", {}, {}});
    SearchOptions search;
    search.deciding = cells();
    all.append({"cells", {"--detector", "cells"}, search});

    search.deciding->cells.step = stepOf(4);
    search.deciding->segmentation.motionThreshold.value = 0.3F;
    search.deciding->segmentation.minimum = 1.0;
    all.append({"fainter cells",
                {"--detector", "cells", "--sensitivity", "4", "--threshold-motion", "0.3",
                 "--minimum", "1"},
                search});

    search.deciding = cells();
    search.deciding->cells.isRestlessIgnored = true;
    all.append({"without what is restless", {"--detector", "cells", "--ignore-restless"}, search});

    search.deciding = DecidingOptions();
    search.deciding->segmentation = {2.0, 3.0, 1.5, {0.2F}};
    all.append(
        {"other margins",
         {"--prerecord", "2", "--postrecord", "3", "--minimum", "1.5", "--threshold-motion", "0.2"},
         search});

    search.deciding->joiningGap = 2.0;
    all.append({"joined",
                {"--prerecord", "2", "--postrecord", "3", "--minimum", "1.5", "--threshold-motion",
                 "0.2", "--merge", "2"},
                search});

    search = {};
    search.isQuick = true;
    all.append({"quick", {"--quick"}, search});
    search.deciding = cells();
    search.deciding->joiningGap = 0.0;
    all.append({"quick, joined cells", {"--quick", "--detector", "cells", "--merge", "0"}, search});

    search = {};
    search.excluded = {QRect(0, 0, 150, 400), QRect(200, 20, 40, 40)};
    all.append({"excluded", {"--exclude", "0,0,150,400", "--exclude", "200,20,40,40"}, search});
    search.deciding = cells();
    all.append({"excluded, cells",
                {"--exclude", "0,0,150,400", "--exclude", "200,20,40,40", "--detector", "cells"},
                search});
    return all;
}

} // namespace

class TestSearchOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void equalsTheScanner_data();
    void equalsTheScanner();
    void excludedFromARectangle();

private:
    QTemporaryDir exports;
};

void TestSearchOptions::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("test_searchoptions");
    QSettings().clear();
    QSettings().setValue("kept_values_mb", 0);
}

void TestSearchOptions::equalsTheScanner_data() {
    addFoldersOfRecordings();
}

void TestSearchOptions::equalsTheScanner() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, folder);
    KESTROVA_REQUIRE_FOLDER(folder);
    int found = 0;
    for (const QString& name : recordingsIn(folder)) {
        const QString video = QDir(folder).filePath(name);
        for (const Case& one : allCases()) {
            Video job(video, exports.path(), 1.0, 1.0, 5.0, 0, false, nullptr, nullptr, false,
                      QDateTime());
            job.search = one.search;
            const JobRun run(job);
            job.detect();
            const ProcessResult scan =
                runProgram("kestrova-scan", QStringList{"--quiet", "--format", "jsonl"} +
                                                one.arguments + QStringList{video});
            const QByteArray where = name.toUtf8() + ", " + one.name;
            QVector<DetectedClip> expected;
            for (const QJsonObject& line : jsonLines(scan.output)) {
                if (line.contains("index"))
                    expected.append({line["index"].toInt(), QImage(), line["start"].toDouble(),
                                     line["end"].toDouble(), line["snapshotTime"].toDouble()});
            }
            QVERIFY2(run.clips.size() == expected.size(), where.constData());
            for (int i = 0; i < expected.size(); ++i) {
                QVERIFY2(run.clips[i].index == expected[i].index, where.constData());
                QVERIFY2(run.clips[i].start == expected[i].start, where.constData());
                QVERIFY2(run.clips[i].end == expected[i].end, where.constData());
                QVERIFY2(run.clips[i].snapshotTime == expected[i].snapshotTime, where.constData());
                QVERIFY2(!run.clips[i].snapshot.isNull(), where.constData());
            }
            QVERIFY2(run.statesAtResult == QVector<int>{Video::Finished}, where.constData());
            found += expected.size();
        }
    }
    QVERIFY(found > 20); // there was something to compare
}

/// A rectangle has the coordinates of its mask; what is excluded those of the recording.
void TestSearchOptions::excludedFromARectangle() {
    const QString video = QDir(recordingsDirectory()).filePath("gate.avi");
    const auto valuesOf = [&](const QSize& space, const QRect& rectangle) {
        const QImage mask(space, QImage::Format_ARGB32);
        Video job(video, exports.path(), 1.0, 1.0, 5.0, 0, false, &mask, &rectangle, false,
                  QDateTime());
        job.search.excluded = {QRect(100, 40, 20, 80)};
        job.detect();
        return job.motionValues;
    };
    Video whole(video, exports.path(), 1.0, 1.0, 5.0, 0, false, nullptr, nullptr, false,
                QDateTime());
    whole.detect();
    const QSize size = whole.news.facts().pictures;
    const QVector<float> values = valuesOf(size, {80, 40, 80, 80});
    QVERIFY(values.size() == whole.motionValues.size() && values != whole.motionValues);
    QCOMPARE(valuesOf(size * 2, {160, 80, 160, 160}), values);
    // The two rectangles that are left, as the scanner has them.
    const QString trace = exports.filePath("trace");
    runProgram("kestrova-scan", {"--quiet", "--roi", "80,40,80,80", "--exclude", "100,40,20,80",
                                 "--trace", trace, video});
    const QList<QByteArray> lines = readFile(trace).trimmed().split('\n');
    QCOMPARE(lines.size(), values.size());
    for (int i = 0; i < lines.size(); ++i)
        QCOMPARE(values[i], lines[i].split('\t').value(2).toFloat());
}

QTEST_GUILESS_MAIN(TestSearchOptions)
#include "test_searchoptions.moc"
