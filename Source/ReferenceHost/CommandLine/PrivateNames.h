// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ReferenceHost {

/// Names to leave out of a text that is sent to strangers. Empty ones are ignored.
struct PrivateNames
{
    QString home; ///< path of the home folder
    QString user;
    QString host;
};

/// Returns the names of the user and the machine that run this program.
PrivateNames ownPrivateNames();

/// Returns \a text with "~" for the home folder, "USER" for the user and "HOST" for the machine,
/// wherever these are whole words.
QString withoutPrivateNames(const QString& text, const PrivateNames& names);

} // namespace ReferenceHost
