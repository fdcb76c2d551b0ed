// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <QByteArray>
#include <QObject>
#include <QString>

namespace MavSystem {

/// Events of the serial input other than reports. See Digitizer::inputEvents().
///
/// Inside a slot a host may call any operation of Digitizer, show a modal dialog or throw, as in
/// its report handler. Thread: that of the host's event loop. Nothing is emitted for pen input.
class DIGITIZERGENERIC_EXPORT InputEvents : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    /// With checked reading: \a bytes were not part of a report and were not delivered. If the
    /// template ends with a line end, each damaged report is announced by itself. Other bytes may
    /// be announced in pieces of any size.
    void bytesPassedOver(const QByteArray& bytes);

    /// Without checked reading: \a bytes is the number of bytes that have been waiting for a
    /// second. It is not the length of one report, and nothing is read any more. Closing and
    /// opening the port discards them.
    void inputUnread(qint64 bytes);

    /// The port is lost, for example because the cable was pulled. \a reason is the port's error
    /// text. Emitted once for each open(), after the reports that arrived before. active() stays
    /// true until close(); open() may be tried at any time. With checked reading, emitted only
    /// after readReport() was called.
    void portLost(const QString& reason);
};

} // namespace MavSystem
