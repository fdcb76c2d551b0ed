// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Describe/LayoutFinder.h"
#include "ReferenceHost/Describe/ReportSplit.h"
#include "ReferenceHost/Describe/TabletFacts.h"

#include <QByteArray>

namespace ReferenceHost {

/// Returns a description file for the tablet, in UTF-8. It is complete and well-formed; comments
/// "Not sure: ..." above an element say what to check.
QByteArray proposeDescription(const ReportSplit& split, const FoundLayout& layout,
                              const TabletFacts& facts);

} // namespace ReferenceHost
