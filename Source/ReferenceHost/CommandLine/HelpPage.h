// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// The help of programs, made from the tables that also drive the parsing of their command lines.

struct HelpSection
{
    enum Level { Main, Sub };

    QString title;
    QStringList paragraphs;
    QVector<CommandArgument> entries; ///< terms and their explanations
    Level level = Main;
};

using HelpPage = QVector<HelpSection>;

/// Returns whether \a program has a single command without a name.
bool isSingle(const Program& program);

/// Returns how \a command is called: "digitizer capture", or only the program's name if the command
/// has no name.
QString callNameOf(const Program& program, const Command& command);

/// What "--help" shows of the whole program and of one command.
HelpPage programPage(const Program& program);
HelpPage commandPage(const Program& program, const Command& command);

/// Returns \a page for a terminal, in lines of at most 80 characters unless a word is longer.
QString textOf(const HelpPage& page);

/// Returns the program's manual page in roff, for section 1.
QString manualPageOf(const Program& program);

} // namespace ReferenceHost
