// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescribedSetting.h"

#include "DigitizerGeneric/Digitizer/SerialSettings.h"
#include "DigitizerGeneric/Digitizer/SettingTexts.h"

namespace MavSystem {

namespace {

template <auto member, auto table, typename Value, std::size_t count>
DescribedSetting setting(const char* attribute, const char* words,
                         const SettingTexts::SettingText<Value> (&entries)[count],
                         const char* usual)
{
    QStringList accepted;
    for (const auto& entry : entries)
        accepted << QLatin1String(entry.text);
    return {QLatin1String(attribute), QLatin1String(words), accepted, QLatin1String(usual),
            [](PortSettings& settings, const QString& text) { settings.*member = table()[text]; }};
}

} // namespace

const QVector<DescribedSetting>& describedSettings()
{
    static const QVector<DescribedSetting> all = {
        setting<&PortSettings::BaudRate, BaudrateMap>("baudrate", "baud rate",
                                                      SettingTexts::baudRates, "9600"),
        setting<&PortSettings::DataBits, DatabitMap>("databit", "data bits", SettingTexts::dataBits,
                                                     "8"),
        setting<&PortSettings::Parity, ParityMap>("parity", "parity", SettingTexts::parities,
                                                  "None"),
        setting<&PortSettings::StopBits, StopbitMap>("stopbit", "stop bits", SettingTexts::stopBits,
                                                     "1"),
        setting<&PortSettings::FlowControl, FlowCtrlMap>("flowctrl", "flow control",
                                                         SettingTexts::flowControls, "none"),
    };
    return all;
}

} // namespace MavSystem
