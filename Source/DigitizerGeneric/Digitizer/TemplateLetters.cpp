// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/TemplateLetters.h"

namespace MavSystem::TemplateLetters {

namespace {

// In the order of the roles.
constexpr char letters[] = "BXYU.SCL";
static_assert(FORMAT_BUTTON == 1 && sizeof(letters) - 1 == FORMAT_LINE_FEED,
              "one letter for each role");

} // namespace

QString all()
{
    return QLatin1String(letters);
}

std::optional<ReportFormatValues> roleOf(QChar letter)
{
    const int index = all().indexOf(letter);
    return index < 0 ? std::nullopt : std::optional(ReportFormatValues(index + FORMAT_BUTTON));
}

QChar letterOf(ReportFormatValues role)
{
    return QLatin1Char(letters[role - FORMAT_BUTTON]);
}

} // namespace MavSystem::TemplateLetters
