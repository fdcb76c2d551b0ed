// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QTimer>

namespace ReferenceHost {

/// Tells the user on the error stream which bytes the driver passed over: one line at once, then at
/// most one line a second with the number of those that came since.
class PassedOverNotice
{
public:
    PassedOverNotice();

    /// Says what was not said yet.
    ~PassedOverNotice();

    void add(const QByteArray& bytes);

private:
    void sayMore();

    QTimer m_silence; // runs for a second after each line
    int m_more = 0;   // bytes since the last line
};

} // namespace ReferenceHost
