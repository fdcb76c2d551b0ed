// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/PageBlock.h"

#include <QDir>
#include <QRegularExpression>

/// Reads a text file of the sources, such as "README.md"; nothing when it cannot be read.
inline QStringList sourceLines(const QString& name)
{
    QFile file(QStringLiteral(SOURCE_DIRECTORY "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (lines.constLast().isEmpty())
        lines.removeLast();
    return lines;
}

/// Returns the names of the pages whose code is compared.
inline QStringList pages()
{
    QStringList names = {QStringLiteral("README.md")};
    for (const QString& name : QDir(QStringLiteral(SOURCE_DIRECTORY "/Documentation"))
                                   .entryList({QStringLiteral("*.md")}))
        names.append(QStringLiteral("Documentation/") + name);
    return names;
}

/// Returns the blocks of a page in their order.
inline QVector<PageBlock> blocksOf(const QString& page)
{
    static const QRegularExpression comment(QStringLiteral("^<!-- (.*) -->$"));
    QVector<PageBlock> blocks;
    QString source;
    bool inside = false;
    int number = 0;
    for (const QString& line : sourceLines(page)) {
        ++number;
        const bool fence = line.startsWith(QLatin1String("```"));
        if (fence && !inside)
            blocks.append({page, number, line.mid(3), source, {}});
        else if (inside && !fence)
            blocks.last().lines.append(line);
        else if (!inside && line.startsWith(QLatin1String("    ")))
            blocks.append({page, number - 1, QStringLiteral("indented code"), source, {line}});
        inside = fence != inside;
        source = comment.match(line).captured(1);
    }
    return blocks;
}
