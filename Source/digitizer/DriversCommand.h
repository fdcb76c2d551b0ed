// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Command.h"

/// "digitizer drivers": lists the installed descriptions.
Command driversCommand();
