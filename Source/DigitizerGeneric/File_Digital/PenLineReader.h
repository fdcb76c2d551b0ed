// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include <array>
#include <string>

namespace MavSystem {

/// Reads a pen file line by line in constant memory, whatever its size: a line is all that is kept.
///
/// Cut from blocks here, since QIODevice's own way to a line is a measurable part of an import.
class PenLineReader
{
public:
    /// \a file is not owned. It is opened unbuffered by its owner.
    explicit PenLineReader(QFile& file);

    /// Forgets what was read of the file before.
    void start();

    /// Replaces \a line by the next one, up to its first zero byte, its line end included. Returns
    /// true if it is not empty.
    bool next(std::string& line);

private:
    bool fill();

    QFile& m_file;
    std::array<char, 32768> m_block;
    const char* m_begin;
    const char* m_end;
    bool m_blockHasZeroByte = false;
};

} // namespace MavSystem
