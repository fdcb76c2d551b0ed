// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/WatcherReads.h"

#include <QFileSystemWatcher>
#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#endif

namespace MavSystem {

#ifdef Q_OS_UNIX

// Qt offers no way to its descriptor but the notifier on it.
void neverWaitForChanges(const QFileSystemWatcher& watcher)
{
    for (const QSocketNotifier* const notifier : watcher.findChildren<QSocketNotifier*>()) {
        const int descriptor = int(notifier->socket());
        const int flags = ::fcntl(descriptor, F_GETFL);
        if (flags >= 0)
            ::fcntl(descriptor, F_SETFL, flags | O_NONBLOCK);
    }
}

#else

void neverWaitForChanges(const QFileSystemWatcher& /*watcher*/) {}

#endif

} // namespace MavSystem
