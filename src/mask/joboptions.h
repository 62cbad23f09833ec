// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "clipnames.h"

#include <QString>

class Video;

namespace Ui {
class EditMaskWindow;
}

/// The options in job setup's form, from the settings store to the jobs that are made with them.
class JobOptions {
public:
    /// For a form that is set up and outlives it; shows in it what the settings store holds.
    explicit JobOptions(const Ui::EditMaskWindow& ui);

    void save() const;

    /// Whether clips can be exported; tells the person if not.
    bool isExportDirectoryGood() const;

    /// A job with the region as it is drawn, owned by the caller; see `Video` for `numbers`.
    Video* makeJob(const QString& path, ClipFolderNumbers* numbers) const;

private:
    void load() const;
    void prepareStartTime() const;
    QString exportDirectory() const;

    const Ui::EditMaskWindow& ui;
    const QString startDirectory; ///< the current directory, before any export changes it
};
