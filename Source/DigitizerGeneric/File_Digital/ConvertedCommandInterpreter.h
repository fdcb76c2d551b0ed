// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <QMap>

#include <string>

namespace MavSystem {

/// Splits converted commands into the fields that the report decoding understands.
class DIGITIZERGENERIC_EXPORT t_ConvertedCommandInterpreter
{
public:
    /// Takes the first command off the front of \a commands: its code into the first character of
    /// \a button, its digits into \a x and \a y at their positions in the text. Returns false, and
    /// changes nothing, when \a commands is empty.
    ///
    /// The maps are only added to. A negative number leaves its map as it is. A text without a
    /// carriage return is not consumed. Reports nothing about malformed text.
    static bool interpreter(std::string& commands, ButtonValue& button, QMap<int, char>& x,
                            QMap<int, char>& y);
};

} // namespace MavSystem
