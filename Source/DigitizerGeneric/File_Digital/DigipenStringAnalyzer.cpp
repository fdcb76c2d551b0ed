// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/DigipenStringAnalyzer.h"

#include "DigitizerGeneric/File_Digital/DigipenDataConverter.h"
#include "DigitizerGeneric/File_Digital/DigipenState_4ex.h"
#include "DigitizerGeneric/File_Digital/FatalError.h"

#include <QCoreApplication>

#include <boost/exception/info.hpp>

#include <algorithm>
#include <cstring>
#include <limits>

namespace MavSystem {

namespace {

constexpr char buttonLine = 'A';
constexpr char coordinateLine = 'X';

// As atoi reads it in the C locale, but saturating where that leaves the result open. A number
// ends at the first character that is not part of it, the terminating zero included.
int leadingInteger(const char* text)
{
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+')
        ++text;
    constexpr std::int64_t beyondInt = std::int64_t(std::numeric_limits<int>::max()) + 1;
    std::int64_t value = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
        value = std::min(value * 10 + (*text - '0'), beyondInt);
    value = negative ? -value : value;
    return int(std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(),
                                        std::numeric_limits<int>::max()));
}

int integerAt(const std::string& line, std::size_t position)
{
    return leadingInteger(line.c_str() + std::min(position, line.size()));
}

// Position behind the next marker, or 0, the start of the line, when there is none.
std::size_t behind(const std::string& line, char marker, std::size_t from)
{
    const std::size_t position = line.find(marker, from);
    return position == std::string::npos ? 0 : position + 1;
}

int buttonOf(const std::string& line)
{
    // Without a marker the number starts at the second character; with one, one character between
    // the marker and the number is skipped.
    return integerAt(line, behind(line, '-', 0) + 1);
}

struct Position
{
    int x;
    int y;
};

Position positionOf(const std::string& line)
{
    const std::size_t xStart = behind(line, ':', 0);
    const std::size_t yStart = behind(line, ':', xStart);
    return {integerAt(line, xStart), integerAt(line, yStart)};
}

bool isPenButton(int button)
{
    return button >= 1 && button <= 8;
}

short lowSixteenBits(int value)
{
    return std::int16_t(std::uint16_t(unsigned(value) & 0xffffU));
}

t_DigipenState* initialState(t_DigipenStringAnalyzer::e_Type_Conversion type)
{
    switch (type) {
    case t_DigipenStringAnalyzer::CONVERSION_STANDARD:
        return single<t_LineState>();
    case t_DigipenStringAnalyzer::CONVERSION_4EX:
        return single<t_LineState_4ex>();
    }
    return nullptr;
}

} // namespace

t_DigipenStringAnalyzer::t_DigipenStringAnalyzer(e_Type_Conversion type) : m_type(type)
{
    t_DigipenState* const initial = initialState(type);
    if (!initial) {
        // The place is given as text: the compiler's own shortens the name of the enumeration, and
        // BOOST_THROW_EXCEPTION would throw a wrapper instead of the error itself.
        throw FatalError(
            QCoreApplication::translate("MavSystem::DigipenFileDigitalization", "Unexpected Value"))
            << boost::throw_function("MavSystem::t_DigipenStringAnalyzer::t_DigipenStringAnalyzer("
                                     "MavSystem::t_DigipenStringAnalyzer::e_Type_Conversion)")
            << boost::throw_file("Source/DigitizerGeneric/File_Digital")
            << boost::throw_line(__LINE__);
    }
    m_converter.reset(new t_DigipenDataConverter(initial));
}

t_DigipenStringAnalyzer::~t_DigipenStringAnalyzer() = default;

bool t_DigipenStringAnalyzer::convert(std::string& line)
{
    bool isEvent = false;
    switch (line.c_str()[0]) {
    case buttonLine: {
        const int button = buttonOf(line);
        m_converter->button(button);
        isEvent = isPenButton(button);
        break;
    }
    case coordinateLine: {
        const Position position = positionOf(line);
        m_converter->coordinate(lowSixteenBits(position.x), lowSixteenBits(position.y));
        isEvent = true;
        break;
    }
    default:
        break;
    }
    // Both strings keep their memory for the lines to come.
    line.swap(m_converter->m_commands);
    m_converter->m_commands.clear();
    return isEvent;
}

bool t_DigipenStringAnalyzer::getButton(std::string& line, int& button)
{
    button = buttonOf(line);
    return isPenButton(button);
}

bool t_DigipenStringAnalyzer::getCoordinate(std::string& line, int& x, int& y)
{
    const Position position = positionOf(line);
    x = position.x;
    y = position.y;
    return true;
}

bool t_DigipenStringAnalyzer::generateEndOfPieceInstructions(std::string& commands)
{
    return m_converter->generateEndOfPieceInstructions(commands);
}

} // namespace MavSystem
