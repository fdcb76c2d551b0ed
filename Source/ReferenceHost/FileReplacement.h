// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Makes \a content the content of the file \a path, which need not exist: whole, or the file stays
/// as it was. Returns an empty text, or why it stays.
QString replaceFile(const QString& path, const QByteArray& content);
