// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Command.h"

/// "digitizer describe": proposes a description of an unknown tablet.
Command describeCommand();
