// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/SortedFileNames.h"

#include <QDirIterator>

#include <algorithm>

namespace MavSystem {

SortedFileNames::SortedFileNames(const QString& directory, const QStringList& patterns)
{
    for (QDirIterator files(directory, patterns, QDir::Files); files.hasNext();) {
        files.next();
        m_text += files.fileName() + QLatin1Char('/');
    }
    m_names = m_text.splitRef(QLatin1Char('/'), Qt::SkipEmptyParts);
    std::sort(m_names.begin(), m_names.end(), [](const QStringRef& left, const QStringRef& right) {
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left < right;
    });
}

} // namespace MavSystem
