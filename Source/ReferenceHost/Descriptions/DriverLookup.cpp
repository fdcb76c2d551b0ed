// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Descriptions/DriverLookup.h"

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "ReferenceHost/CommandLine/NearestNames.h"

#include <QFileInfo>
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
    const DescriptionFolder::Result read = DescriptionFolder::read(path);
    if (read.problem.isEmpty())
        return read.driver;
    const QFileInfo file(path);
    const bool isRead = file.isFile() && file.isReadable();
    return tl::unexpected(read.problem +
                          QLatin1String(isRead ? " ('digitizer lint' shows where)" : ""));
}

tl::expected<DescribedDriver, QString> takingReports(const DescribedDriver& driver)
{
    if (driver.takesReports())
        return driver;
    return tl::unexpected(QStringLiteral("the description %1 has no usable report template: it is "
                                         "for a pen, or it is broken ('digitizer lint' says why)")
                              .arg(driver.file));
}

} // namespace DriverLookup

} // namespace ReferenceHost
