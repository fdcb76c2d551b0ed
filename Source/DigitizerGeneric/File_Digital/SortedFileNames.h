// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace MavSystem {

/// The names of the files of a directory, without hidden ones, sorted without regard to case.
///
/// They are kept in one text: a list of strings, filled while the directory is read, takes five
/// times the memory, and QDir's own sorting ten times.
class SortedFileNames
{
public:
    /// Reads the names in \a directory that match one of \a patterns, without regard to case; all
    /// of them without a pattern.
    SortedFileNames(const QString& directory, const QStringList& patterns);

    SortedFileNames(const SortedFileNames&) = delete;
    SortedFileNames& operator=(const SortedFileNames&) = delete;

    auto begin() const { return m_names.cbegin(); }
    auto end() const { return m_names.cend(); }

private:
    QString m_text;
    QVector<QStringRef> m_names; // of m_text
};

} // namespace MavSystem
