// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <QByteArray>
#include <QObject>
#include <QString>

namespace MavSystem {

/// What happens on the serial input beside the reports. Reached through Digitizer::inputEvents().
///
/// From inside a slot a host may call any operation of Digitizer, show a modal dialog or throw, as
/// in its report handler. Thread: that of the host's event loop. Nothing is emitted for pen input.
class DIGITIZERGENERIC_EXPORT InputEvents : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    /// With checked reading: these bytes were no report and were not handed over. A damaged report
    /// comes out by itself where the template ends in a line end, noise in pieces of any size.
    void bytesPassedOver(const QByteArray& bytes);

    /// Without checked reading: so many bytes have been waiting for a second, which is not one
    /// report, and nothing is read any more. To close and open again discards them.
    void inputUnread(qint64 bytes);

    /// The port is gone, for instance because the cable was pulled; \a reason is the port's error
    /// text. Emitted once for each open(), after the reports that arrived before. active() stays
    /// true until close(); open() can be tried at any time. Needs readReport() to have been called
    /// where checked reading is on.
    void portLost(const QString& reason);
};

} // namespace MavSystem
