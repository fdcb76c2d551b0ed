// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Descriptions/LineSettings.h"

#include "DigitizerGeneric/Digitizer/SerialSettings.h"

#include <QStringList>
#include <QVector>

#include <algorithm>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

template <typename Value>
QStringList textsOf(const std::map<QString, Value>& table, const QString& usual)
{
    QStringList texts;
    for (const auto& entry : table)
        texts << entry.first;
    std::sort(texts.begin(), texts.end(), [](const QString& left, const QString& right) {
        return left.toDouble() < right.toDouble();
    });
    texts.removeAll(usual);
    texts.prepend(usual);
    return texts;
}

} // namespace

namespace LineSettings {

const QVector<Setting>& settings()
{
    static const QVector<Setting> all = {
        {QStringLiteral("baudrate"), QStringLiteral("baud rate"),
         textsOf(BaudrateMap(), QStringLiteral("9600")),
         [](PortSettings& line, const QString& text) { line.BaudRate = BaudrateMap().at(text); }},
        {QStringLiteral("databit"), QStringLiteral("data bits"),
         textsOf(DatabitMap(), QStringLiteral("8")),
         [](PortSettings& line, const QString& text) { line.DataBits = DatabitMap().at(text); }},
        {QStringLiteral("parity"), QStringLiteral("parity"),
         textsOf(ParityMap(), QStringLiteral("None")),
         [](PortSettings& line, const QString& text) { line.Parity = ParityMap().at(text); }},
        {QStringLiteral("stopbit"), QStringLiteral("stop bits"),
         textsOf(StopbitMap(), QStringLiteral("1")),
         [](PortSettings& line, const QString& text) { line.StopBits = StopbitMap().at(text); }},
        {QStringLiteral("flowctrl"), QStringLiteral("flow control"),
         textsOf(FlowCtrlMap(), QStringLiteral("none")),
         [](PortSettings& line, const QString& text) {
             line.FlowControl = FlowCtrlMap().at(text);
         }},
    };
    return all;
}

std::optional<PortSettings> parse(const QString& text)
{
    QStringList texts = text.simplified().split(QLatin1Char(' '));
    const int withoutFlowControl = settings().size() - 1;
    if (texts.size() == withoutFlowControl)
        texts << settings().last().accepted.first();
    if (texts.size() != settings().size())
        return std::nullopt;
    PortSettings line;
    for (int i = 0; i < texts.size(); ++i) {
        if (!settings().at(i).accepted.contains(texts.at(i)))
            return std::nullopt;
        settings().at(i).apply(line, texts.at(i));
    }
    return line;
}

void apply(const PortSettings& settings, QextSerialPort& port)
{
    port.setBaudRate(settings.BaudRate);
    port.setFlowControl(settings.FlowControl);
    port.setParity(settings.Parity);
    port.setStopBits(settings.StopBits);
    port.setDataBits(settings.DataBits);
}

} // namespace LineSettings

} // namespace ReferenceHost
