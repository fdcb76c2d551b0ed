// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QTimer>

namespace ReferenceHost {

/// Shows on standard error which bytes the driver passed over: one line immediately, then at most
/// one line per second with the number of bytes since.
class PassedOverNotice
{
public:
    PassedOverNotice();

    /// Prints what has not been printed yet.
    ~PassedOverNotice();

    void add(const QByteArray& bytes);

private:
    void sayMore();

    QTimer m_silence; // runs for a second after each line
    int m_more = 0;   // bytes since the last line
};

} // namespace ReferenceHost
