// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/PseudoTerminal.h"

#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace ReferenceHost {

namespace {

void makeRaw(int port)
{
    termios settings;
    if (tcgetattr(port, &settings) == 0) {
        cfmakeraw(&settings);
        tcsetattr(port, TCSANOW, &settings);
    }
}

} // namespace

PseudoTerminal::PseudoTerminal()
{
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    char path[128];
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0 ||
        ptsname_r(m_master, path, sizeof path) != 0 ||
        (m_port = open(path, O_RDWR | O_NOCTTY | O_CLOEXEC)) < 0 ||
        (m_uses = inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) < 0 ||
        inotify_add_watch(m_uses, path, IN_OPEN | IN_ACCESS | IN_CLOSE) < 0) {
        m_error = QString::fromLocal8Bit(std::strerror(errno));
        hangUp();
        return;
    }
    m_path = QFile::decodeName(path);
    makeRaw(m_port);
}

PseudoTerminal::~PseudoTerminal()
{
    hangUp();
}

bool PseudoTerminal::waitForOpen(int timeoutMilliseconds)
{
    pollfd state = {m_uses, POLLIN, 0};
    poll(&state, 1, m_users > 0 ? 0 : timeoutMilliseconds);
    takeUses();
    return m_users > 0;
}

bool PseudoTerminal::write(const QByteArray& bytes)
{
    for (int done = 0; done < bytes.size();) {
        const int written = writeSome(bytes.mid(done), -1);
        if (written < 0)
            return false;
        done += written;
    }
    return true;
}

int PseudoTerminal::writeSome(const QByteArray& bytes, int timeoutMilliseconds)
{
    takeUses();
    m_wasRead = false;
    m_sinceWrite.start();
    ssize_t written = ::write(m_master, bytes.constData(), size_t(bytes.size()));
    if (written < 0 && errno == EAGAIN) {
        pollfd state = {m_master, POLLOUT, 0};
        if (poll(&state, 1, timeoutMilliseconds) <= 0)
            return 0;
        written = ::write(m_master, bytes.constData(), size_t(bytes.size()));
    }
    return written < 0 && errno == EAGAIN ? 0 : int(written);
}

QByteArray PseudoTerminal::read(int timeoutMilliseconds)
{
    pollfd state = {m_master, POLLIN, 0};
    if (poll(&state, 1, timeoutMilliseconds) <= 0)
        return {};
    char bytes[4096];
    const ssize_t size = ::read(m_master, bytes, sizeof bytes);
    return size > 0 ? QByteArray(bytes, int(size)) : QByteArray();
}

bool PseudoTerminal::drained() const
{
    int waiting = 0;
    return ioctl(m_port, FIONREAD, &waiting) != 0 || waiting == 0;
}

bool PseudoTerminal::taken()
{
    takeUses();
    return drained() && (m_wasRead || m_sinceWrite.hasExpired(discardMilliseconds));
}

void PseudoTerminal::takeUses()
{
    // The events have no names, since a device is watched and not a directory.
    alignas(inotify_event) char bytes[16 * sizeof(inotify_event)];
    const auto* const events = reinterpret_cast<const inotify_event*>(bytes);
    ssize_t size;
    while ((size = ::read(m_uses, bytes, sizeof bytes)) > 0) {
        for (const inotify_event* event = events; event < events + size / ssize_t(sizeof *event);
             ++event) {
            m_wasRead = m_wasRead || (event->mask & IN_ACCESS);
            if (event->mask & IN_OPEN)
                ++m_users;
            else if (event->mask & IN_CLOSE && m_users > 0)
                --m_users;
        }
    }
}

void PseudoTerminal::hangUp()
{
    for (int* descriptor : {&m_uses, &m_port, &m_master}) {
        if (*descriptor >= 0)
            close(*descriptor);
        *descriptor = -1;
    }
}

} // namespace ReferenceHost
