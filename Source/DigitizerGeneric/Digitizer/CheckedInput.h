// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/ReportStream.h"

#include <QTimer>

#include <functional>

class QextSerialPort;

namespace MavSystem {

/// Checked reading of one open port. Its bytes, pauses and end become items of a ReportStream.
///
/// Calls only \a turn, which asks the event loop to call next() once. The host may do anything with
/// a report, so each report comes from a separate event, which is requested before the host gets
/// the previous report.
class CheckedInput
{
public:
    /// \a port is open and must outlive this object.
    CheckedInput(QextSerialPort& port, const DigitizerArgument& description,
                 std::function<void()> turn);

    const ReportStream& stream() const { return m_stream; }

    /// Reads by another template from now on, also what has arrived already.
    void setTemplate(const DigitizerArgument& description);

    /// Starts to return items. What has arrived so far is kept until then.
    void start();

    /// To be called when the port is gone.
    void end();

    /// Returns the next item, or nothing. Calls \a turn again if there is more to do.
    std::optional<StreamItem> next();

    /// Returns true once, when the port is gone and every item has been returned.
    bool takeEnd();

private:
    void read();
    void askForTurn();
    void waitForPause();
    void lookForPause();

    QextSerialPort& m_port;
    ReportStream m_stream;
    std::function<void()> m_turn;
    QTimer m_quiet;
    int m_pauseMilliseconds;
    bool m_lookedOnce = false;
    bool m_started = false;
    bool m_turnAsked = false;
    bool m_ended = false;
};

} // namespace MavSystem
