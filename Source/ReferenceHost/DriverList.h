// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QString>
#include <QVector>

#include <optional>

/// An installed description, as the driver library would use it.
struct Driver
{
    QString name;
    QString file;    ///< path
    QString support; ///< "verified", "documented" or "untested"; empty when the file does not say
    MavSystem::DigitizerArgument description;

    /// Whether the library takes reports by it; otherwise its template or length is broken.
    bool isUsable() const { return description.m_reportLength > 0 || isLectraE92(); }

    /// Whether the library decodes by its built-in layout of this tablet instead of a template.
    bool isLectraE92() const;
};

/// Returns the installed descriptions by name. Files that are not well-formed have no name and are
/// left out, and of several with one name only the first counts, as in the library.
QVector<Driver> installedDrivers();

/// Returns the installed description named exactly \a name.
std::optional<Driver> findDriver(const QString& name);

/// Returns the description named \a name, or throws a CommandError that tells the nearest names.
Driver requiredDriver(const QString& name);

/// The same, but also throws when the library takes no reports by the description.
Driver usableDriver(const QString& name);

/// Returns the description in the file \a path, installed or not; throws a CommandError when it
/// cannot be read, has no name or is not usable.
Driver driverFromFile(const QString& path);
