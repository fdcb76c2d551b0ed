// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/PressDialog.h"

#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/Counted.h"
#include "ReferenceHost/CommandLine/InputLines.h"
#include "ReferenceHost/CommandLine/StopSignals.h"
#include "ReferenceHost/Describe/PressProtocol.h"

#include <cstdio>

namespace ReferenceHost {

namespace {

void tell(const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stderr);
}

} // namespace

PressDialog::PressDialog(SerialLine& line, std::optional<double> distance)
    : m_line(line), m_distance(distance)
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(PressProtocol::pauseMilliseconds);
    // Never too early: the presses are told apart by the same pause.
    m_quiet.setTimerType(Qt::PreciseTimer);
    connect(&m_quiet, &QTimer::timeout, this, &PressDialog::endPress);
    connect(&line, &SerialLine::received, this, &PressDialog::take);
    connect(&line, &SerialLine::ended, this,
            [this] { fail(QStringLiteral("the port is lost; check the cable and start again")); });
}

QVector<RecordedSession::Chunk> PressDialog::ask()
{
    const StopSignals stop;
    connect(&stop, &StopSignals::stopRequested, this,
            [this] { fail(QStringLiteral("stopped; nothing was written")); });
    const InputLines input;
    connect(&input, &InputLines::entered, this, &PressDialog::takeAnswer);
    tell(QStringLiteral("To repeat the last press, type r and Enter. To stop, press Ctrl-C.\n"));
    showPrompt();
    m_loop.exec();
    if (!m_problem.isEmpty())
        throw CommandError(m_problem);
    return m_presses;
}

void PressDialog::take(const QByteArray& bytes)
{
    if (m_press.bytes.isEmpty())
        m_press.milliseconds = m_line.elapsed();
    m_press.bytes += bytes;
    m_quiet.start();
}

void PressDialog::endPress()
{
    tell(QStringLiteral("   %1: %2\n")
             .arg(counted(m_press.bytes.size(), "byte"),
                  QString::fromLatin1(quotedBytes(m_press.bytes))));
    m_presses.append(m_press);
    m_press.bytes.clear();
    if (m_presses.size() == PressProtocol::maximumPresses)
        m_loop.quit();
    else
        showPrompt();
}

void PressDialog::takeAnswer(const QString& answer)
{
    if (m_quiet.isActive())
        return;
    if (answer == QLatin1String("r") && !m_presses.isEmpty())
        m_presses.removeLast();
    else if (answer.isEmpty() && m_presses.size() >= PressProtocol::minimumPresses)
        m_loop.quit();
    if (m_loop.isRunning())
        showPrompt();
}

void PressDialog::showPrompt() const
{
    const QString end = m_presses.size() >= PressProtocol::minimumPresses
                            ? QStringLiteral(" If there is no such button, press Enter.")
                            : QString();
    tell(QStringLiteral("%1. %2%3\n")
             .arg(QString::number(m_presses.size() + 1),
                  PressProtocol::promptOf(m_presses.size(), m_distance), end));
}

void PressDialog::fail(const QString& reason)
{
    m_problem = reason;
    m_loop.quit();
}

} // namespace ReferenceHost
