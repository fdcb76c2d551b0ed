// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/PressProtocol.h"

#include "ReferenceHost/CommandLine/Counted.h"

#include <algorithm>

namespace ReferenceHost {

namespace PressProtocol {

int buttonOf(int index)
{
    return std::max(1, index - Middle + 1);
}

QString promptOf(int index, std::optional<double> distance)
{
    const QString away = distance ? QStringLiteral("exactly %1 cm").arg(*distance)
                                  : QStringLiteral("as far as the table goes");
    switch (index) {
    case LowerLeft:
        return QStringLiteral(
            "Press button 1 near the lower left corner and mark that point on the tablet.");
    case Right:
        return QStringLiteral("Press button 1 %1 to the right of the mark, at the same height.")
            .arg(away);
    case Above:
        return QStringLiteral("Press button 1 %1 straight above the mark.").arg(away);
    case Middle:
        return QStringLiteral("Press button 1 near the middle and leave the cursor there.");
    default:
        return QStringLiteral("Without moving the cursor, press button %1.").arg(buttonOf(index));
    }
}

QVector<QByteArray> pressesOf(const QVector<RecordedSession::Chunk>& chunks)
{
    QVector<QByteArray> presses;
    qint64 last = 0;
    for (const RecordedSession::Chunk& chunk : chunks) {
        if (presses.isEmpty() || chunk.milliseconds - last >= pauseMilliseconds)
            presses.append(QByteArray());
        presses.last() += chunk.bytes;
        last = chunk.milliseconds;
    }
    return presses;
}

tl::expected<QVector<QByteArray>, QString> checked(const QVector<QByteArray>& presses)
{
    if (presses.size() >= minimumPresses && presses.size() <= maximumPresses)
        return presses;
    return tl::unexpected(
        QStringLiteral("found %1, separated by pauses of at least %2 milliseconds; expected %3 to "
                       "%4: button 1 at four points, then every other button once")
            .arg(counted(presses.size(), "press", "presses"))
            .arg(pauseMilliseconds)
            .arg(minimumPresses)
            .arg(maximumPresses));
}

} // namespace PressProtocol

} // namespace ReferenceHost
