// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

namespace ReferenceHost {

/// The programs that have a port open, as far as this user may see them.
struct PortHolders
{
    QStringList programs;  ///< such as "minicom (1234)", with the process number
    bool complete = false; ///< whether all processes could be inspected
};

/// Looks for the programs that have \a port open in the process folder \a processes. On a system
/// without such a folder the result is empty and not complete.
PortHolders portHolders(const QString& port, const QDir& processes = QDir(QStringLiteral("/proc")));

/// Returns the programs as text, or "nobody"; says so if there may be more.
QString holdersText(const PortHolders& holders);

} // namespace ReferenceHost
