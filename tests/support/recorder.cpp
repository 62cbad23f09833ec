// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Stands in for the encoder: notes what it was told and ends as it is told.
//
// It may open nothing but what an encoder may. So three files are open already, and their numbers
// stand in the environment:
// - RECORDER_CALLS gets a line for every call, its arguments separated by the unit separator.
// - RECORDER_CLASHES gets the name of each output file that two calls had at the same time.
// - RECORDER_END tells how it ends: "1" with status 1 after a message, "crash" by a signal,
// "verbose"
//   with status 1 after a log of 100 MB, "empty" and "none" with status 0 but an empty or no file,
//   else with status 0.
// RECORDER_FOLDER names the folder in which it looks for others:
// - hold: while this file exists, calls do not end ...
// - free-NAME: ... but the one whose output file has this name does.
// - stubborn: while this file exists, calls ignore the request to terminate.
// The output file, the last argument, is written when a call ends with status 0.

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// The file that is open for it; -1 if there is none.
int fileOf(const char* variable) {
    const char* number = std::getenv(variable);
    return number ? std::atoi(number) : -1;
}

void note(const char* variable, const std::string& line) {
    // One write, so that calls side by side do not mix.
    if (write(fileOf(variable), line.data(), line.size()) != ssize_t(line.size()))
        std::exit(3);
}

std::string joined(int argc, char* argv[]) {
    std::string line;
    for (int i = 1; i < argc; ++i)
        line += (i > 1 ? "\x1f" : "") + std::string(argv[i]);
    return line + '\n';
}

/// A place that stands for the name, until the process ends; false if another one has it.
bool lock(const std::string& name) {
    struct flock place = {};
    place.l_type = F_WRLCK;
    place.l_whence = SEEK_SET;
    place.l_start = off_t(std::hash<std::string>()(name) >> 2);
    place.l_len = 1;
    return fcntl(fileOf("RECORDER_CLASHES"), F_SETLK, &place) == 0;
}

void writeLongLog() {
    const std::string line = "all well, " + std::string(989, 'x') + '\n';
    for (int i = 0; i < 100000; ++i)
        std::fputs(line.c_str(), stderr);
    std::fputs("told to be verbose and to fail\n", stderr);
}

std::string wordIn(const char* variable) {
    char word[16] = {};
    return pread(fileOf(variable), word, sizeof word - 1, 0) > 0 ? word : "";
}

bool exists(const std::string& fileName) {
    return access(fileName.c_str(), F_OK) == 0;
}

} // namespace

int main(int argc, char* argv[]) {
    const char* folderName = std::getenv("RECORDER_FOLDER");
    if (!folderName || argc < 2)
        return 2;
    const std::string folder = std::string(folderName) + '/';
    const std::string end = wordIn("RECORDER_END");
    if (exists(folder + "stubborn"))
        std::signal(SIGTERM, SIG_IGN);
    const std::string output = argv[argc - 1];
    const std::string name = output.substr(output.rfind('/') + 1);
    if (!lock(name))
        note("RECORDER_CLASHES", name + '\n');
    note("RECORDER_CALLS", joined(argc, argv));
    const std::string freeFile = folder + "free-" + name;
    while (exists(folder + "hold") && !exists(freeFile))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    if (end == "crash")
        return raise(SIGKILL);
    if (end == "1") {
        std::fputs("a line before\ntold to fail\n", stderr);
        return 1;
    }
    if (end == "verbose") {
        writeLongLog();
        return 1;
    }
    if (end == "none")
        return 0;
    if (end == "empty")
        return std::ofstream(output) ? 0 : 3;
    std::ofstream(output) << "recorded\n";
    return 0;
}
