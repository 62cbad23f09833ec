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
        toggle(G::Input, "null", "Names in the list end with null bytes, not with lines")
            .needing({"list"}),
        toggle(G::Input, "names",
               "Print the names of the recordings, each ended by a null byte, and search none"),
        toggle(G::Input, "unmeasured",
               "The same for those files alone of which --values keeps nothing that fits yet")
            .needing({"values"})
            .excluding({"part"}),

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
             {"text", "jsonl", "csv", "m3u", "mpv", "cuts", "edl", "mlt"},
             "How clips are printed; from m3u on, for other programs"),
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
            .needing({"export"}),
        toggle(G::Export, "no-audio", "Leave the sound out of exported clips", "kept")
            .inWindow("Disable audio output")
            .needing({"export"}),
        valued(G::Export, "start-time", K::Text, "TIME",
               "Write date and time into exported pictures and the report; each video began at "
               "this one, in ISO 8601",
               "none")
            .inWindow("Export with timestamps, Video file start time")
            .needing({"export", "report"}),

        number(G::Running, "threads", "N", {0, 256, true}, 0,
               "Threads that decode a recording; 0 is one per core, shared among --jobs"),
        number(G::Running, "jobs", "N", {1, 256, true}, 1,
               "Recordings scanned side by side; the output is that of one after another"),
        // All that decides is for the call that joins the parts.
        valued(G::Running, "part", K::Text, "K/N",
               "Measure and keep only the K-th of N parts of each recording; a call without this "
               "joins them",
               "all of it")
            .needing({"values"})
            .excluding({"quick", "from", "to", "merge", "format", "snapshots", "report", "trace",
                        "export"}),

        toggle(G::Help, "help", "Print this text").withLetter('h'),
        toggle(G::Help, "version", "Print the version, and which protections confine the scanner")
            .withLetter('v'),
        toggle(G::Help, "list-options",
               "Print a line for each option, for programs: its name, the kind of its value or "
               "none, and measuring where motion values depend on it or -; between them are tabs"),
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
