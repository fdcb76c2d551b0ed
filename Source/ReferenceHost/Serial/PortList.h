// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Serial/PortHolders.h"

#include <QJsonObject>
#include <QString>
#include <QVector>

namespace ReferenceHost {

/// A serial port of this machine.
struct PortEntry
{
    QString path;
    QString description; ///< empty when the system does not know
    QString maker;
    QString identifier;    ///< vendor and product of a USB adapter: "0403:6001"
    QString rightsProblem; ///< why this user may not use it and what to do; empty when they may
    PortHolders holders;
};

/// Returns the serial ports of this machine. Opens none of them: an open can reset what is there.
QVector<PortEntry> serialPorts();

/// Returns the port in lines of text.
QString textOf(const PortEntry& port);

QJsonObject jsonOf(const PortEntry& port);

} // namespace ReferenceHost
