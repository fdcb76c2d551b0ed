// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Descriptions/DescriptionTexts.h"

#include "DigitizerGeneric/Digitizer/TemplateLetters.h"
#include "QextSerialPort/SerialTiming.h"

#include <algorithm>
#include <cstdint>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

// In the order of the enumerators.
constexpr const char* parities[] = {"None", "Odd", "Even", "Mark", "Space"};
constexpr const char* stopBits[] = {"1", "1.5", "2"};
constexpr const char* flowControls[] = {"none", "hardware", "software"};

} // namespace

QStringList lineSettingTexts(const PortSettings& settings)
{
    return {QString::number(SerialTiming::bitsPerSecond(settings.BaudRate)),
            QString::number(settings.DataBits + 5), QLatin1String(parities[settings.Parity]),
            QLatin1String(stopBits[settings.StopBits]),
            QLatin1String(flowControls[settings.FlowControl])};
}

QString lineSettingsText(const PortSettings& settings)
{
    QStringList texts = lineSettingTexts(settings);
    if (settings.FlowControl == FLOW_OFF)
        texts.removeLast();
    return texts.join(QLatin1Char(' '));
}

QString layoutText(const DigitizerArgument& description)
{
    QString letters;
    for (const ReportFormatValues role : description.m_reportFormat)
        letters += TemplateLetters::letterOf(role);
    return letters;
}

QString buttonCodeText(const DigitizerArgument& description, const ButtonValue& button)
{
    const auto characters =
        std::min<std::uint64_t>(description.m_buttonCodeLength, button.m_code.size());
    return QString::fromLatin1(button.m_code.data(), int(characters));
}

} // namespace ReferenceHost
