// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QString>

#include <vector>

namespace MavSystem {

class DigipenFileDigitalization;

/// The order of imports in the process: one runs, the others wait.
///
/// The pen states are shared by the process and a file must not be read twice, so two imports
/// never overlap, not even those of two importers.
class ImportTurns
{
public:
    struct Turn
    {
        QPointer<DigipenFileDigitalization> importer;
        QString path;
    };

    static ImportTurns& instance();

    bool running() const { return m_running; }
    void setRunning(bool running) { m_running = running; }

    /// Queues an import; equal ones are one, since each lists the directory anew.
    void defer(DigipenFileDigitalization* importer, const QString& path);

    /// Drops what \a importer waits for.
    void forget(const DigipenFileDigitalization* importer);

    /// Takes the first waiting turn whose importer is still there; a null importer when none is.
    Turn takeNext();

private:
    bool m_running = false;
    std::vector<Turn> m_waiting;
};

} // namespace MavSystem
