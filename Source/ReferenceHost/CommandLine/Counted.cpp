// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/Counted.h"

namespace ReferenceHost {

QString counted(qint64 number, const char* one, const char* many)
{
    const QString things = many ? QString::fromLatin1(many) : QLatin1String(one) + QLatin1Char('s');
    return QStringLiteral("%1 %2").arg(QString::number(number),
                                       number == 1 ? QString::fromLatin1(one) : things);
}

} // namespace ReferenceHost
