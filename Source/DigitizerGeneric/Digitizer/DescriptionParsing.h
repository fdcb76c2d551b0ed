// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QDomElement>
#include <QString>

namespace MavSystem {

/// A file must not make the process allocate gigabytes; no cursor has more than 16 buttons.
inline constexpr int maximumButtonCount = 4096;

/// What a description file says.
struct ParsedDescription
{
    DigitizerArgument description; ///< the record of no file when there is a problem
    QString problem;               ///< what is broken: the report template or the button count
};

/// Parses the description below the root element \a root of its file.
ParsedDescription parseDescription(const QDomElement& root);

/// Returns the characters of the beep command below \a root; empty when there is none.
QString beepCommandOf(const QDomElement& root);

} // namespace MavSystem
