// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/PseudoTerminal.h"

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
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    char path[128];
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0 ||
        ptsname_r(m_master, path, sizeof path) != 0 ||
        (m_port = open(path, O_RDWR | O_NOCTTY | O_CLOEXEC)) < 0) {
        m_error = QString::fromLocal8Bit(std::strerror(errno));
        hangUp();
        return;
    }
    m_path = QFile::decodeName(path);
    makeRaw(m_port);
    m_openings = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    inotify_add_watch(m_openings, path, IN_OPEN);
}

PseudoTerminal::~PseudoTerminal()
{
    hangUp();
}

bool PseudoTerminal::waitForOpen(int timeoutMilliseconds)
{
    pollfd state = {m_openings, POLLIN, 0};
    return poll(&state, 1, timeoutMilliseconds) > 0;
}

bool PseudoTerminal::write(const QByteArray& bytes)
{
    return ::write(m_master, bytes.constData(), size_t(bytes.size())) == bytes.size();
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

void PseudoTerminal::hangUp()
{
    for (int* descriptor : {&m_openings, &m_port, &m_master}) {
        if (*descriptor >= 0)
            close(*descriptor);
        *descriptor = -1;
    }
}
