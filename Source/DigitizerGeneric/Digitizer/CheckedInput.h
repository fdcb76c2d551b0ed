// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/ReportStream.h"

#include <QTimer>

#include <functional>

class QextSerialPort;

namespace MavSystem {

/// The checked reading of one open port: its bytes, its pauses and its end become items of a
/// ReportStream.
///
/// Calls nobody but \a turn, which asks for a turn of the event loop in which one item is taken.
/// The host may do anything with a report, so each comes from a turn of its own, asked for before
/// the host has the one in front of it.
class CheckedInput
{
public:
    /// \a port and \a settings are those of the open port, which lives longer than this.
    CheckedInput(QextSerialPort& port, const DigitizerArgument& description,
                 std::function<void()> turn);

    ReportStream& stream() { return m_stream; }

    /// From here on items are handed out; what has arrived waits until then.
    void start();

    /// Says that the port has ended.
    void end();

    /// Returns the next item, or nothing. Asks for another turn if there is more to do.
    std::optional<StreamItem> next();

    /// Returns true once, when the port has ended and every item has been taken.
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
