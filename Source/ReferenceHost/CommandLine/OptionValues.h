// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

namespace ReferenceHost {

/// Values of options, checked. Each function throws a CommandError with ExitUsage that names the
/// option, what was given, and what is accepted.

/// Returns the value of an option that must be given; \a hint says where to find one.
QString requiredValue(const QCommandLineParser& parser, const QString& option, const QString& hint);

/// Returns the number given, or \a absent when the option is not. Decimal digits only.
int numberValue(const QCommandLineParser& parser, const QString& option, int minimum, int maximum,
                int absent);

/// Returns the option "--format" of a list: text, or json with one object a line.
QCommandLineOption listFormatOption();

/// Returns whether listFormatOption() was given as json.
bool wantsJson(const QCommandLineParser& parser);

/// Returns the value given when it is one of \a accepted, or the first of these when the option is
/// not given.
QString choiceValue(const QCommandLineParser& parser, const QString& option,
                    const QStringList& accepted);

} // namespace ReferenceHost
