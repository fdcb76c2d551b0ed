// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QString>

/// Brings the folder "generated" in \a data, which it creates, up to date with the files in
/// \a shipped. Returns an empty text, or what could not be done.
///
/// A shipped file that is missing is copied. One that is there is replaced only when it still is,
/// byte for byte, what an earlier release installed: a file that a user has changed is never
/// touched, nor is one that this project did not ship. What was installed is recorded in
/// "shipped-descriptions.ini" beside the folder.
QString installShippedDescriptions(const QDir& shipped, const QDir& data);
