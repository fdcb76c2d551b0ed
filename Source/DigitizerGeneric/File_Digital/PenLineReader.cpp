// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/PenLineReader.h"

#include <cstring>

namespace MavSystem {

namespace {

const char* find(const char* begin, const char* end, char wanted)
{
    const void* const found = std::memchr(begin, wanted, std::size_t(end - begin));
    return found ? static_cast<const char*>(found) : end;
}

} // namespace

PenLineReader::PenLineReader(QFile& file) : m_file(file)
{
    start();
}

void PenLineReader::start()
{
    m_begin = m_end = m_block.data();
}

bool PenLineReader::next(std::string& line)
{
    line.clear();
    bool zeroByteSeen = false;
    bool complete = false;
    while (!complete && (m_begin != m_end || fill())) {
        const char* const lineFeed = find(m_begin, m_end, '\n');
        complete = lineFeed != m_end;
        const char* const end = complete ? lineFeed + 1 : m_end;
        if (!zeroByteSeen) {
            const char* const zeroByte = m_blockHasZeroByte ? find(m_begin, end, '\0') : end;
            line.append(m_begin, zeroByte);
            zeroByteSeen = zeroByte != end;
        }
        m_begin = end;
    }
    return !line.empty();
}

bool PenLineReader::fill()
{
    const qint64 size = m_file.read(m_block.data(), qint64(m_block.size()));
    m_begin = m_block.data();
    m_end = m_begin + (size > 0 ? size : 0);
    // Looked for once a block: text files have none.
    m_blockHasZeroByte = find(m_begin, m_end, '\0') != m_end;
    return size > 0;
}

} // namespace MavSystem
