// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <tuple>
#include <vector>

namespace MavSystem {

/// The report template of a description, prepared for decoding: the positions of the relevant
/// characters and the weight of each digit. Working that out for each report takes three times as
/// long as the decoding itself.
class ReportLayout
{
public:
    /// The characters of a report that are read; a longer template is cut.
    static constexpr int maximumCharacters = 512;

    /// The characters that a button code has at most.
    static constexpr int codeCharacters =
        int(std::tuple_size<decltype(ButtonValue::m_code)>::value);

    struct Digit
    {
        int position;
        double worth; ///< a power of ten
    };

    explicit ReportLayout(const DigitizerArgument& description);

    std::vector<Digit> x; ///< in position order, as are all below
    std::vector<Digit> y;
    std::vector<int> button; ///< at most three positions, as many as a code has characters
    int xSign = -1;          ///< the first sign position; -1 when there is none
    int ySign = -1;          ///< the last of the other sign positions; -1 if there is none
};

} // namespace MavSystem
