// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/LineOptions.h"

#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/LineSettings.h"
#include "ReferenceHost/Serial/PortAccess.h"

#include <algorithm>

namespace ReferenceHost {

namespace LineOptions {

QList<QCommandLineOption> options()
{
    QList<QCommandLineOption> result = {
        {QStringLiteral("device"), QStringLiteral("Use serial port PORT, such as /dev/ttyUSB0."),
         QStringLiteral("PORT")}};
    for (const LineSettings::Setting& setting : LineSettings::settings()) {
        const QStringList others = setting.accepted.mid(1);
        result << QCommandLineOption(setting.name,
                                     QStringLiteral("Set the %1: %2 (default), %3.")
                                         .arg(setting.explanation, setting.accepted.constFirst(),
                                              others.join(QStringLiteral(", "))),
                                     QStringLiteral("VALUE"));
    }
    return result;
}

bool areGiven(const QCommandLineParser& parser)
{
    const auto& all = LineSettings::settings();
    return std::any_of(all.begin(), all.end(), [&](const LineSettings::Setting& setting) {
        return parser.isSet(setting.name);
    });
}

PortSettings settings(const QCommandLineParser& parser, const PortSettings& others)
{
    PortSettings line = others;
    for (const LineSettings::Setting& setting : LineSettings::settings()) {
        const QString text = choiceValue(parser, setting.name, setting.accepted);
        if (parser.isSet(setting.name))
            setting.apply(line, text);
    }
    return line;
}

PortSettings usualSettings()
{
    PortSettings line;
    for (const LineSettings::Setting& setting : LineSettings::settings())
        setting.apply(line, setting.accepted.first());
    return line;
}

QString device(const QCommandLineParser& parser)
{
    const QString device = requiredValue(parser, QStringLiteral("device"),
                                         QStringLiteral("'digitizer ports' lists the ports"));
    const QString problem = portProblem(device);
    if (!problem.isEmpty())
        throw CommandError(problem);
    return MavSystem::portPath(device);
}

} // namespace LineOptions

} // namespace ReferenceHost
