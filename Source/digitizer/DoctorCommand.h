// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// The command "doctor": writes the report that goes along with a question.
Command doctorCommand();

} // namespace ReferenceHost
