// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace MavSystem {

/// One serial setting of a description file.
struct DescribedSetting
{
    QString attribute;
    QString words;                                             ///< for people: "data bits"
    QStringList accepted;                                      ///< its texts
    QString usual;                                             ///< one of them
    void (*read)(PortSettings& settings, const QString& text); ///< as the public tables tell
};

/// Returns baud rate, data bits, parity, stop bits and flow control.
const QVector<DescribedSetting>& describedSettings();

} // namespace MavSystem
