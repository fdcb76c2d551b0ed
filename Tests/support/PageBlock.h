// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// A fenced block of a page.
struct PageBlock
{
    QString page;
    int line;         ///< of the opening fence
    QString language; ///< empty for plain text
    QString source;   ///< the comment on the line before the fence
    QStringList lines;

    QString place(int index = -1) const
    {
        return QStringLiteral("%1:%2").arg(page).arg(line + 1 + index);
    }
};
