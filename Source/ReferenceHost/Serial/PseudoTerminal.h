// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>

namespace ReferenceHost {

/// A pair of connected terminals. What is written here arrives at the port that path() names.
///
/// The port is raw from the start (no echo, no line editing) and exists even while no program has
/// it open. Linux only.
class PseudoTerminal
{
public:
    /// Opens the pair. isOpen() says whether that worked, errorString() why not.
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    bool isOpen() const { return m_master >= 0; }
    QString errorString() const { return m_error; }

    /// Returns the path of the port to open, such as "/dev/pts/3".
    QString path() const { return m_path; }

    /// Returns the descriptor of this end for a socket notifier. It must not be closed.
    int descriptor() const { return m_master; }

    /// Returns the descriptor for a socket notifier that tells when a program opens, closes or
    /// reads the port. The calls below take the notifications. It must not be closed.
    int usesDescriptor() const { return m_uses; }

    /// Waits up to \a timeoutMilliseconds for a program to open the port. Returns whether one has
    /// it open.
    bool waitForOpen(int timeoutMilliseconds);

    /// Writes all of \a bytes and returns whether that worked. Waits while the terminal's buffer is
    /// full.
    bool write(const QByteArray& bytes);

    /// Writes as many of \a bytes as fit into the terminal's buffer. If it is full, waits up to \a
    /// timeoutMilliseconds for room, or for ever with -1. Returns the number of bytes written, 0 if
    /// there was no room or a signal came, or -1 with errno if the terminal failed.
    int writeSome(const QByteArray& bytes, int timeoutMilliseconds);

    /// Returns what arrived from the port. Waits up to \a timeoutMilliseconds for the first byte.
    QByteArray read(int timeoutMilliseconds = 0);

    /// Returns whether the program at the port has read everything in the port's queue. Bytes
    /// written a moment ago may not have reached the queue yet.
    bool drained() const;

    /// Bytes of a write that have not reached the port's queue after that time have been discarded.
    /// Far longer than bytes take to arrive.
    static constexpr int discardMilliseconds = 100;

    /// Returns whether the program at the port has taken the last write: it has read since then and
    /// nothing is waiting, or it has discarded the input. This also holds under load, when bytes
    /// take long to arrive.
    bool taken();

    /// Hangs up as a pulled cable does. The port's path disappears.
    void hangUp();

private:
    void takeUses();

    int m_master = -1;
    int m_port = -1;       // kept open, so that the port outlives the program at it
    int m_uses = -1;       // notifies when the port is opened, read or closed
    int m_users = 0;       // programs that have it open
    bool m_wasRead = true; // since the last write
    QElapsedTimer m_sinceWrite;
    QString m_path;
    QString m_error;
};

} // namespace ReferenceHost
