// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Serial/RecordedSession.h"
#include "ReferenceHost/Serial/SerialLine.h"

#include <QEventLoop>
#include <QTimer>

#include <optional>

namespace ReferenceHost {

/// Asks the user at the terminal for the presses of the protocol, one at a time.
class PressDialog : public QObject
{
    Q_OBJECT

public:
    /// \a distance is that of PressProtocol::promptOf(), in centimetres.
    PressDialog(SerialLine& line, std::optional<double> distance);

    /// Returns what arrived, one chunk for each press, when the user says that there are no more
    /// buttons. Throws a CommandError if the user stops or the port is lost.
    QVector<RecordedSession::Chunk> ask();

private:
    void take(const QByteArray& bytes);
    void takeAnswer(const QString& answer);
    void endPress();
    void showPrompt() const;
    void fail(const QString& reason);

    SerialLine& m_line;
    std::optional<double> m_distance;
    QEventLoop m_loop;
    QTimer m_quiet;
    RecordedSession::Chunk m_press = {0, {}};
    QVector<RecordedSession::Chunk> m_presses;
    QString m_problem;
};

} // namespace ReferenceHost
