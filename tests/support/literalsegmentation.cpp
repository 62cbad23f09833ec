// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "literalsegmentation.h"

namespace {

struct Model {
    QVector<float> motionValues;
    QVector<double> frameTimes;
    QVector<int> history; // frame numbers, oldest first
    bool inClip = false;
    int clipIndex = 0;
    double notBefore = -1000.0;
    double clipStart = -1000.0;
    double lastMotionTime = 0.0;
    float bestMotion = 0.0F;
    int snapshot = -1;
    double snapshotTime = -1.0;
};

bool motionStarted(const Model& model, double window, float threshold) {
    const int n = model.motionValues.size();
    if (n < 4 || model.frameTimes.size() < 2)
        return false;
    const double reference = model.frameTimes[n - 1];
    if (!(model.frameTimes[n - 2] + window > reference))
        return false;
    int counted = 0;
    int hits = 0;
    for (int i = n - 2; i >= 0; --i) {
        if (!(model.frameTimes[i] + window > reference))
            break;
        ++counted;
        if (model.motionValues[i] >= threshold)
            ++hits;
    }
    return float(hits) / float(counted) >= 0.5F;
}

void open(Model& model, const QVector<TestFrame>& frames, double time,
          const SegmentationOptions& options) {
    const int size = model.history.size();
    float best = -1.0F;
    int position = 0;
    for (int i = 0; i < size; ++i) {
        const float value = model.motionValues[model.motionValues.size() - 1 - i];
        if (value > best) {
            best = value;
            position = i;
        }
    }
    const int chosen = model.history[qBound(0, size - 1 - position, size - 1)];
    model.clipStart = time - options.minimum - options.prerecord;
    if (model.clipStart < 0)
        model.clipStart = 0;
    model.snapshot = chosen;
    model.snapshotTime = frames[chosen].time;
    model.bestMotion = best;
    model.lastMotionTime = time;
    model.notBefore = model.clipStart;
    model.inClip = true;
}

LiteralClip emitted(const Model& model, double end, double origin) {
    return {model.clipIndex, model.snapshot, model.clipStart - origin, end - origin,
            model.snapshotTime - origin};
}

} // namespace

QVector<LiteralClip> literalClips(const QVector<TestFrame>& frames,
                                  const SegmentationOptions& options) {
    QVector<LiteralClip> clips;
    Model model;
    const double origin = frames.first().time;
    for (int number = 1; number < frames.size(); ++number) {
        const double time = frames[number].time;
        const double motion = double(frames[number].motion);
        if (model.inClip) {
            if (motion <= options.motionThreshold.value) {
                if (time - model.lastMotionTime > options.postrecord) {
                    clips.append(emitted(model, time, origin));
                    model.notBefore = time;
                    ++model.clipIndex;
                    model.inClip = false;
                }
            } else {
                model.lastMotionTime = time;
                if (motion > model.bestMotion) {
                    model.bestMotion = float(motion);
                    model.snapshot = number;
                    model.snapshotTime = time;
                }
            }
        } else if (time > model.notBefore &&
                   motionStarted(model, options.minimum, options.motionThreshold.value)) {
            open(model, frames, time, options);
        }
        model.motionValues.append(float(motion));
        model.frameTimes.append(time);
        model.history.append(number - 1);
        while (model.history.size() > 10 &&
               time > frames[model.history.first()].time + options.minimum)
            model.history.removeFirst();
    }
    if (model.inClip)
        clips.append(emitted(model, frames.last().time, origin));
    return clips;
}
