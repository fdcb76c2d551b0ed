// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// The command "check": says whether a tablet can be used, and what to do when it cannot.
Command checkCommand();

} // namespace ReferenceHost
