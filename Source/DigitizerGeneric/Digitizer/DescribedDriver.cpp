// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescribedDriver.h"

#include "DigitizerGeneric/Digitizer/FieldDecoding.h"

namespace MavSystem {

int DescribedDriver::buttonCount() const
{
    return int(description.m_buttons.size());
}

QString DescribedDriver::resolutionText() const
{
    return QStringLiteral("%1 %2").arg(
        QString::number(description.m_resolution),
        QLatin1String(description.m_resolutionUnit == LPI ? "LPI" : "LPMM"));
}

bool DescribedDriver::takesReports() const
{
    return description.m_reportLength > 0 || isLectraE92();
}

bool DescribedDriver::isLectraE92() const
{
    return FieldDecoding::isLectraE92(name);
}

} // namespace MavSystem
