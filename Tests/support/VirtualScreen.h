// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>

/// A screen without a monitor, for programs with windows.
class VirtualScreen
{
public:
    VirtualScreen()
    {
        // The number of the display is printed when it takes connections.
        m_server.start(QStringLiteral("Xvfb"),
                       {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-ac"),
                        QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        if (m_server.waitForReadyRead(patience))
            m_display = QLatin1Char(':') + QString::fromLatin1(m_server.readAll().trimmed());
    }

    ~VirtualScreen()
    {
        m_server.terminate();
        m_server.waitForFinished(patience);
    }

    /// Returns the name of the display; empty when there is none.
    QString display() const { return m_display; }

private:
    static constexpr int patience = 20000; // milliseconds

    QProcess m_server;
    QString m_display;
};
