// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/PrivateNames.h"

#include <QDir>
#include <QRegularExpression>
#include <QSysInfo>

#include <pwd.h>
#include <unistd.h>

namespace ReferenceHost {

namespace {

QString replaceWord(QString text, const QString& word, const QString& replacement)
{
    if (word.isEmpty())
        return text;
    const QRegularExpression whole(
        QStringLiteral("(?<![\\w])%1(?![\\w])").arg(QRegularExpression::escape(word)),
        QRegularExpression::UseUnicodePropertiesOption);
    return text.replace(whole, replacement);
}

} // namespace

PrivateNames ownPrivateNames()
{
    const passwd* const entry = getpwuid(geteuid());
    return {QDir::homePath(), entry ? QString::fromLocal8Bit(entry->pw_name) : QString(),
            QSysInfo::machineHostName()};
}

QString withoutPrivateNames(const QString& text, const PrivateNames& names)
{
    const QString withoutHome = replaceWord(text, names.home, QStringLiteral("~"));
    const QString withoutUser = replaceWord(withoutHome, names.user, QStringLiteral("USER"));
    return replaceWord(withoutUser, names.host, QStringLiteral("HOST"));
}

} // namespace ReferenceHost
