// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Command.h"

/// The command "ports": lists the serial ports of this machine.
Command portsCommand();
