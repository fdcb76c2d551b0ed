// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/File_Digital/PenFileStamp.h"
#include "DigitizerGeneric/File_Digital/PenLineReader.h"

#include <QFile>
#include <QString>

#include <string>

namespace MavSystem {

/// The pen file that is being imported: its lines, and its new name when it has been read.
class OpenPenFile
{
public:
    /// \a file is not owned.
    explicit OpenPenFile(QFile& file);

    /// Opens the regular file named \a path; returns false if that is not possible. With
    /// \a remembered, replaced() can tell later whether the name still belongs to it.
    bool open(const QString& path, bool remembered);

    /// Replaces \a line as PenLineReader::next() does.
    bool nextLine(std::string& line) { return m_reader.next(line); }

    /// Returns whether the name of a remembered file now belongs to another file.
    bool replaced() const;

    /// Closes the file and gives it the extension ".txt", unless that name is taken or the file's
    /// own name now belongs to another file.
    void closeAndRename();

private:
    QFile& m_file;
    PenLineReader m_reader;
    QString m_path;
    PenFileStamp m_stamp; // when it was opened, if it is remembered
};

} // namespace MavSystem
