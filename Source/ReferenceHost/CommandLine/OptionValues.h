// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

namespace ReferenceHost {

/// Checked values of options. Each function throws a CommandError with ExitUsage that names the
/// option, the value given, and what is accepted.

/// Returns the value of an option that must be given; \a hint says where to find one.
QString requiredValue(const QCommandLineParser& parser, const QString& option, const QString& hint);

/// Returns the number given, or \a absent without the option. Decimal digits only.
int numberValue(const QCommandLineParser& parser, const QString& option, int minimum, int maximum,
                int absent);

/// Returns the option "--format" of a list: text, or json with one object per line.
QCommandLineOption listFormatOption();

/// Returns whether listFormatOption() was given as json.
bool wantsJson(const QCommandLineParser& parser);

/// Returns the value given, which must be one of \a accepted, or the first of these without the
/// option.
QString choiceValue(const QCommandLineParser& parser, const QString& option,
                    const QStringList& accepted);

} // namespace ReferenceHost
