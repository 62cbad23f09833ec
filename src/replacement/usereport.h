// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QString>

/// What is told of a use of options for many recordings, while it goes on and at its end. Of a
/// single one nothing is: what becomes of its clips is seen.
class UseReport {
    Q_DECLARE_TR_FUNCTIONS(UseReport)

public:
    void expect(int recordings) { expected += recordings; }

    /// The clips of one more recording are replaced, or stay as they are for a reason that is told.
    void takeReplaced() { ++replaced; }
    void takeLeft(const QString& reason);

    /// "Replacing clips: recording 3 of 62"; empty where nothing is to be told.
    QString progress() const;

    /// The end, of those that were not given up, also with nothing to be told. Begins anew.
    QString end();

private:
    bool isOfMany() const { return expected > 1; }

    int expected = 0;
    int replaced = 0;
    int left = 0;
    QString lastReason;
};
