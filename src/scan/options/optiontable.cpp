// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "optiontable.h"

#include "celldefaults.h"
#include "settingstable.h"

#include <algorithm>

namespace {

/// What most options do not have is set behind the rest.
struct Entry : ScanOption {
    Entry inWindow(const char* name) {
        control = QLatin1String(name);
        return *this;
    }
    Entry within(NumberRange numbers) {
        range = numbers;
        return *this;
    }
    Entry withCells(NumberRange numbers, double fallbackOfCells) {
        ofCells = {numbers, QString::number(fallbackOfCells)};
        return *this;
    }
    Entry taking(const QStringList& those) {
        words = those;
        return *this;
    }
    Entry orBare(const char* given) {
        bare = QLatin1String(given);
        return *this;
    }
    Entry withLetter(char character) {
        letter = QLatin1Char(character);
        return *this;
    }
    Entry repeated() {
        isRepeated = true;
        return *this;
    }
    Entry needing(const QStringList& others) {
        needs = others;
        return *this;
    }
    Entry excluding(const QStringList& others) {
        excludes = others;
        return *this;
    }
    Entry measuring(const char* key) {
        valuesKey = QLatin1String(key);
        return *this;
    }
    Entry choosingValues() {
        choosesValues = true;
        return *this;
    }
};

Entry toggle(OptionGroup group, const char* name, const char* help, const char* absence = "") {
    Entry option;
    option.group = group;
    option.name = QLatin1String(name);
    option.help = QString::fromUtf8(help);
    option.absence = QLatin1String(absence);
    return option;
}

Entry valued(OptionGroup group, const char* name, ValueKind kind, const char* value,
             const char* help, const char* absence) {
    Entry option = toggle(group, name, help, absence);
    option.kind = kind;
    option.value = QLatin1String(value);
    return option;
}

Entry number(OptionGroup group, const char* name, const char* value, NumberRange range,
             double fallback, const char* help) {
    Entry option = valued(group, name, ValueKind::Number, value, help, "").within(range);
    option.fallback = QString::number(fallback);
    return option;
}

template<class Value>
NumberRange rangeOf(const Setting<Value>& setting) {
    return {double(setting.lowest), double(setting.highest), std::is_integral<Value>::value};
}

/// What the window stores as well has the same range and default there.
template<class Value>
Entry stored(OptionGroup group, const char* name, const char* value, const Setting<Value>& setting,
             const char* help) {
    return number(group, name, value, rangeOf(setting), double(setting.fallback), help);
}

Entry word(OptionGroup group, const char* name, const char* value, const QStringList& words,
           const char* help) {
    Entry option = valued(group, name, ValueKind::Word, value, help, "");
    option.words = words;
    option.fallback = words.first();
    return option;
}

QVector<ScanOption> makeOptions() {
    using G = OptionGroup;
    using K = ValueKind;
    return {
        valued(G::Input, "list", K::File, "FILE",
               "Search the recordings that this file names, a line each; - is standard input; may "
               "be repeated",
               "none")
            .repeated(),
        valued(G::Input, "marked", K::File, "FILE",
               "Search nothing, but take the clips that were marked to be kept in a report, and "
               "saved in this file",
               "none")
            .needing({"export", "recap"}),
        toggle(G::Input, "null", "Names in the list end with null bytes, not with lines")
            .needing({"list"}),
        toggle(G::Input, "names",
               "Print the names of the recordings, each ended by a null byte, and search none"),
        toggle(G::Input, "unmeasured",
               "The same for those files alone of which --values keeps nothing that fits yet")
            .needing({"values"})
            .excluding({"part"}),
        valued(
            G::Input, "split", K::Number, "MINUTES",
            "With --unmeasured and --promising-first: print K/N and the name for each part of at "
            "most this length",
            "whole recordings")
            .within({1, 100000, true}),

        word(G::Clips, "detector", "NAME", {"mean", "cells"},
             "What tells motion: the mean change of the pixels, or the largest group of cells that "
             "change, for what is small, distant or slow")
            .choosingValues(),
        stored(G::Clips, "prerecord", "S", settings::prerecord, "Seconds kept before the motion")
            .inWindow("Prerecord"),
        stored(G::Clips, "postrecord", "S", settings::postrecord,
               "Seconds without motion that end a clip")
            .inWindow("Postrecord"),
        stored(G::Clips, "minimum", "S", settings::minimum,
               "Seconds of which motion must fill half for a clip to open")
            .inWindow("Minimum length")
            .withCells(rangeOf(settings::minimum), cellsMinimum),
        stored(G::Clips, "skip", "N", settings::skip, "Pictures left out between two comparisons")
            .inWindow("Skip frames")
            .measuring("skip"),
        stored(G::Clips, "threshold-value", "N", settings::pixelThreshold,
               "How much a pixel must change to count; more for noisy videos")
            .inWindow("Pixels threshold")
            .measuring("threshold-value"),
        stored(G::Clips, "threshold-motion", "X", settings::motionThreshold,
               "Mean change of the pixels, or percent of the picture, that is motion; more for "
               "fewer clips")
            .inWindow("Motion detection threshold")
            .withCells({0.0, 100.0, false}, cellsThreshold),
        number(G::Clips, "sensitivity", "N", {1, double(cellSteps.size()), true},
               sensitivityOf(changedStep),
               "How faintly a cell may change to count; more for dusk and haze, less for fewer "
               "clips")
            .needing({"detector cells"}),
        valued(G::Clips, "merge", K::Number, "S",
               "Make one clip of those that overlap or lie at most this many seconds apart",
               "each is its own")
            .within({0.0, 86400.0, false}),
        valued(G::Clips, "max-length", K::Number, "S",
               "Cut clips, once they are merged, every S seconds; each piece is a clip with a "
               "number and a picture of its own",
               "as long as they are")
            .within({1.0, 86400.0, false})
            .excluding({"quick"}),
        valued(G::Clips, "min-length", K::Number, "S",
               "Leave clips out, once they are cut, that are shorter; the others keep their "
               "numbers",
               "none")
            .within({0.0, 86400.0, false}),
        valued(G::Clips, "sort", K::Word, "ORDER",
               "List the clips of all recordings the strongest, the longest or the first one "
               "first, when all are searched; they keep their numbers",
               "as they are found")
            .taking({"strength", "length", "time"}),
        valued(G::Clips, "top", K::Number, "N",
               "Take only the first N clips of --sort, without it the N strongest in the order of "
               "their times, of all recordings together, when all are searched",
               "all")
            .within({1.0, 10000.0, true}),
        valued(G::Clips, "continue", K::Number, "S",
               "Take recordings that go on in one another for one, whose clips cross from file to "
               "file: those of one camera of which one begins when the other ends, give or take "
               "this many seconds, or 2",
               "each is searched by itself")
            .within({0.0, 3600.0, false})
            .orBare("2")
            .excluding({"refine", "from", "to", "ignore-restless", "part", "promising-first"}),
        valued(G::Clips, "fps", K::Number, "N",
               "Take recordings to be N pictures per second, whatever times they have",
               "their own times")
            .within({0.01, 1000.0, false})
            .measuring("fps"),
        toggle(G::Clips, "quick",
               "Look at key frames alone, many times as fast; motion between two of them is missed")
            .excluding({"fps"})
            .measuring("pictures"),
        toggle(G::Clips, "refine", "After a --quick look, search exactly around what it has found")
            .needing({"quick"}),

        valued(G::Region, "from", K::Text, "TIME",
               "Look only from this time on, in seconds or as 1:02:03.5 from the first picture",
               "the beginning")
            .measuring("from"),
        valued(G::Region, "to", K::Text, "TIME", "Look only up to this time", "the end")
            .measuring("to"),
        valued(G::Region, "roi", K::Text, "X,Y,WIDTH,HEIGHT",
               "Look only inside this rectangle, in pixels of the video", "whole picture")
            .inWindow("Rectangle ROI")
            .excluding({"mask"})
            .measuring("region"),
        valued(G::Region, "mask", K::File, "PICTURE",
               "Look only where this picture is green; it is scaled to the video", "whole picture")
            .inWindow("Free ROI")
            .measuring("region"),
        valued(G::Region, "exclude", K::Text, "X,Y,WIDTH,HEIGHT",
               "Leave this rectangle out, in pixels of the video; may be repeated", "nothing")
            .repeated()
            .measuring("exclude"),
        toggle(G::Region, "ignore-restless",
               "Leave out what moves through most of a recording, such as clocks and leaves")
            .needing({"detector cells"})
            .excluding({"refine"}),

        word(G::Output, "format", "FORMAT",
             {"text", "jsonl", "csv", "m3u", "mpv", "cuts", "edl", "mlt", "camtrap-dp"},
             "How clips are printed; from m3u on, for other programs; camtrap-dp is a package for "
             "the study of wildlife, in files of its own"),
        valued(G::Output, "snapshots", K::Folder, "DIR",
               "Write a picture of each clip's strongest motion into this folder", "none"),
        valued(G::Output, "report", K::Folder, "DIR",
               "Write a page into this folder that shows the motion over time and every clip",
               "none"),
        valued(G::Output, "trace", K::File, "FILE",
               "Write each picture's number, time and motion value, for choosing the thresholds",
               "none"),
        valued(G::Output, "values", K::Folder, "DIR",
               "Keep the motion values of each recording in this folder, and decide on those that "
               "are there instead of decoding again",
               "none"),
        toggle(G::Output, "quiet", "No progress and no summary, only clips and errors"),
        toggle(G::Output, "verbose",
               "Say which recordings go on in which others with --continue, and why the others do "
               "not")
            .excluding({"quiet"}),

        valued(G::Export, "export", K::Folder, "DIR",
               "Cut the clips out, each recording's into a folder of its own in this one", "none")
            .inWindow("Export dir, Export all automatically"),
        word(G::Export, "container", "NAME", {"avi", "mp4", "mkv"}, "File format of exported clips")
            .inWindow("Container format")
            .needing({"export"}),
        toggle(G::Export, "transcode",
               "Encode exported pictures anew instead of copying them; MJPEG always is, and so are "
               "timestamps")
            .inWindow("Force transcoding")
            .needing({"export"}),
        // The window's control ends at 50; the encoder is told 100 at the most.
        number(G::Export, "bitrate", "MBIT", {settings::bitrate.lowest, 100.0, false},
               settings::bitrate.fallback, "Megabits per second of pictures that are encoded anew")
            .inWindow("Output video bitrate")
            .needing({"export", "recap"}),
        toggle(G::Export, "no-audio", "Leave the sound out of exported clips", "kept")
            .inWindow("Disable audio output")
            .needing({"export"}),
        valued(G::Export, "start-time", K::Text, "TIME",
               "Write date and time into exported pictures and the report; the first video began "
               "at this one, in ISO 8601; auto looks for that of each, in its name, its head or "
               "the time of its file, and lists have it, too",
               "none")
            .inWindow("Export with timestamps, Video file start time"),
        valued(G::Export, "start-pattern", K::Text, "PATTERN",
               "Names have the time in this way, in the letters of strftime, as in "
               "%d.%m.%Y_%H-%M-%S; * stands for anything",
               "as cameras have it")
            .needing({"start-time"}),
        valued(G::Export, "time-zone", K::Text, "ZONE",
               "Clocks are those of this zone, such as Europe/Berlin", "that of this machine")
            .needing({"start-time"}),
        valued(G::Export, "recap", K::File, "FILE",
               "Write all clips, one after another, into this film, with the clock where it is "
               "known and without sound; .mp4, .mkv or .avi",
               "none"),
        number(G::Export, "recap-speed", "X", {1.0, 32.0, false}, 1.0,
               "How many times as fast the recap is")
            .needing({"recap"}),

        valued(G::Package, "output", K::Folder, "DIR",
               "Write the package of --format camtrap-dp into this folder", "none")
            .needing({"format camtrap-dp"}),
        valued(G::Package, "location", K::Text, "[FOLDER=]LAT,LON",
               "Where the recordings were made, or those below this folder, in degrees; may be "
               "repeated",
               "none")
            .repeated()
            .needing({"format camtrap-dp"}),
        valued(G::Package, "project", K::Text, "TITLE", "The project's title", "none")
            .needing({"format camtrap-dp"}),
        valued(G::Package, "contributor", K::Text, "NAME",
               "A person or organization that made it; may be repeated", "none")
            .repeated()
            .needing({"format camtrap-dp"}),
        word(G::Package, "sampling-design", "NAME",
             {"opportunistic", "targeted", "experimental", "simpleRandom", "systematicRandom",
              "clusteredRandom"},
             "How the cameras' places were chosen")
            .needing({"format camtrap-dp"}),

        number(G::Running, "threads", "N", {0, 256, true}, 0,
               "Threads that decode a recording; 0 is one per core, shared among --jobs"),
        number(G::Running, "jobs", "N", {1, 256, true}, 1,
               "Recordings scanned side by side; the output is that of one after another"),
        toggle(G::Running, "promising-first",
               "Measure first what packet sizes say is likely to hold motion, in all recordings; "
               "the clips are the same in the end")
            .excluding({"quick", "from", "to", "fps", "part"}),
        valued(G::Running, "budget", K::Text, "SHARE",
               "End when this much was looked at, as 25%, or after this time, as 90s, 10m or 2h",
               "all is looked at")
            .needing({"promising-first"}),
        // All that decides is for the call that joins the parts.
        valued(G::Running, "part", K::Text, "K/N",
               "Measure and keep only the K-th of N parts of each recording; a call without this "
               "joins them",
               "all of it")
            .needing({"values"})
            .excluding({"quick", "from", "to", "merge", "max-length", "min-length", "sort", "top",
                        "format", "snapshots", "report", "trace", "export", "recap", "start-time"}),

        toggle(G::Help, "help", "Print this text").withLetter('h'),
        toggle(G::Help, "version", "Print the version, and which protections confine the scanner")
            .withLetter('v'),
        toggle(G::Help, "list-options",
               "Print a line for each option, for programs: its name, the kind of its value or "
               "none, measuring where motion values depend on it or -, and the value that counts "
               "where "
               "it is given without one; between them are tabs"),
    };
}

} // namespace

const QVector<ScanOption>& scanOptions() {
    static const QVector<ScanOption> options = makeOptions();
    return options;
}

const ScanOption& scanOption(const QString& name) {
    const auto& options = scanOptions();
    const auto found = std::find_if(options.cbegin(), options.cend(),
                                    [&](const ScanOption& option) { return option.name == name; });
    Q_ASSERT(found != options.cend());
    return *found;
}
