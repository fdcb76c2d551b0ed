// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>

namespace ReferenceHost {

/// The options --driver NAME and --description FILE, which choose the tablet of a command.
namespace DriverOptions {

QCommandLineOption driver();
QCommandLineOption description();

/// Returns whether one of them is given.
bool areGiven(const QCommandLineParser& parser);

/// Returns the installed driver that --driver names, or throws a CommandError.
MavSystem::DescribedDriver installed(const QCommandLineParser& parser);

/// Returns the driver that the options name. Throws a CommandError if neither or both options are
/// given, or if the file cannot be used.
MavSystem::DescribedDriver chosen(const QCommandLineParser& parser);

/// Returns the same driver, or throws a CommandError if the library cannot read reports with it.
MavSystem::DescribedDriver chosenWithReports(const QCommandLineParser& parser);

} // namespace DriverOptions

} // namespace ReferenceHost
