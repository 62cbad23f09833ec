// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// The toolkit converts larger pictures on threads of its global pool, and waits for ever for one
/// that the system does not give. From now on it uses a single one, which is made here and kept.
/// Call it once, before the first picture; the application must exist.
void keepToolkitThread();
