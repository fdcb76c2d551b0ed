// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/DriverList.h"

#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "MavCore/MavApplication.h"
#include "ReferenceHost/Command.h"
#include "ReferenceHost/NearestNames.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

using namespace MavSystem;

namespace {

struct Root
{
    QString name;
    QString support;
};

std::optional<Root> rootOf(const QString& path)
{
    QFile file(path);
    if (!openRegularFile(file).isEmpty())
        return std::nullopt;
    BoundedXmlReader reader(file.read(DescriptionLimits::bytes + 1));
    std::optional<Root> root;
    while (reader.readNext()) {
        const QXmlStreamAttributes attributes = reader.token().attributes();
        if (!root && reader.token().isStartElement())
            root = {attributes.value(QLatin1String("name")).toString(),
                    attributes.value(QLatin1String("support")).toString()};
    }
    return reader.hasProblem() ? std::nullopt : root;
}

// A host whose one installed description is a copy of a file.
class SingleDescriptionHost : public MavApplication
{
public:
    explicit SingleDescriptionHost(const QString& path) : m_previous(instance())
    {
        QDir(m_data.path()).mkdir(QStringLiteral("generated"));
        copyRegularFile(path, m_data.filePath(QStringLiteral("generated/description.xml")));
        setInstance(this);
    }
    ~SingleDescriptionHost() override { setInstance(m_previous); }

    QDir appDataLocation() const override { return QDir(m_data.path()); }

private:
    QTemporaryDir m_data;
    MavApplication* m_previous;
};

bool contains(const QVector<Driver>& drivers, const QString& name)
{
    return std::any_of(drivers.begin(), drivers.end(),
                       [&](const Driver& driver) { return driver.name == name; });
}

} // namespace

bool Driver::isLectraE92() const
{
    return name.compare(QLatin1String("Lectra E92"), Qt::CaseInsensitive) == 0;
}

QVector<Driver> installedDrivers()
{
    const QDir folder(
        MavApplication::instance()->appDataLocation().filePath(QStringLiteral("generated")));
    QVector<Driver> drivers;
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Unsorted)) {
        const std::optional<Root> root = rootOf(file.absoluteFilePath());
        if (!root || contains(drivers, root->name))
            continue;
        const std::unique_ptr<DigitizerArgument> description(
            DigitizerArgument::digitizerArgument(root->name));
        drivers.append({root->name, file.absoluteFilePath(), root->support, *description});
    }
    std::sort(drivers.begin(), drivers.end(),
              [](const Driver& left, const Driver& right) { return left.name < right.name; });
    return drivers;
}

std::optional<Driver> findDriver(const QString& name)
{
    for (const Driver& driver : installedDrivers()) {
        if (driver.name == name)
            return driver;
    }
    return std::nullopt;
}

Driver requiredDriver(const QString& name)
{
    const std::optional<Driver> driver = findDriver(name);
    if (driver)
        return *driver;
    QStringList names;
    for (const Driver& installed : installedDrivers())
        names << QStringLiteral("\"%1\"").arg(installed.name);
    throw CommandError(QStringLiteral("no installed description has the name \"%1\"%2 "
                                      "('digitizer drivers' lists them)")
                           .arg(name, suggestion(name, names)));
}

Driver usableDriver(const QString& name)
{
    const Driver driver = requiredDriver(name);
    if (!driver.isUsable())
        throw CommandError(
            QStringLiteral("the description %1 is broken ('digitizer lint %1' says why)")
                .arg(driver.file));
    return driver;
}

Driver driverFromFile(const QString& path)
{
    QFile file(path);
    const QString problem = openRegularFile(file);
    if (!problem.isEmpty())
        throw CommandError(
            QStringLiteral("the description '%1' cannot be read: %2").arg(path, problem));
    const SingleDescriptionHost host(path);
    const QVector<Driver> drivers = installedDrivers();
    if (drivers.isEmpty() || !drivers.constFirst().isUsable())
        throw CommandError(
            QStringLiteral("'%1' is not a usable description ('digitizer lint' says why)")
                .arg(path));
    Driver driver = drivers.constFirst();
    driver.file = path;
    return driver;
}
