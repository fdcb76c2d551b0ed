// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Command.h"

/// The command "lint": says of descriptions what the driver takes without a message.
Command lintCommand();
