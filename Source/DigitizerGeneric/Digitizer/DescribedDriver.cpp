// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescribedDriver.h"

#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"

namespace MavSystem {

int DescribedDriver::buttonCount() const
{
    return int(description.m_buttons.size());
}

QString DescribedDriver::resolutionText() const
{
    return Resolution::text(description.m_resolution, description.m_resolutionUnit);
}

bool DescribedDriver::takesReports() const
{
    return description.m_reportLength > 0 || isLectraE92();
}

bool DescribedDriver::isLectraE92() const
{
    return LectraE92::isName(name);
}

} // namespace MavSystem
