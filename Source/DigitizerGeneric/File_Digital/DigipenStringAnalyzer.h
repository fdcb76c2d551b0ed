// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <boost/scoped_ptr.hpp>

#include <cstdint>
#include <string>

namespace MavSystem {

class t_DigipenDataConverter;

/// Rewrites the lines of a pen file into converted commands.
///
/// A line that starts with "A" is a button: "A", free text, the first "-", one character, the
/// number. A line that starts with "X" is a position: "X", free text, the first ":", x, free text,
/// the next ":", y. Any other line carries nothing. Malformed lines are never an error: what is
/// missing is 0.
///
/// A converted command is: code, x, " ", y, "\n", "\r" (in this order).
/// Thread: the host's main thread.
class DIGITIZERGENERIC_EXPORT t_DigipenStringAnalyzer
{
public:
    enum e_Type_Conversion : std::int32_t {
        CONVERSION_STANDARD = 0, ///< the standard family of states
        CONVERSION_4EX = 1,      ///< the extended four-button family
    };

    /// Throws FatalError for a value that is no enumerator.
    explicit t_DigipenStringAnalyzer(e_Type_Conversion type);
    ~t_DigipenStringAnalyzer();

    /// Replaces \a line by the commands that its event produced, possibly none. Returns true for a
    /// position and for a button from 1 to 8.
    bool convert(std::string& line);

    /// Stores the number of a button line, whatever its first character; returns true from 1 to 8.
    bool getButton(std::string& line, int& button);

    /// Stores the numbers of a coordinate line, whatever its first character, at the full width of
    /// int; beyond that they saturate. Always returns true.
    bool getCoordinate(std::string& line, int& x, int& y);

    /// Replaces \a commands by those that close the last piece; returns true if there are any.
    bool generateEndOfPieceInstructions(std::string& commands);

    e_Type_Conversion m_type;
    boost::scoped_ptr<t_DigipenDataConverter> m_converter;
};

} // namespace MavSystem
