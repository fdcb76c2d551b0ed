// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

namespace ReferenceHost {

/// The programs that have a port open, as far as this user may know.
struct PortHolders
{
    QStringList programs;  ///< each as "minicom (1234)", with the number of its process
    bool complete = false; ///< whether all processes could be looked at
};

/// Looks for the port with that path in the process folder \a processes. Nothing is known, and so
/// nothing complete, on a system without one.
PortHolders portHolders(const QString& port, const QDir& processes = QDir(QStringLiteral("/proc")));

/// Returns "nobody", or the programs, and that there may be more when there may.
QString holdersText(const PortHolders& holders);

} // namespace ReferenceHost
