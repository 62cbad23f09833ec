// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "camtrapmetadata.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

namespace {

using Json = nlohmann::ordered_json;

std::string text(const QString& words) {
    return words.toUtf8().toStdString();
}

/// Where the standard keeps the description of this version.
std::string standard(const std::string& file) {
    return "https://raw.githubusercontent.com/tdwg/camtrap-dp/1.0/" + file;
}

Json resource(const std::string& name) {
    Json object;
    object["name"] = name;
    object["path"] = name + ".csv";
    object["profile"] = "tabular-data-resource";
    object["format"] = "csv";
    object["mediatype"] = "text/csv";
    object["encoding"] = "utf-8";
    object["schema"] = standard(name + "-table-schema.json");
    return object;
}

Json contributors(const QStringList& names) {
    Json list = Json::array();
    for (const QString& name : names)
        list.push_back({{"title", text(name)}});
    return list;
}

Json project(const CamtrapProject& project) {
    Json object;
    object["title"] = text(project.title);
    object["samplingDesign"] = text(project.samplingDesign);
    object["captureMethod"] = Json::array({"activityDetection"});
    object["individualAnimals"] = false;
    object["observationLevel"] = Json::array({"event"});
    return object;
}

/// The places of the deployments in GeoJSON, each once.
Json spatial(const QVector<CamtrapDeployment>& deployments) {
    std::set<std::pair<double, double>> places;
    for (const CamtrapDeployment& deployment : deployments)
        places.insert({deployment.longitude, deployment.latitude});
    Json coordinates = Json::array();
    for (const auto& place : places)
        coordinates.push_back({place.first, place.second});
    const bool isOne = coordinates.size() == 1;
    return {{"type", isOne ? "Point" : "MultiPoint"},
            {"coordinates", isOne ? coordinates[0] : coordinates}};
}

std::string day(const QDateTime& time) {
    return text(time.date().toString(Qt::ISODate));
}

Json temporal(const QVector<CamtrapDeployment>& deployments) {
    const auto startsBefore = [](const auto& a, const auto& b) { return a.start < b.start; };
    const auto endsBefore = [](const auto& a, const auto& b) { return a.end < b.end; };
    const auto first = std::min_element(deployments.cbegin(), deployments.cend(), startsBefore);
    const auto last = std::max_element(deployments.cbegin(), deployments.cend(), endsBefore);
    return {{"start", day(first->start)}, {"end", day(last->end)}};
}

} // namespace

QByteArray camtrapMetadata(const CamtrapPackage& package) {
    Json object;
    object["profile"] = standard("camtrap-dp-profile.json");
    object["created"] = text(package.created.toUTC().toString(Qt::ISODate));
    object["title"] = text(package.project.title);
    if (!package.description.isEmpty())
        object["description"] = text(package.description);
    object["contributors"] = contributors(package.project.contributors);
    object["project"] = project(package.project);
    object["spatial"] = spatial(package.deployments);
    object["temporal"] = temporal(package.deployments);
    object["taxonomic"] = Json::array();
    for (const char* table : {"deployments", "media", "observations"})
        object["resources"].push_back(resource(table));
    return QByteArray::fromStdString(object.dump(2)) + '\n';
}
