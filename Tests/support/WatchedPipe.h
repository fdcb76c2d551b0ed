// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

#include <atomic>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// A named pipe that tells whether anybody has opened it for reading, in whichever process. Who
/// waits for its writer is let go, so that a fault fails a test and does not hang it.
class WatchedPipe
{
public:
    explicit WatchedPipe(const QString& path) : m_path(QFile::encodeName(path))
    {
        m_exists = mkfifo(m_path.constData(), 0666) == 0;
        m_watcher = std::thread([this] { watch(); });
    }

    ~WatchedPipe()
    {
        m_stopped = true;
        m_watcher.join();
    }

    bool exists() const { return m_exists; }
    bool wasOpened() const { return m_wasOpened; }

private:
    void watch()
    {
        while (!m_stopped) {
            const int writer = open(m_path.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
            m_wasOpened = m_wasOpened || writer >= 0; // without a reader the open fails
            if (writer >= 0)
                close(writer);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    QByteArray m_path;
    bool m_exists = false;
    std::atomic_bool m_stopped = false;
    std::atomic_bool m_wasOpened = false;
    std::thread m_watcher;
};
