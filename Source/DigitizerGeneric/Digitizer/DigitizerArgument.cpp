// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DescriptionParsing.h"
#include "DigitizerGeneric/Digitizer/Diagnostics.h"

#include <utility>

namespace MavSystem {

DigitizerArgument::DigitizerArgument(bool fourButtons, PortSettings settings, short resolution,
                                     ResolutionUnit unit, short reportLength,
                                     std::vector<ReportFormatValues> reportFormat,
                                     short buttonCodeLength, std::vector<ButtonValue> buttons)
    : m_fourButtons(fourButtons),
      m_portSettings(settings),
      m_resolution(resolution),
      m_resolutionUnit(unit),
      m_reportLength(std::uint64_t(std::int64_t(reportLength))),
      m_reportFormat(std::move(reportFormat)),
      m_buttonCodeLength(std::uint64_t(std::int64_t(buttonCodeLength))),
      m_buttons(std::move(buttons))
{}

DigitizerArgument* DigitizerArgument::digitizerArgument(const QString& driverName)
{
    const auto found = DescriptionFiles::find(driverName, DescriptionFiles::BrokenFile::Skipped);
    if (!found)
        return new DigitizerArgument;
    ParsedDescription parsed = parseDescription(found->document.documentElement());
    if (!parsed.problem.isEmpty())
        qCDebug(lcDescriptions).noquote()
            << found->path << "counts as not found:" << parsed.problem;
    return new DigitizerArgument(std::move(parsed.description));
}

} // namespace MavSystem
