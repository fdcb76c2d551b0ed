// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace ReferenceHost {

/// Returns the names that someone who typed \a typed probably meant: at most three, the nearest
/// first, without regard to letter case, blanks and punctuation. A part of a long name is near to
/// it: "bitpad" to "Bit Pad Two (CR)". Empty when nothing is near.
QStringList nearestNames(const QString& typed, const QStringList& names);

/// Returns "; did you mean A or B?" for those names, or nothing; made to end an error message.
QString suggestion(const QString& typed, const QStringList& names);

} // namespace ReferenceHost
