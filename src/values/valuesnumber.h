// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <charconv>
#include <cmath>
#include <string_view>

/// Reads `text`, all of it, as a number: finite, without spaces or a plus sign. False if it is
/// none.
template<typename Number>
bool readNumber(std::string_view text, Number& number) {
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end && std::isfinite(double(number));
}

template<typename Number>
bool readNumber(const QByteArray& text, Number& number) {
    return readNumber(std::string_view(text.constData(), std::size_t(text.size())), number);
}
