// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/LineOptions.h"

#include "DigitizerGeneric/Digitizer/DescribedSetting.h"
#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Serial/PortAccess.h"

#include <algorithm>

namespace ReferenceHost {

using namespace MavSystem;

namespace LineOptions {

namespace {

QStringList usualFirst(const DescribedSetting& setting)
{
    QStringList texts = setting.accepted;
    texts.removeOne(setting.usual);
    texts.prepend(setting.usual);
    return texts;
}

} // namespace

QList<QCommandLineOption> options()
{
    QList<QCommandLineOption> result = {
        {QStringLiteral("device"), QStringLiteral("Use serial port PORT, such as /dev/ttyUSB0."),
         QStringLiteral("PORT")}};
    for (const DescribedSetting& setting : describedSettings()) {
        const QStringList others = usualFirst(setting).mid(1);
        result << QCommandLineOption(
            setting.attribute,
            QStringLiteral("Set the %1: %2 (default), %3.")
                .arg(setting.words, setting.usual, others.join(QStringLiteral(", "))),
            QStringLiteral("VALUE"));
    }
    return result;
}

bool areGiven(const QCommandLineParser& parser)
{
    const auto& all = describedSettings();
    return std::any_of(all.begin(), all.end(), [&](const DescribedSetting& setting) {
        return parser.isSet(setting.attribute);
    });
}

PortSettings settings(const QCommandLineParser& parser, const PortSettings& others)
{
    PortSettings line = others;
    for (const DescribedSetting& setting : describedSettings()) {
        const QString text = choiceValue(parser, setting.attribute, usualFirst(setting));
        if (parser.isSet(setting.attribute))
            setting.read(line, text);
    }
    return line;
}

PortSettings usualSettings()
{
    PortSettings line;
    for (const DescribedSetting& setting : describedSettings())
        setting.read(line, setting.usual);
    return line;
}

QString device(const QCommandLineParser& parser)
{
    const QString device = requiredValue(parser, QStringLiteral("device"),
                                         QStringLiteral("'digitizer ports' lists the ports"));
    if (device.startsWith(penDevice()))
        throw CommandError(QStringLiteral("--device is '%1', but a digital pen sends no bytes to a "
                                          "port; give a serial port")
                               .arg(device),
                           ExitUsage);
    const QString problem = portProblem(device);
    if (!problem.isEmpty())
        throw CommandError(problem);
    return portPath(device);
}

} // namespace LineOptions

} // namespace ReferenceHost
