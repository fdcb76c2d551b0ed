// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/OpenPenFile.h"

#include "DigitizerGeneric/Digitizer/Diagnostics.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "DigitizerGeneric/File_Digital/RenameWithoutReplacing.h"

namespace MavSystem {

OpenPenFile::OpenPenFile(QFile& file) : m_file(file), m_reader(file) {}

bool OpenPenFile::open(const QString& path, bool remembered)
{
    m_path = path;
    m_stamp = {};
    m_file.setFileName(path);
    const QString problem = openRegularFile(m_file, QIODevice::Unbuffered);
    if (!problem.isEmpty()) {
        qCDebug(lcPen).noquote() << path << "cannot be opened:" << problem;
        return false;
    }
    if (remembered)
        m_stamp = PenFileStamp::of(m_file);
    m_reader.start();
    return true;
}

bool OpenPenFile::replaced() const
{
    return m_stamp.exists() && !PenFileStamp::of(m_path).sameFile(m_stamp);
}

void OpenPenFile::closeAndRename()
{
    if (m_file.isOpen()) {
        m_file.close();
        m_reader.start();
        m_file.setFileName(m_path); // lost by opening a descriptor
    }
    const QString name = m_file.fileName();
    const QString target = importedPath(name);
    if (target == name)
        return; // imported and renamed already
    const QString problem = replaced() ? QStringLiteral("it has been replaced by another file")
                                       : renameWithoutReplacing(name, target);
    if (problem.isEmpty())
        m_file.setFileName(target);
    else
        qCDebug(lcPen).noquote() << name << "does not become" << target << "-" << problem;
}

} // namespace MavSystem
