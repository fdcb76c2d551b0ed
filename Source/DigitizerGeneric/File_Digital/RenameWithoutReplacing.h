// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace MavSystem {

/// Gives the file \a from the name \a to in the same file system, unless that name is taken, be it
/// by a link that leads nowhere. Returns an empty text, or why the file keeps its name; nothing has
/// then been changed, not even for a moment.
///
/// A file that takes the name meanwhile is not replaced either. That is not promised where the file
/// system cannot rename in this way, as some network file systems: there the name is looked at
/// first, and what takes it between that look and the rename is replaced.
QString renameWithoutReplacing(const QString& from, const QString& to);

} // namespace MavSystem
