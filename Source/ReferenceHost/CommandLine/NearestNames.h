// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace ReferenceHost {

/// Returns the names that the user probably meant by \a typed: at most three, the nearest first.
/// Letter case, blanks and punctuation are ignored. Part of a long name is enough: "bitpad" finds
/// "Bit Pad Two (CR)". Returns an empty list if nothing is near.
QStringList nearestNames(const QString& typed, const QStringList& names);

/// Returns "; did you mean A or B?" for those names, to end an error message; empty if there are
/// none.
QString suggestion(const QString& typed, const QStringList& names);

} // namespace ReferenceHost
