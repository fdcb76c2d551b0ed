// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/DriverOptions.h"

#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/DriverLookup.h"

namespace ReferenceHost {

using MavSystem::DescribedDriver;

namespace DriverOptions {

namespace {

const QString driverOption = QStringLiteral("driver");
const QString descriptionOption = QStringLiteral("description");

} // namespace

QCommandLineOption driver()
{
    return {driverOption, QStringLiteral("Use driver NAME; 'digitizer drivers' lists the names."),
            QStringLiteral("NAME")};
}

QCommandLineOption description()
{
    return {descriptionOption,
            QStringLiteral("Use description FILE instead of an installed driver."),
            QStringLiteral("FILE")};
}

bool areGiven(const QCommandLineParser& parser)
{
    return parser.isSet(driverOption) || parser.isSet(descriptionOption);
}

DescribedDriver installed(const QCommandLineParser& parser)
{
    return valueOrThrow(DriverLookup::installed(requiredValue(
        parser, driverOption, QStringLiteral("'digitizer drivers' lists the names"))));
}

DescribedDriver chosen(const QCommandLineParser& parser)
{
    if (!parser.isSet(descriptionOption))
        return installed(parser);
    if (parser.isSet(driverOption))
        throw CommandError(QStringLiteral("--description and --driver cannot be combined"),
                           ExitUsage);
    return valueOrThrow(DriverLookup::inFile(parser.value(descriptionOption)));
}

DescribedDriver chosenWithReports(const QCommandLineParser& parser)
{
    return valueOrThrow(DriverLookup::takingReports(chosen(parser)));
}

} // namespace DriverOptions

} // namespace ReferenceHost
