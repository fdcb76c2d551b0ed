// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/SettingTexts.h"

#include "QextSerialPort/SerialTiming.h"

namespace MavSystem::SettingTexts {

QString textOf(BaudRateType value)
{
    return QString::number(SerialTiming::bitsPerSecond(value));
}

QString textOf(DataBitsType value)
{
    return QString::number(SerialTiming::bitsOf(value));
}

QString textOf(ParityType value)
{
    constexpr const char* texts[] = {"None", "Odd", "Even", "Mark", "Space"};
    return QLatin1String(texts[value]);
}

QString textOf(StopBitsType value)
{
    return QString::number(SerialTiming::bitsOf(value));
}

QString textOf(FlowType value)
{
    constexpr const char* texts[] = {"none", "hardware", "software"};
    return QLatin1String(texts[value]);
}

} // namespace MavSystem::SettingTexts
