// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/StopSignals.h"

#include <QSocketNotifier>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace ReferenceHost {

namespace {

constexpr int stopSignals[] = {SIGINT, SIGTERM, SIGHUP};

// A signal handler may do nothing but write to a descriptor; the event loop reads the other end.
int s_pipe[2] = {-1, -1};

void wakeEventLoop(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(s_pipe[1], &byte, 1);
}

void install(int number, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}

} // namespace

StopSignals::StopSignals()
{
    if (pipe2(s_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("cannot create a pipe for signals");
    m_notifier = new QSocketNotifier(s_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &StopSignals::drain);
    for (const int number : stopSignals)
        install(number, wakeEventLoop);
    install(SIGPIPE, SIG_IGN);
}

StopSignals::~StopSignals()
{
    for (const int number : stopSignals)
        install(number, SIG_DFL);
    install(SIGPIPE, SIG_DFL);
    m_notifier->setEnabled(false);
    close(s_pipe[0]);
    close(s_pipe[1]);
}

void StopSignals::drain()
{
    char bytes[64];
    while (read(s_pipe[0], bytes, sizeof bytes) > 0) {
    }
    emit stopRequested();
}

} // namespace ReferenceHost
