// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// "digitizer lint": finds faults in descriptions that the driver does not report.
Command lintCommand();

} // namespace ReferenceHost
