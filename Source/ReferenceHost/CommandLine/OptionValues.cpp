// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/OptionValues.h"

#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/NearestNames.h"

namespace ReferenceHost {

QString requiredValue(const QCommandLineParser& parser, const QString& option, const QString& hint)
{
    const QString value = parser.value(option);
    if (value.isEmpty())
        throw CommandError(QStringLiteral("--%1 is missing; %2").arg(option, hint), ExitUsage);
    return value;
}

int numberValue(const QCommandLineParser& parser, const QString& option, int minimum, int maximum,
                int absent)
{
    if (!parser.isSet(option))
        return absent;
    bool isNumber = false;
    const int number = parser.value(option).toInt(&isNumber);
    if (!isNumber || number < minimum || number > maximum)
        throw CommandError(QStringLiteral("--%1 is '%2', but must be a number from %3 to %4")
                               .arg(option, parser.value(option), QString::number(minimum),
                                    QString::number(maximum)),
                           ExitUsage);
    return number;
}

QString choiceValue(const QCommandLineParser& parser, const QString& option,
                    const QStringList& accepted)
{
    if (!parser.isSet(option))
        return accepted.constFirst();
    const QString value = parser.value(option);
    if (!accepted.contains(value))
        throw CommandError(QStringLiteral("--%1 is '%2', but must be one of %3%4")
                               .arg(option, value, accepted.join(QStringLiteral(", ")),
                                    suggestion(value, accepted)),
                           ExitUsage);
    return value;
}

QCommandLineOption listFormatOption()
{
    return {QStringLiteral("format"),
            QStringLiteral("Print text (default) or json with one object per line."),
            QStringLiteral("FORMAT")};
}

bool wantsJson(const QCommandLineParser& parser)
{
    const QStringList formats = {QStringLiteral("text"), QStringLiteral("json")};
    return choiceValue(parser, QStringLiteral("format"), formats) == formats.constLast();
}

} // namespace ReferenceHost
