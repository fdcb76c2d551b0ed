// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescribedSetting.h"

#include "DigitizerGeneric/Digitizer/SerialSettings.h"
#include "DigitizerGeneric/Digitizer/SettingTexts.h"

namespace MavSystem {

namespace {

template <auto member, auto table, typename Value, std::size_t count>
DescribedSetting setting(const char* attribute, const char* words, const Value (&values)[count],
                         Value usual)
{
    QStringList accepted;
    for (const Value value : values)
        accepted << SettingTexts::textOf(value);
    return {QLatin1String(attribute),
            QLatin1String(words),
            accepted,
            SettingTexts::textOf(usual),
            [](PortSettings& settings, const QString& text) { settings.*member = table()[text]; },
            [](const PortSettings& settings) { return SettingTexts::textOf(settings.*member); }};
}

} // namespace

const QVector<DescribedSetting>& describedSettings()
{
    static const QVector<DescribedSetting> all = {
        setting<&PortSettings::BaudRate, BaudrateMap>("baudrate", "baud rate",
                                                      SettingTexts::baudRates, BAUD9600),
        setting<&PortSettings::DataBits, DatabitMap>("databit", "data bits", SettingTexts::dataBits,
                                                     DATA_8),
        setting<&PortSettings::Parity, ParityMap>("parity", "parity", SettingTexts::parities,
                                                  PAR_NONE),
        setting<&PortSettings::StopBits, StopbitMap>("stopbit", "stop bits", SettingTexts::stopBits,
                                                     STOP_1),
        setting<&PortSettings::FlowControl, FlowCtrlMap>("flowctrl", "flow control",
                                                         SettingTexts::flowControls, FLOW_OFF),
    };
    return all;
}

} // namespace MavSystem
