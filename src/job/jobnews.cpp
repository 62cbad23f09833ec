// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "jobnews.h"

JobNews::JobNews() {
    qRegisterMetaType<JobFacts>();
    qRegisterMetaType<QVector<float>>();
    qRegisterMetaType<QVector<double>>();
}

void JobNews::setFacts(const JobFacts& facts) {
    known = facts;
    Q_EMIT factsChanged();
}

void JobNews::tellFacts(const JobFacts& facts) {
    QMetaObject::invokeMethod(this, "takeFacts", Q_ARG(JobFacts, facts));
}

void JobNews::tellMeasured(const QVector<float>& values, const QVector<double>& times) {
    Q_EMIT measured(values, times);
}

void JobNews::takeFacts(const JobFacts& facts) {
    setFacts(facts);
}
