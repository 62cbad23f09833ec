// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "keptvalues.h"

#include <QStringList>

/// Which of the options named in `given` say otherwise than `kept`, as a sentence for a person;
/// empty if none does. `asked` are the settings of all options.
QString disagreement(const QStringList& given, const MeasureSettings& asked,
                     const MeasureSettings& kept);
