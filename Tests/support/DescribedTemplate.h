// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QByteArray>

/// A description with nothing but a report template, in the letters of a description file, and the
/// button codes "1" and "\x07\xe4".
inline MavSystem::DigitizerArgument describedTemplate(const QByteArray& letters)
{
    MavSystem::DigitizerArgument description;
    for (const char letter : letters)
        description.m_reportFormat.push_back(
            MavSystem::ReportFormatValues(QByteArray("?BXYU.SCL").indexOf(letter)));
    description.m_reportLength = std::uint64_t(letters.size());
    description.m_buttons = {{{'1', ' ', ' '}}, {{'\x07', '\xe4', ' '}}};
    return description;
}
