// Stands in for the encoder: notes what it was told and ends as it is told.
//
// RECORDER_FOLDER names the folder that it works with:
// - calls gets a line for every call, its arguments separated by the unit separator.
// - end tells how: "1" with status 1 after a message, "crash" by a signal, else with status 0.
// - hold: while this file exists, calls do not end ...
// - free-NAME: ... but the one whose output file has this name does.
// The output file, the last argument, is written when a call ends with status 0.

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace {

void note(const std::string& fileName, int argc, char* argv[]) {
    std::string line;
    for (int i = 1; i < argc; ++i)
        line += (i > 1 ? "\x1f" : "") + std::string(argv[i]);
    line += '\n';
    // One write, so that calls side by side do not mix.
    const int file = open(fileName.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (file < 0 || write(file, line.data(), line.size()) != ssize_t(line.size()))
        std::exit(3);
    close(file);
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
    note(folder + "calls", argc, argv);
    const std::string output = argv[argc - 1];
    const std::string freeFile = folder + "free-" + output.substr(output.rfind('/') + 1);
    while (exists(folder + "hold") && !exists(freeFile))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    if (end == "crash")
        return raise(SIGKILL);
    if (end == "1") {
        std::fputs("a line before\ntold to fail\n", stderr);
        return 1;
    }
    std::ofstream(output) << "recorded\n";
    return 0;
}
