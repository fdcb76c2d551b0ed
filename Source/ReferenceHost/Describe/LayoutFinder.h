// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "ReferenceHost/Describe/Doubt.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <tl/expected.hpp>

#include <vector>

namespace ReferenceHost {

/// The layout of an unknown tablet's report.
struct FoundLayout
{
    std::vector<MavSystem::ReportFormatValues> roles; ///< the template, for each position
    QVector<QByteArray> codes; ///< the code of each button that was pressed, in that order
    double xCounts = 0;        ///< from the first press to the one at its right
    double yCounts = 0;        ///< from the first press to the one above it
    QVector<Doubt> doubts;
};

/// Finds the layout. \a reports have the same length, one for each press of the protocol in its
/// order, with at least two buttons. The error says why there is no template.
tl::expected<FoundLayout, QString> findLayout(const QVector<QByteArray>& reports);

} // namespace ReferenceHost
