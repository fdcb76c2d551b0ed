// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Lint/LintFindings.h"

namespace ReferenceHost {

/// What a description is for, which decides what it must have.
struct DescriptionKind
{
    bool hasOwnLayout = false; ///< the driver of this name does not use the template
    bool isPen = false;        ///< it has neither a serial port nor a report
};

/// Finds elements and attributes that are unknown, missing or ignored, and texts of attributes that
/// are not accepted.
void lintStructure(const XmlElement& root, const DescriptionKind& kind, LintFindings& findings);

} // namespace ReferenceHost
