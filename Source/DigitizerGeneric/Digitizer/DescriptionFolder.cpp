// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"

#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DescriptionParsing.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "DigitizerGeneric/Digitizer/ShippedDescriptions.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace MavSystem {

namespace {

using Result = DescriptionFolder::Result;

DescribedDriver driverOf(const DescriptionFiles::Loaded& file, const DigitizerArgument& description)
{
    return {DescriptionFiles::nameOf(file.document), QFileInfo(file.path).absoluteFilePath(),
            file.document.documentElement().attribute(QStringLiteral("support")), description};
}

DescribedDriver driverOf(const DescriptionFiles::Loaded& file)
{
    return driverOf(file, parseDescription(file.document.documentElement()).description);
}

Result problem(const QString& text)
{
    return {DescribedDriver(), text, false};
}

Result check(const DescriptionFiles::Loaded& file)
{
    if (!file.problem.isEmpty())
        return problem(file.problem);
    if (DescriptionFiles::nameOf(file.document).isEmpty())
        return problem(QStringLiteral("%1 names no driver: its root element needs the attribute "
                                      "\"name\"")
                           .arg(file.path));
    const ParsedDescription read = parseDescription(file.document.documentElement());
    if (!read.problem.isEmpty())
        return problem(QStringLiteral("%1 cannot be used: %2").arg(file.path, read.problem));
    return {driverOf(file, read.description), QString(), false};
}

// Returns why the name of the checked file must not be used in \a target, or an empty text.
QString nameClash(const DescribedDriver& driver, const QString& target)
{
    const auto known = DescriptionFolder::find(driver.name);
    if (known && QFileInfo(known->file).fileName() != QFileInfo(target).fileName())
        return QStringLiteral(
                   "%1 describes \"%2\", but %3 already does; give it another driver name")
            .arg(driver.file, driver.name, known->file);
    return {};
}

} // namespace

QString DescriptionFolder::path()
{
    return DescriptionFiles::installedPath();
}

QString DescriptionFolder::prepare()
{
    return installShippedDescriptions(shippedDescriptions(), path());
}

QVector<DescribedDriver> DescriptionFolder::drivers()
{
    QVector<DescribedDriver> drivers;
    QSet<QString> names = {QString()};
    for (const DescriptionFiles::Loaded& file : DescriptionFiles::all()) {
        const QString name = DescriptionFiles::nameOf(file.document);
        if (names.contains(name))
            continue;
        names.insert(name);
        drivers.append(driverOf(file));
    }
    std::sort(drivers.begin(), drivers.end(),
              [](const auto& left, const auto& right) { return left.name < right.name; });
    return drivers;
}

std::optional<DescribedDriver> DescriptionFolder::find(const QString& name)
{
    const auto found = DescriptionFiles::find(name, DescriptionFiles::BrokenFile::Skipped);
    if (!found || name.isEmpty())
        return std::nullopt;
    return driverOf(*found);
}

Result DescriptionFolder::read(const QString& file)
{
    return check(DescriptionFiles::load(file));
}

Result DescriptionFolder::install(const QString& file, ExistingFile existing)
{
    const DescriptionFiles::Content content = DescriptionFiles::contentOf(file);
    Result result = check(DescriptionFiles::parse(content));
    if (!result.problem.isEmpty())
        return result;
    const QString name = QFileInfo(file).fileName();
    if (name.startsWith(QLatin1Char('.')))
        return problem(QStringLiteral("%1 would be a hidden file, which is never read; give it a "
                                      "name that does not begin with a full stop")
                           .arg(file));
    const QString target = path() + QLatin1Char('/') + name;
    const QString clash = nameClash(result.driver, target);
    if (!clash.isEmpty())
        return problem(clash);
    const bool differs =
        QFileInfo::exists(target) && DescriptionFiles::contentOf(target).bytes != content.bytes;
    if (differs && existing == ExistingFile::Kept)
        return {
            {}, QStringLiteral("%1 already exists and differs from %2").arg(target, file), true};
    const QString failure = writeDescription(target, content.bytes);
    if (!failure.isEmpty())
        return problem(failure);
    result.driver.file = target;
    return result;
}

} // namespace MavSystem
