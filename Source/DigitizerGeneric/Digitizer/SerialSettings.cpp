// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/SerialSettings.h"

#include "DigitizerGeneric/Digitizer/SettingTexts.h"

namespace MavSystem {

namespace {

template <typename Value, std::size_t count>
std::map<QString, Value> tableOf(const SettingTexts::SettingText<Value> (&entries)[count])
{
    std::map<QString, Value> table;
    for (const auto& entry : entries)
        table.emplace_hint(table.end(), QLatin1String(entry.text), entry.value);
    return table;
}

} // namespace

std::map<QString, BaudRateType>& BaudrateMap()
{
    static std::map<QString, BaudRateType> table = tableOf(SettingTexts::baudRates);
    return table;
}

std::map<QString, DataBitsType>& DatabitMap()
{
    static std::map<QString, DataBitsType> table = tableOf(SettingTexts::dataBits);
    return table;
}

std::map<QString, ParityType>& ParityMap()
{
    static std::map<QString, ParityType> table = tableOf(SettingTexts::parities);
    return table;
}

std::map<QString, StopBitsType>& StopbitMap()
{
    static std::map<QString, StopBitsType> table = tableOf(SettingTexts::stopBits);
    return table;
}

std::map<QString, FlowType>& FlowCtrlMap()
{
    static std::map<QString, FlowType> table = tableOf(SettingTexts::flowControls);
    return table;
}

} // namespace MavSystem
