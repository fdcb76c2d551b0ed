// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "ReferenceHost/Describe/Doubt.h"
#include "ReferenceHost/Describe/LayoutFinder.h"
#include "ReferenceHost/Describe/ReportSplit.h"
#include "ReferenceHost/Describe/TabletFacts.h"

#include <QByteArray>
#include <QVector>

namespace ReferenceHost {

/// The values of a proposed description that are neither seen in the reports nor told by the user,
/// and everything that is doubtful about the description.
struct ProposedValues
{
    int lines = 1000; ///< the resolution; a placeholder if it is not known
    MavSystem::ResolutionUnit unit = MavSystem::LPI;
    QVector<QByteArray> codes; ///< of all buttons that the description must have
    QVector<Doubt> doubts;
};

ProposedValues proposeValues(const ReportSplit& split, const FoundLayout& layout,
                             const TabletFacts& facts);

} // namespace ReferenceHost
