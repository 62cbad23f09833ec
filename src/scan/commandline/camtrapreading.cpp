// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camtrapreading.h"

#include "optionvalues.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace {

/// Written so that what is no number at all fails, too.
bool isWithin(double value, double most) {
    return std::abs(value) <= most;
}

/// "52.70442,23.84995", and perhaps a folder and an equals sign in front of it.
CamtrapLocation readLocation(const QString& text, OptionValues& values) {
    const int equals = text.lastIndexOf('=');
    const QStringList numbers = text.mid(equals + 1).split(',');
    bool hasLatitude = false;
    bool hasLongitude = false;
    CamtrapLocation location;
    location.folder = text.left(std::max(0, equals));
    location.latitude = numbers.value(0).toDouble(&hasLatitude);
    location.longitude = numbers.value(1).toDouble(&hasLongitude);
    const bool isGood = numbers.size() == 2 && hasLatitude && hasLongitude && equals != 0 &&
                        isWithin(location.latitude, 90.0) && isWithin(location.longitude, 180.0);
    if (!isGood)
        values.reject(QStringLiteral("--location takes degrees of latitude and longitude as in "
                                     "52.70442,23.84995 or FOLDER=52.70442,23.84995, not '%1'")
                          .arg(text));
    return location;
}

/// Whatever way it is written; all others are one, too.
bool isSameFolder(const QString& left, const QString& right) {
    const auto absolute = [](const QString& folder) {
        return QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    };
    return left.isEmpty() == right.isEmpty() && absolute(left) == absolute(right);
}

void rejectRepeated(const QVector<CamtrapLocation>& locations, OptionValues& values) {
    for (int i = 0; i < locations.size(); ++i) {
        for (int other = 0; other < i; ++other) {
            if (isSameFolder(locations[i].folder, locations[other].folder))
                values.reject(locations[i].folder.isEmpty()
                                  ? QStringLiteral("--location is given twice without a folder")
                                  : QStringLiteral("--location is given twice for '%1'")
                                        .arg(locations[i].folder));
        }
    }
}

/// What the standard asks for and nobody else knows.
void rejectMissing(const QCommandLineParser& parser, OptionValues& values) {
    for (const char* option : {"output", "start-time", "location", "project", "contributor"}) {
        if (!parser.isSet(option))
            values.reject(QStringLiteral("--format camtrap-dp needs --%1").arg(option));
        else if (parser.values(option).contains(QString()))
            values.reject(QStringLiteral("--%1 says nothing").arg(option));
    }
}

} // namespace

CamtrapOptions readCamtrap(const QCommandLineParser& parser, OptionValues& values) {
    CamtrapOptions options;
    options.project.samplingDesign = values.word("sampling-design");
    if (parser.value("format") != QLatin1String("camtrap-dp"))
        return options;
    rejectMissing(parser, values);
    options.directory = parser.value("output");
    options.project.title = parser.value("project");
    options.project.contributors = parser.values("contributor");
    for (const QString& location : parser.values("location"))
        options.locations.append(readLocation(location, values));
    rejectRepeated(options.locations, values);
    return options;
}
