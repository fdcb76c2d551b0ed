// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDir>
#include <QDomDocument>
#include <QFileInfoList>
#include <QString>

#include <optional>

/// The description files that are installed: found and parsed here and nowhere else.
namespace MavSystem::DescriptionFiles {

/// What a search does with a file that cannot be opened or is not well-formed.
enum class BrokenFile {
    Skipped, ///< it matches no driver name
    Unnamed, ///< it matches the empty driver name, as a file without a name does
};

/// The content of a file from outside.
struct Content
{
    QString path;
    QByteArray bytes;
    QString problem; ///< why there are none, a sentence with the path; or empty
};

/// Reads the file \a path, unless it is larger than a description may be. Never blocks.
Content contentOf(const QString& path);

/// A description file as a document.
struct Parsed
{
    QDomDocument document; ///< null when there is a problem
    QString problem;       ///< why it is not well-formed, a sentence with the path; or empty
};

/// Parses \a content, and returns its problem if it could not be read.
Parsed parse(const Content& content);

/// Returns the driver's name in a document; empty when there is none.
QString nameOf(const QDomDocument& document);

/// A description that was found.
struct Found
{
    QString path;
    QDomDocument document; ///< null when the match is a broken file without a name
};

/// Returns the absolute path of the folder for installed descriptions.
QString installedPath();

/// Returns that folder, without filters, or nothing when there is none.
std::optional<QDir> installedFolder();

/// Returns the folder in which a host ships descriptions, without filters; it need not exist.
QDir folderOfHost();

/// Returns the plain, not hidden files of \a folder in the order of the directory itself, whatever
/// its filters.
QFileInfoList candidates(const QDir& folder);

/// Returns the first installed file whose root element's "name" equals \a driverName exactly.
std::optional<Found> find(const QString& driverName, BrokenFile brokenFile);

} // namespace MavSystem::DescriptionFiles
