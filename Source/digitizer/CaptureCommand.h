// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// "digitizer capture": captures points from a tablet.
Command captureCommand();

} // namespace ReferenceHost
