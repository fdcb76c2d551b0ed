// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/InputLines.h"

#include <unistd.h>

namespace ReferenceHost {

InputLines::InputLines() : m_notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &InputLines::take);
}

void InputLines::take()
{
    char bytes[256];
    const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0) {
        m_notifier.setEnabled(false);
        return;
    }
    m_rest += QByteArray(bytes, int(count));
    for (int end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        const QString line = QString::fromLocal8Bit(m_rest.left(end)).trimmed();
        m_rest.remove(0, end + 1);
        emit entered(line);
    }
}

} // namespace ReferenceHost
