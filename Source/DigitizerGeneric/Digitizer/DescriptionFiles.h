// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDir>
#include <QDomDocument>
#include <QFileInfoList>
#include <QString>
#include <QVector>

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
    QByteArray bytes;   ///< one more than a description may have when the file is too large
    QString unreadable; ///< why there are none; or empty

    /// Returns why this is no description, a sentence with the path; or an empty text.
    QString problem() const;
};

/// Reads the file \a path as far as a description may go. Never blocks.
Content contentOf(const QString& path);

/// A description file as a document.
struct Loaded
{
    QString path;
    QDomDocument document; ///< null when there is a problem
    QString problem; ///< why it cannot be read or is not well-formed, a sentence with the path
};

/// Parses \a content.
Loaded parse(const Content& content);

/// Reads and parses the file \a path.
Loaded load(const QString& path);

/// Loads all files of the installed folder, broken ones included, in its own order.
QVector<Loaded> all();

/// Returns the driver's name in a document; empty when there is none.
QString nameOf(const QDomDocument& document);

/// Returns the absolute path of the folder for installed descriptions.
QString installedPath();

/// Returns that folder, without filters, or nothing when there is none.
std::optional<QDir> installedFolder();

/// Returns the folder in which a host ships descriptions, without filters; it need not exist.
QDir folderOfHost();

/// Returns the folder inside the library with the descriptions that it ships.
QDir folderOfLibrary();

/// Returns the plain, not hidden files of \a folder in the order of the directory itself, whatever
/// its filters.
QFileInfoList candidates(const QDir& folder);

/// Returns the first installed file whose root element's "name" equals \a driverName exactly. The
/// match may be a broken file without a name.
std::optional<Loaded> find(const QString& driverName, BrokenFile brokenFile);

} // namespace MavSystem::DescriptionFiles
