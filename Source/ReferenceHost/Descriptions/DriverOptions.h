// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>

namespace ReferenceHost {

/// The options --driver NAME and --description FILE: which tablet a command is for.
namespace DriverOptions {

QCommandLineOption driver();
QCommandLineOption description();

/// Returns whether one of them is given.
bool areGiven(const QCommandLineParser& parser);

/// Returns the driver that the options name, after which the driver library finds it by its name: a
/// description given by its file is the only one of this process from then on. Throws a
/// CommandError when there is none of them or both, or the file cannot be used.
MavSystem::DescribedDriver chosen(const QCommandLineParser& parser);

} // namespace DriverOptions

/// Returns the installed driver named \a name, or throws a CommandError that tells the nearest
/// names.
MavSystem::DescribedDriver requiredDriver(const QString& name);

/// Returns \a driver, or throws a CommandError when the library takes no reports by it.
MavSystem::DescribedDriver requireReports(const MavSystem::DescribedDriver& driver);

/// Returns the driver in the description \a path, installed or not; throws a CommandError when it
/// cannot be used.
MavSystem::DescribedDriver driverFromFile(const QString& path);

} // namespace ReferenceHost
