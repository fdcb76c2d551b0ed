// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Resolution.h"

namespace MavSystem::Resolution {

QString unitText(ResolutionUnit unit)
{
    return unit == LPI ? QStringLiteral("LPI") : QStringLiteral("LPMM");
}

ResolutionUnit unitOf(const QString& text)
{
    return text == unitText(LPI) ? LPI : LPMM;
}

QString text(double lines, ResolutionUnit unit)
{
    return QString::number(lines) + QLatin1Char(' ') + unitText(unit);
}

} // namespace MavSystem::Resolution
