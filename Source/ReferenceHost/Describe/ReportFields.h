// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Describe/Doubt.h"
#include "ReferenceHost/Describe/ReportColumns.h"

#include <QVector>

#include <tl/expected.hpp>

namespace ReferenceHost {

/// Where a report has its fields.
struct ReportFields
{
    ReportNumber x;
    ReportNumber y;
    QVector<int> button; ///< positions of the code, at most as many as a code has characters
    QVector<Doubt> doubts;
};

/// Finds the fields by what changes from press to press. The error says which of them is not there.
tl::expected<ReportFields, QString> findFields(const ReportColumns& columns);

} // namespace ReferenceHost
