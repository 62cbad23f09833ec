// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "inputs.h"

#include "filenames.h"

#include <QFile>

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

/// Looks through one folder and those below it.
class FolderSearch {
public:
    explicit FolderSearch(const fs::path& folder)
        : folders{folder} {}

    void run() {
        while (!folders.empty()) {
            const fs::path folder = folders.back();
            folders.pop_back();
            const std::error_code error = lookInto(folder);
            if (error)
                complaints.append({QFile::decodeName(folder.c_str()),
                                   QStringLiteral("this folder cannot be searched: ") +
                                       QString::fromStdString(error.message()),
                                   true});
        }
        std::sort(videos.begin(), videos.end());
    }

    std::vector<std::string> videos;
    std::vector<std::string> links; ///< those of the videos that may be elsewhere
    QVector<InputComplaint> complaints;

private:
    /// Why not all of it could be looked at, if so.
    std::error_code lookInto(const fs::path& folder) {
        std::error_code failure;
        std::error_code error;
        fs::directory_iterator entries(folder, error);
        for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
            const std::error_code problem = take(*entries);
            failure = failure ? failure : problem;
        }
        return error ? error : failure;
    }

    std::error_code take(const fs::directory_entry& entry) {
        std::error_code error;
        if (entry.path().filename().native().front() == '.')
            return error;
        const fs::file_type type = entry.symlink_status(error).type();
        if (type == fs::file_type::none)
            return error;
        if (type == fs::file_type::directory)
            folders.push_back(entry.path());
        else if (isVideoName(entry.path().native()) && mayBeRecording(entry.status(error).type()))
            addVideo(entry.path().native(), type == fs::file_type::symlink);
        return {};
    }

    void addVideo(const std::string& path, bool isLink) {
        videos.push_back(path);
        if (isLink)
            links.push_back(path);
    }

    /// A link that leads nowhere is one to complain of when it is read.
    static bool mayBeRecording(fs::file_type type) {
        return type == fs::file_type::regular || type == fs::file_type::not_found ||
               type == fs::file_type::none;
    }

    std::vector<fs::path> folders; ///< to be looked into
};

void addFolder(const QString& path, Inputs& inputs) {
    FolderSearch search(QFile::encodeName(path).toStdString());
    search.run();
    for (const std::string& video : search.videos)
        inputs.videos.append(QFile::decodeName(video.c_str()));
    inputs.places.append(path);
    for (const std::string& link : search.links)
        inputs.places.append(QFile::decodeName(link.c_str()));
    inputs.complaints += search.complaints;
    if (search.videos.empty() && search.complaints.isEmpty())
        inputs.complaints.append(
            {path, QStringLiteral("warning: no file below this folder is named like a video"),
             false});
}

bool openList(QFile& file) {
    if (file.fileName() == QLatin1String("-"))
        return file.open(STDIN_FILENO, QIODevice::ReadOnly);
    return file.open(QIODevice::ReadOnly);
}

} // namespace

void addNamed(const QString& path, Inputs& inputs) {
    std::error_code none;
    if (fs::is_directory(QFile::encodeName(path).toStdString(), none)) {
        addFolder(path, inputs);
    } else {
        inputs.videos.append(path);
        inputs.places.append(path);
    }
}

void addListed(const QString& list, char separator, Inputs& inputs) {
    QFile file(list);
    QByteArray names;
    if (openList(file))
        names = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        inputs.complaints.append(
            {list, QStringLiteral("cannot read this list: ") + file.errorString(), true});
        return;
    }
    if (separator != '\0' && names.contains('\0')) {
        inputs.complaints.append(
            {list,
             QStringLiteral("this is no list: it has null bytes, which end names with --null only"),
             true});
        return;
    }
    bool isEmpty = true;
    int emptyNames = 0;
    if (names.endsWith(separator))
        names.chop(1);
    for (const QByteArray& name : names.split(separator)) {
        if (name.isEmpty()) {
            ++emptyNames;
            continue;
        }
        isEmpty = false;
        addNamed(QFile::decodeName(name), inputs);
    }
    if (!isEmpty && separator == '\0' && emptyNames > 0)
        inputs.complaints.append(
            {list, QStringLiteral("warning: empty names are left out: %1").arg(emptyNames), false});
    if (isEmpty)
        inputs.complaints.append(
            {list, QStringLiteral("warning: this list names no recording"), false});
}
