// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// "digitizer install": checks description files and installs them.
Command installCommand();

} // namespace ReferenceHost
