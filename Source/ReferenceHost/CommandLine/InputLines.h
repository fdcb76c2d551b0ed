// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace ReferenceHost {

/// Reads the lines that the user types without blocking the event loop. Emits nothing after the end
/// of the input.
class InputLines : public QObject
{
    Q_OBJECT

public:
    InputLines();

signals:
    void entered(const QString& line);

private:
    void take();

    QSocketNotifier m_notifier;
    QByteArray m_rest;
};

} // namespace ReferenceHost
