// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"

#include <QString>

#include <tl/expected.hpp>

namespace ReferenceHost {

/// Finds the driver of a command. Errors say what is wrong and what would be right.
namespace DriverLookup {

/// Returns the installed driver named \a name. The error has the nearest names.
tl::expected<MavSystem::DescribedDriver, QString> installed(const QString& name);

/// Returns the driver in the description \a path, installed or not.
tl::expected<MavSystem::DescribedDriver, QString> inFile(const QString& path);

/// Returns \a driver if the library can read reports with it.
tl::expected<MavSystem::DescribedDriver, QString>
takingReports(const MavSystem::DescribedDriver& driver);

} // namespace DriverLookup

} // namespace ReferenceHost
