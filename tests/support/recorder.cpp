// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Stands in for the encoder: notes what it was told and ends as it is told.
//
// RECORDER_FOLDER names the folder that it works with:
// - calls gets a line for every call, its arguments separated by the unit separator.
// - end tells how: "1" with status 1 after a message, "crash" by a signal, "chatter" with status 1
//   after 100 MB of messages, "empty" and "none" with status 0 but an empty or no file, else with
//   status 0.
// - hold: while this file exists, calls do not end ...
// - free-NAME: ... but the one whose output file has this name does.
// - stubborn: while this file exists, calls ignore the request to terminate.
// - clashes gets the name of each output file that two calls had at the same time.
// The output file, the last argument, is written when a call ends with status 0.

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

void note(const std::string& fileName, const std::string& line) {
    // One write, so that calls side by side do not mix.
    const int file = open(fileName.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (file < 0 || write(file, line.data(), line.size()) != ssize_t(line.size()))
        std::exit(3);
    close(file);
}

std::string joined(int argc, char* argv[]) {
    std::string line;
    for (int i = 1; i < argc; ++i)
        line += (i > 1 ? "\x1f" : "") + std::string(argv[i]);
    return line + '\n';
}

/// Until the process ends; false if another one has it.
bool lock(const std::string& fileName) {
    const int file = open(fileName.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    return flock(file, LOCK_EX | LOCK_NB) == 0;
}

void chatter() {
    const std::string line = "all well, " + std::string(989, 'x') + '\n';
    for (int i = 0; i < 100000; ++i)
        std::fputs(line.c_str(), stderr);
    std::fputs("told to chatter and to fail\n", stderr);
}

std::string wordIn(const std::string& fileName) {
    std::string word;
    std::ifstream(fileName) >> word;
    return word;
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
    const std::string end = wordIn(folder + "end");
    if (exists(folder + "stubborn"))
        std::signal(SIGTERM, SIG_IGN);
    const std::string output = argv[argc - 1];
    const std::string name = output.substr(output.rfind('/') + 1);
    if (!lock(folder + "lock-" + name))
        note(folder + "clashes", name + '\n');
    note(folder + "calls", joined(argc, argv));
    const std::string freeFile = folder + "free-" + name;
    while (exists(folder + "hold") && !exists(freeFile))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    if (end == "crash")
        return raise(SIGKILL);
    if (end == "1") {
        std::fputs("a line before\ntold to fail\n", stderr);
        return 1;
    }
    if (end == "chatter") {
        chatter();
        return 1;
    }
    if (end == "none")
        return 0;
    if (end == "empty")
        return std::ofstream(output) ? 0 : 3;
    std::ofstream(output) << "recorded\n";
    return 0;
}
