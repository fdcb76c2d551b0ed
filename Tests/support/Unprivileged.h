// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <unistd.h>

/// Makes root an ordinary user while it lives: rights mean nothing to root.
class Unprivileged
{
public:
    explicit Unprivileged(bool wanted = true)
    {
        m_changed = wanted && geteuid() == 0 && seteuid(65534) == 0;
    }
    ~Unprivileged()
    {
        if (m_changed && seteuid(0) != 0)
            qFatal("cannot become root again");
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

private:
    bool m_changed = false;
};
