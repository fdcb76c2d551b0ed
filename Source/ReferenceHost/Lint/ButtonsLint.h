// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Lint/LintFindings.h"

namespace ReferenceHost {

/// Finds the faults of the button codes. \a positions is the number of characters of a code in the
/// template, or 0 if it is not known.
void lintButtons(const XmlElement& buttons, int positions, LintFindings& findings);

} // namespace ReferenceHost
