// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Descriptions/DriverOptions.h"

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/NearestNames.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Host/StandardHost.h"

namespace ReferenceHost {

using namespace MavSystem;

namespace {

const QString driverOption = QStringLiteral("driver");
const QString descriptionOption = QStringLiteral("description");

DescribedDriver driverOf(const DescriptionFolder::Result& read)
{
    if (!read.problem.isEmpty())
        throw CommandError(QStringLiteral("%1 ('digitizer lint' shows where)").arg(read.problem));
    return read.driver;
}

} // namespace

namespace DriverOptions {

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

DescribedDriver chosen(const QCommandLineParser& parser)
{
    if (!parser.isSet(descriptionOption))
        return requiredDriver(requiredValue(parser, driverOption,
                                            QStringLiteral("'digitizer drivers' lists the names")));
    if (parser.isSet(driverOption))
        throw CommandError(QStringLiteral("--description and --driver cannot be combined"),
                           ExitUsage);
    return driverOf(StandardHost::useOnly(parser.value(descriptionOption)));
}

} // namespace DriverOptions

DescribedDriver requiredDriver(const QString& name)
{
    const auto driver = DescriptionFolder::find(name);
    if (driver)
        return *driver;
    QStringList names;
    for (const DescribedDriver& installed : DescriptionFolder::drivers())
        names << QStringLiteral("\"%1\"").arg(installed.name);
    throw CommandError(
        QStringLiteral("no driver has the name \"%1\"%2 ('digitizer drivers' lists the names)")
            .arg(name, suggestion(name, names)));
}

DescribedDriver requireReports(const DescribedDriver& driver)
{
    if (!driver.takesReports())
        throw CommandError(QStringLiteral("the description %1 has no usable report template: it is "
                                          "for a pen, or it is broken ('digitizer lint' says why)")
                               .arg(driver.file));
    return driver;
}

DescribedDriver driverFromFile(const QString& path)
{
    return driverOf(DescriptionFolder::read(path));
}

} // namespace ReferenceHost
