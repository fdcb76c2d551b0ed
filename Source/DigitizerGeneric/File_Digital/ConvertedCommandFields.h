// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace MavSystem {

/// The fields of the first converted command of a text, as views into that text.
struct ConvertedCommandFields
{
    char code;
    std::string_view x; ///< its digits; empty for a negative number
    std::string_view y;
    std::size_t length; ///< what is to be taken off the text; 0 without a carriage return

    /// Splits the first command of \a commands, which is not empty.
    static ConvertedCommandFields of(std::string_view commands);
};

} // namespace MavSystem
