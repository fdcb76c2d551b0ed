// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Command.h"

/// The command "check": says whether a tablet can be used, and what to do when it cannot.
Command checkCommand();
