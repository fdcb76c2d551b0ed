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
    QString description; ///< empty if the system does not know it
    QString maker;
    QString identifier;    ///< vendor and product of a USB adapter: "0403:6001"
    QString rightsProblem; ///< why this user may not use it and what to do; otherwise empty
    PortHolders holders;
};

/// Returns the serial ports of this machine. Opens none of them: that could reset a device.
QVector<PortEntry> serialPorts();

/// Returns the port as lines of text.
QString textOf(const PortEntry& port);

QJsonObject jsonOf(const PortEntry& port);

} // namespace ReferenceHost
