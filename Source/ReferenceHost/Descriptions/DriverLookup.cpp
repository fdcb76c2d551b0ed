// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Descriptions/DriverLookup.h"

#include "ReferenceHost/CommandLine/NearestNames.h"

#include <QStringList>

namespace ReferenceHost {

using namespace MavSystem;

namespace DriverLookup {

tl::expected<DescribedDriver, QString> installed(const QString& name)
{
    const auto driver = DescriptionFolder::find(name);
    if (driver)
        return *driver;
    QStringList names;
    for (const DescribedDriver& each : DescriptionFolder::drivers())
        names << QStringLiteral("\"%1\"").arg(each.name);
    return tl::unexpected(
        QStringLiteral("no driver has the name \"%1\"%2 ('digitizer drivers' lists the names)")
            .arg(name, suggestion(name, names)));
}

tl::expected<DescribedDriver, QString> inFile(const QString& path)
{
    return driverOf(DescriptionFolder::read(path));
}

tl::expected<DescribedDriver, QString> takingReports(const DescribedDriver& driver)
{
    if (driver.takesReports())
        return driver;
    return tl::unexpected(QStringLiteral("the description %1 has no usable report template: it is "
                                         "for a pen, or it is broken ('digitizer lint' says why)")
                              .arg(driver.file));
}

tl::expected<DescribedDriver, QString> driverOf(const DescriptionFolder::Result& read)
{
    if (read.problem.isEmpty())
        return read.driver;
    return tl::unexpected(QStringLiteral("%1 ('digitizer lint' shows where)").arg(read.problem));
}

} // namespace DriverLookup

} // namespace ReferenceHost
