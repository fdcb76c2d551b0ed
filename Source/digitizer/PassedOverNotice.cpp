// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/PassedOverNotice.h"

#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/Counted.h"
#include "ReferenceHost/Serial/RecordedSession.h"

#include <utility>

namespace ReferenceHost {

namespace {

constexpr int silenceMilliseconds = 1000;
constexpr int bytesShown = 40; // as many as fit on a line of a terminal

} // namespace

PassedOverNotice::PassedOverNotice()
{
    m_silence.setSingleShot(true);
    m_silence.setInterval(silenceMilliseconds);
    QObject::connect(&m_silence, &QTimer::timeout, [this] { sayMore(); });
}

PassedOverNotice::~PassedOverNotice()
{
    sayMore();
}

void PassedOverNotice::add(const QByteArray& bytes)
{
    if (m_silence.isActive()) {
        m_more += bytes.size();
        return;
    }
    const bool all = bytes.size() <= bytesShown;
    printError(QStringLiteral("passed over %1%2, which is not a report; if a point is missing, "
                              "press the button again; 'digitizer monitor' shows what arrives")
                   .arg(QString::fromLatin1(quotedBytes(bytes.left(bytesShown))),
                        QLatin1String(all ? "" : "...")));
    m_silence.start();
}

void PassedOverNotice::sayMore()
{
    const int more = std::exchange(m_more, 0);
    if (more == 0)
        return;
    printError(
        QStringLiteral("%1 passed over").arg(counted(more, "more byte was", "more bytes were")));
    m_silence.start();
}

} // namespace ReferenceHost
