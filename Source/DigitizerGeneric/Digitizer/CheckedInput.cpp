// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/CheckedInput.h"

#include "QextSerialPort/qextserialport.h"

#include <utility>

namespace MavSystem {

CheckedInput::CheckedInput(QextSerialPort& port, const DigitizerArgument& description,
                           std::function<void()> turn)
    : m_port(port),
      m_stream(description),
      m_turn(std::move(turn)),
      m_pauseMilliseconds(ReportStream::pauseMilliseconds(description.m_portSettings))
{
    m_quiet.setSingleShot(true);
    m_quiet.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_quiet, &QTimer::timeout, &m_quiet, [this] { lookForPause(); });
}

void CheckedInput::setTemplate(const DigitizerArgument& description)
{
    m_stream.setTemplate(description);
    // A turn may have passed unused while a driver was selected that is not read with checks.
    m_turnAsked = false;
    askForTurn();
}

void CheckedInput::start()
{
    m_started = true;
    askForTurn();
}

// Only when the stream has nothing more to give: what the host is slow to take stays at the port.
void CheckedInput::read()
{
    if (m_port.bytesAvailable() == 0)
        return;
    m_stream.append(m_port.readAll());
    m_quiet.stop();
}

void CheckedInput::end()
{
    m_ended = true;
    askForTurn();
}

std::optional<StreamItem> CheckedInput::next()
{
    m_turnAsked = false;
    if (!m_started)
        return std::nullopt;
    std::optional<StreamItem> item = m_stream.next();
    if (!item) {
        read();
        item = m_stream.next();
    }
    if (!item && m_ended && m_stream.needsPause()) {
        m_stream.pause();
        item = m_stream.next();
    }
    if (item && (m_stream.needsPause() || m_port.bytesAvailable() > 0 || m_ended))
        askForTurn();
    else if (m_stream.needsPause())
        waitForPause();
    return item;
}

bool CheckedInput::takeEnd()
{
    return m_started && std::exchange(m_ended, false);
}

void CheckedInput::askForTurn()
{
    if (!std::exchange(m_turnAsked, true))
        m_turn();
}

void CheckedInput::waitForPause()
{
    if (m_quiet.isActive())
        return;
    m_lookedOnce = false;
    m_quiet.start(m_pauseMilliseconds);
}

// A host that was busy finds the timer expired while bytes wait at the system, so the line was
// quiet only if a second look, a turn of the event loop later, finds nothing either.
void CheckedInput::lookForPause()
{
    if (m_port.bytesAvailable() > 0)
        return; // they are announced and end the wait
    if (!std::exchange(m_lookedOnce, true)) {
        m_quiet.start(0);
        return;
    }
    m_stream.pause();
    askForTurn();
}

} // namespace MavSystem
