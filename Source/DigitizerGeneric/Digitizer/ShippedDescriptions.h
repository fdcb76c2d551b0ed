// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace MavSystem {

/// A description that came with the library or the host.
struct ShippedDescription
{
    QString name; ///< of the file
    QByteArray content;
};

/// Returns the descriptions in the host's plug-in directory, or, if there are none, those inside
/// this library.
QVector<ShippedDescription> shippedDescriptions();

/// Updates the folder \a folder with \a shipped, as DescriptionFolder::prepare() promises, and
/// keeps the record next to it. Returns an empty text, or what could not be done.
QString installShippedDescriptions(const QVector<ShippedDescription>& shipped,
                                   const QString& folder);

/// Writes \a content to the description \a path and creates its folder if it is missing. Returns an
/// empty text, or what could not be done.
QString writeDescription(const QString& path, const QByteArray& content);

} // namespace MavSystem
