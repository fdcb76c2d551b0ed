// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <vector>

namespace MavSystem {

/// The report template of a description, made ready for decoding: where the characters that matter
/// are and what each digit is worth. Deciding that for each character of each report costs three
/// times as much as the decoding itself.
class ReportLayout
{
public:
    /// Characters of a report that are looked at; a template longer than this is cut.
    static constexpr int maximumCharacters = 512;

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
    int ySign = -1;          ///< the last of the other ones; -1 when there is none
};

} // namespace MavSystem
