// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// The command "lint": says of descriptions what the driver takes without a message.
Command lintCommand();

} // namespace ReferenceHost
