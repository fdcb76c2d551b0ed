// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QString>

#include <optional>

/// The letters that a report template has for the roles of its characters.
namespace MavSystem::TemplateLetters {

/// Returns all of them: "BXYU.SCL".
QString all();

/// Returns the role of \a letter, or nothing if it has none.
std::optional<ReportFormatValues> roleOf(QChar letter);

/// Returns the letter of \a role.
QChar letterOf(ReportFormatValues role);

} // namespace MavSystem::TemplateLetters
