// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Descriptions/DescriptionTexts.h"

#include "DigitizerGeneric/Digitizer/DescribedSetting.h"
#include "DigitizerGeneric/Digitizer/SettingTexts.h"
#include "DigitizerGeneric/Digitizer/TemplateLetters.h"
#include "QextSerialPort/SerialTiming.h"

#include <algorithm>
#include <cstdint>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

// A value that a description can have is in its table.
template <typename Value, std::size_t count>
QString textOf(const SettingTexts::SettingText<Value> (&entries)[count], Value value)
{
    const auto found = std::find_if(std::begin(entries), std::end(entries),
                                    [&](const auto& entry) { return entry.value == value; });
    return QLatin1String(found == std::end(entries) ? "unknown" : found->text);
}

} // namespace

QStringList lineSettingTexts(const PortSettings& settings)
{
    return {QString::number(SerialTiming::bitsPerSecond(settings.BaudRate)),
            QString::number(SerialTiming::bitsOf(settings.DataBits)),
            textOf(SettingTexts::parities, settings.Parity),
            QString::number(SerialTiming::bitsOf(settings.StopBits)),
            textOf(SettingTexts::flowControls, settings.FlowControl)};
}

QString lineSettingsText(const PortSettings& settings)
{
    QStringList texts = lineSettingTexts(settings);
    if (settings.FlowControl == FLOW_OFF)
        texts.removeLast();
    return texts.join(QLatin1Char(' '));
}

std::optional<PortSettings> lineSettingsIn(const QString& text)
{
    const QVector<DescribedSetting>& settings = describedSettings();
    QStringList texts = text.simplified().split(QLatin1Char(' '));
    if (texts.size() == settings.size() - 1)
        texts << settings.constLast().usual; // flow control
    if (texts.size() != settings.size())
        return std::nullopt;
    PortSettings line;
    for (int i = 0; i < texts.size(); ++i) {
        if (!settings.at(i).accepted.contains(texts.at(i)))
            return std::nullopt;
        settings.at(i).read(line, texts.at(i));
    }
    return line;
}

QString layoutText(const std::vector<ReportFormatValues>& roles)
{
    QString letters;
    for (const ReportFormatValues role : roles)
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
