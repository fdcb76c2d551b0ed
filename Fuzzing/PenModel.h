// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>

/// The pen once more, in one place and without a class for each state: from lines to commands.
///
/// The states by letter: L line, C curve, H punch hole, T end of the piece, P prefix, I idle, 1 to
/// 3 the first phase of a prefixed input, a to c its second.
class PenModel
{
public:
    explicit PenModel(bool extended) : m_extended(extended), m_ofExtended(extended) {}

    bool internal = false;

    std::string convert(const std::string& line)
    {
        if (line[0] == 'A')
            button(numberAfter(line, line.find('-'), 1));
        if (line[0] == 'X') {
            const std::size_t first = line.find(':');
            const std::size_t second =
                first == std::string::npos ? first : line.find(':', first + 1);
            position(std::int16_t(numberAfter(line, first, 0)),
                     std::int16_t(numberAfter(line, second, 0)));
        }
        return std::exchange(m_written, {});
    }

    /// What ends the piece at the end of a file; when there is nothing, the file is done.
    std::string end()
    {
        if (m_positionButton == 4 && !(m_ofExtended && internal && m_ends < 2))
            return {};
        button(4);
        position(0, 0);
        ++m_ends;
        return std::exchange(m_written, {});
    }

    void startFile()
    {
        m_state = 'L';
        m_ofExtended = m_extended;
        m_ends = 0;
    }

private:
    // Without the marker the line's own first characters are in its place.
    static int numberAfter(const std::string& line, std::size_t marker, std::size_t skipped)
    {
        const std::size_t start = (marker == std::string::npos ? 0 : marker + 1) + skipped;
        const long long number =
            std::strtoll(line.c_str() + std::min(start, line.size()), nullptr, 10);
        return int(std::clamp<long long>(number, std::numeric_limits<int>::min(),
                                         std::numeric_limits<int>::max()));
    }

    void button(int number)
    {
        m_button = number;
        if (m_state == 'T' && !(m_ofExtended && m_positionGiven))
            write('4', 0, 0);
        if (number < 1 || number > 4)
            return;
        if (m_state != 'P')
            m_state = (m_ofExtended ? "LCPT" : "LCHT")[number - 1];
        else if (number < 4)
            m_state = char('0' + number);
        else
            idle();
        m_positionGiven = false;
    }

    void position(int x, int y)
    {
        m_positionButton = m_button;
        m_positionGiven = true;
        if (m_state == 'L' || m_state == 'C')
            m_curve = m_ofExtended ? m_state == 'C' : m_curve;
        if (m_state == 'P')
            idle();
        else if (m_state >= '1' && m_state <= '3')
            firstPhase(x, y);
        else if (m_state >= 'a')
            secondPhase(x, y);
        else if (m_state != 'I')
            write(char('1' + std::string("LCHT").find(m_state)), x, y);
        if (m_state == 'T' && (!m_ofExtended || internal))
            m_state = 'L';
    }

    void firstPhase(int x, int y)
    {
        write('3', x, y);
        if (internal)
            write(m_state, x, y);
        else
            m_state = char(m_state - '1' + 'a');
    }

    void secondPhase(int x, int y)
    {
        write(char(m_state - 'a' + '1'), x, y);
        m_state = m_curve ? 'C' : 'L';
    }

    void idle()
    {
        m_state = 'I';
        m_ofExtended = false;
    }

    void write(char code, int x, int y)
    {
        m_written += code + std::to_string(x) + ' ' + std::to_string(y) + "\n\r";
    }

    bool m_extended;
    bool m_ofExtended; // the current state has the extended dispatch
    char m_state = 'L';
    bool m_curve = false;
    bool m_positionGiven = false; // since the last change of the state
    int m_button = 0;
    int m_positionButton = 0;
    int m_ends = 0;
    std::string m_written;
};
