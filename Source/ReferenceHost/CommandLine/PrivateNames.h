// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ReferenceHost {

/// Names that do not belong in a text that is sent to strangers. An empty one is not looked for.
struct PrivateNames
{
    QString home; ///< path of the home folder
    QString user;
    QString host;
};

/// Returns the names of whoever runs this program, and where.
PrivateNames ownPrivateNames();

/// Returns \a text with the home folder as "~", the user as "USER" and the machine as "HOST",
/// wherever these stand as whole words.
QString withoutPrivateNames(const QString& text, const PrivateNames& names);

} // namespace ReferenceHost
