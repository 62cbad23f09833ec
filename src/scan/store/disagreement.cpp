// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "disagreement.h"

#include "measuresettings.h"
#include "optiontable.h"

QString disagreement(const QStringList& given, const MeasureSettings& asked,
                     const MeasureSettings& kept) {
    if (settingOf(asked, measureKey) != settingOf(kept, measureKey))
        return QStringLiteral("its values were measured by another version of this program");
    for (const ScanOption& option : scanOptions()) {
        const QByteArray key = option.valuesKey.toLatin1();
        const QByteArray value = settingOf(kept, key);
        if (!key.isEmpty() && given.contains(option.name) && value != settingOf(asked, key))
            return QStringLiteral("--%1 does not fit its values, which were measured with %2 %3")
                .arg(option.name, option.valuesKey, QString::fromUtf8(value));
    }
    return {};
}
