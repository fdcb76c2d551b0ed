// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>

namespace ReferenceHost {

/// A pair of connected terminals: what is written here arrives at the port that path() names.
///
/// The port is raw from the start (no echo, no line editing) and stays usable while nobody has it
/// open. Linux only.
class PseudoTerminal
{
public:
    /// Opens the pair; isOpen() tells whether that worked, errorString() why not.
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    bool isOpen() const { return m_master >= 0; }
    QString errorString() const { return m_error; }

    /// Returns the path of the port to open, such as "/dev/pts/3".
    QString path() const { return m_path; }

    /// Returns the descriptor of this end, for a socket notifier; not to be closed.
    int descriptor() const { return m_master; }

    /// Waits up to \a timeoutMilliseconds for a program to open the port; returns whether one has
    /// it open.
    bool waitForOpen(int timeoutMilliseconds);

    /// Writes all of \a bytes, at once if the line takes them, and returns whether that worked.
    /// Waits while the line is full.
    bool write(const QByteArray& bytes);

    /// Writes as many of \a bytes as the line takes at once; waits up to \a timeoutMilliseconds, or
    /// for ever with -1, until it takes any. Returns their number, 0 when it takes none or a signal
    /// came, or -1 with errno when the line has failed.
    int writeSome(const QByteArray& bytes, int timeoutMilliseconds);

    /// Returns what arrived from the port; waits up to \a timeoutMilliseconds for the first byte.
    QByteArray read(int timeoutMilliseconds = 0);

    /// Returns whether the port's program has read all that the system has handed to the port.
    /// Bytes written a moment ago may not have reached the port's queue yet and are then not
    /// counted.
    bool drained() const;

    /// Returns whether the port's program has taken the last write: it has read since then and
    /// nothing waits, or it has discarded what came. This holds under load too, when bytes are on
    /// their way for long.
    bool taken();

    /// Ends the line as a pulled cable does; the port's path goes away.
    void hangUp();

private:
    void takeUses();

    int m_master = -1;
    int m_port = -1;       // kept open, so that the port outlives the program that has it open
    int m_uses = -1;       // announces that the port is opened, read and closed
    int m_users = 0;       // programs that have it open
    bool m_wasRead = true; // since the last write
    QElapsedTimer m_sinceWrite;
    QString m_path;
    QString m_error;
};

} // namespace ReferenceHost
