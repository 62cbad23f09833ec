// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "jobfacts.h"

#include <QObject>
#include <QVector>

/// What a job tells besides its clips. Lives on the GUI thread; who searches calls `tell...` from
/// any thread, and the signals come on the GUI thread.
class JobNews : public QObject {
    Q_OBJECT

public:
    JobNews();

    /// As far as the GUI thread has heard.
    const JobFacts& facts() const { return known; }
    void setFacts(const JobFacts& facts);

    void tellFacts(const JobFacts& facts);

    /// Of the pictures since the last call, in their order: values of the detector that decides,
    /// seconds from the first picture. All come at the end where nothing is decided before it, as
    /// in a quick look or where what is restless is left out.
    void tellMeasured(const QVector<float>& values, const QVector<double>& times);

Q_SIGNALS:
    void factsChanged();
    void measured(const QVector<float>& values, const QVector<double>& times);

private Q_SLOTS:
    void takeFacts(const JobFacts& facts);

private:
    JobFacts known;
};
