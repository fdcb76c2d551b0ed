// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// "digitizer beep": makes a tablet beep.
Command beepCommand();

} // namespace ReferenceHost
