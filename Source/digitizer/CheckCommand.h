// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// "digitizer check": checks whether a tablet can be used, and says what to do if not.
Command checkCommand();

} // namespace ReferenceHost
