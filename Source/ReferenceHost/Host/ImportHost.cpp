// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Host/ImportHost.h"

#include "ReferenceHost/CommandLine/Console.h"

#include <QFile>
#include <QStringList>

#include <cstdio>
#include <unistd.h>

namespace ReferenceHost {

namespace {

// Returns the choice that was typed, or -1. A mistyped letter must not delete anything.
int typedChoice(const QString& typed, const QStringList& choices)
{
    for (int index = 0; index < choices.size(); ++index) {
        const bool whole = typed.compare(choices.at(index), Qt::CaseInsensitive) == 0;
        const bool begun = !typed.isEmpty() && index != ImportHost::Delete &&
                           choices.at(index).startsWith(typed, Qt::CaseInsensitive);
        if (whole || begun)
            return index;
    }
    return -1;
}

int askAtTerminal(const QStringList& choices)
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return ImportHost::Cancel;
    for (;;) {
        std::fprintf(stderr, "%s? ", qUtf8Printable(choices.join(QStringLiteral(", "))));
        const QByteArray line = input.readLine();
        const int choice = typedChoice(QString::fromLocal8Bit(line).trimmed(), choices);
        if (choice >= 0)
            return choice;
        if (line.isEmpty())
            return ImportHost::Cancel;
    }
}

} // namespace

ImportHost::ImportHost(std::optional<int> answer)
    : m_previous(MavApplication::instance()), m_answer(answer)
{
    setInstance(this);
}

ImportHost::~ImportHost()
{
    setInstance(m_previous);
}

QDir ImportHost::pluginsDir() const
{
    return m_previous->pluginsDir();
}

QDir ImportHost::appDataLocation() const
{
    return m_previous->appDataLocation();
}

void ImportHost::displayWarning(const QString& text, const QString& details, QWidget* parent) const
{
    m_previous->displayWarning(text, details, parent);
}

void ImportHost::displayError(const QString& text, const QString& details, QWidget* parent) const
{
    m_previous->displayError(text, details, parent);
}

int ImportHost::confirmContinue(const QString& text, const QString& /*title*/, const QString& first,
                                const QString& second, const QString& third,
                                QWidget* /*parent*/) const
{
    if (m_answer) {
        m_answered = m_answer;
    } else if (isatty(STDIN_FILENO)) {
        printError(text);
        m_answered = askAtTerminal({first, second, third});
    } else {
        printError(
            QStringLiteral("%1 There is no terminal and no --answer, so they are left alone.")
                .arg(text));
        m_answered = Cancel;
    }
    return *m_answered;
}

} // namespace ReferenceHost
