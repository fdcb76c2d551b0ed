// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Lint/LintFinding.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVector>

namespace ReferenceHost {

/// Returns all that the driver takes without a message in the description with that content, in
/// the order of the file; nothing when all is well. \a otherNames holds the driver names of the
/// other descriptions that are installed beside it, and the file of each.
QVector<LintFinding> lintDescription(const QByteArray& content,
                                     const QMap<QString, QString>& otherNames = {});

} // namespace ReferenceHost
