// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Lint/LintFindings.h"

namespace ReferenceHost {

/// Finds the faults of the report's template and of its length. Returns how many characters of a
/// button code the template has, as far as they have a meaning.
int lintTemplate(const XmlElement& reportFormat, LintFindings& findings);

} // namespace ReferenceHost
