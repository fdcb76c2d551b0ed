// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/ImportTurns.h"

#include "DigitizerGeneric/File_Digital/DigipenFileDigitalization.h"

#include <algorithm>

namespace MavSystem {

ImportTurns& ImportTurns::instance()
{
    // Never destroyed: the driver, which is older, releases its importer when the process ends.
    static ImportTurns& turns = *new ImportTurns;
    return turns;
}

void ImportTurns::defer(DigipenFileDigitalization* importer, const QString& path)
{
    const bool waiting = std::any_of(m_waiting.begin(), m_waiting.end(), [&](const Turn& turn) {
        return turn.importer == importer && turn.path == path;
    });
    if (!waiting)
        m_waiting.push_back({importer, path});
}

void ImportTurns::forget(const DigipenFileDigitalization* importer)
{
    m_waiting.erase(std::remove_if(m_waiting.begin(), m_waiting.end(),
                                   [&](const Turn& turn) { return turn.importer == importer; }),
                    m_waiting.end());
}

ImportTurns::Turn ImportTurns::takeNext()
{
    while (!m_waiting.empty()) {
        const Turn turn = m_waiting.front();
        m_waiting.erase(m_waiting.begin());
        if (turn.importer)
            return turn;
    }
    return {};
}

} // namespace MavSystem
