// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"
#include "QextSerialPort/qextserialport.h"

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace MavSystem {

/// The unit of a tablet's resolution.
enum ResolutionUnit : std::int32_t {
    LPI = 1,  ///< lines per inch
    LPMM = 2, ///< lines per millimetre
};

/// The role of one character of a tablet's report.
enum ReportFormatValues : std::int32_t {
    FORMAT_BUTTON = 1,    ///< "B", a character of the button code
    FORMAT_X = 2,         ///< "X", a character of the x coordinate
    FORMAT_Y = 3,         ///< "Y", a character of the y coordinate
    FORMAT_UNUSED = 4,    ///< "U"
    FORMAT_POINT = 5,     ///< ".", the decimal point of x, then of y
    FORMAT_SIGN = 6,      ///< "S", the sign of x, then of y
    FORMAT_CR = 7,        ///< "C", the carriage return
    FORMAT_LINE_FEED = 8, ///< "L", the line feed
};

/// The code of a cursor button. A description says how many of its three characters are compared.
struct ButtonValue
{
    std::array<char, 3> m_code = {' ', ' ', ' '};
};

/// The description of one kind of tablet, as read from its description file.
///
/// A plain record: copies are deep, and nothing is checked or cached.
class DIGITIZERGENERIC_EXPORT DigitizerArgument
{
public:
    /// The record of a driver that no file describes: false, zero, lines per millimetre, no
    /// template and no buttons.
    DigitizerArgument() = default;

    /// Stores each argument in the field at the same position. The lengths are sign-extended to 64
    /// bits.
    DigitizerArgument(bool fourButtons, PortSettings settings, short resolution,
                      ResolutionUnit unit, short reportLength,
                      std::vector<ReportFormatValues> reportFormat, short buttonCodeLength,
                      std::vector<ButtonValue> buttons);

    /// Returns a new record of the installed description whose root "name" equals \a driverName
    /// exactly. If there is none, or its report template is broken, returns the record of a driver
    /// that no file describes. Never null. The caller owns it.
    ///
    /// A changed file counts at the next call. Errors are not reported; the logging category
    /// mavsystem.descriptions says why a file was skipped. Thread: the main thread.
    static DigitizerArgument* digitizerArgument(const QString& driverName);

    bool m_fourButtons = false; ///< "count" of the buttons is exactly "4"
    PortSettings m_portSettings;
    double m_resolution = 0.0; ///< lines per unit
    ResolutionUnit m_resolutionUnit = LPMM;
    std::uint64_t m_reportLength = 0;               ///< characters of one report
    std::vector<ReportFormatValues> m_reportFormat; ///< one role for each character
    std::uint64_t m_buttonCodeLength = 0; ///< leading characters of a code that are compared
    std::vector<ButtonValue> m_buttons;   ///< in the order of the button numbers
};

} // namespace MavSystem
