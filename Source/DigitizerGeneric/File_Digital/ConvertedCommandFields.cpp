// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/ConvertedCommandFields.h"

#include "DigitizerGeneric/ConvertedCommand.h"

namespace MavSystem {

namespace {

std::string_view digitsFrom(std::string_view text, std::size_t start)
{
    std::size_t end = start;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    return text.substr(start, end - start);
}

// Position of the first wanted character, or the size of the text. Commands have a dozen
// characters; for so few a call of memchr costs more than the search.
std::size_t find(std::string_view text, char wanted, std::size_t from)
{
    while (from < text.size() && text[from] != wanted)
        ++from;
    return from;
}

// A text that starts with its carriage return is given up whole, one without it not taken at all.
std::size_t lengthOf(std::string_view commands, std::size_t end)
{
    if (end == commands.size())
        return 0;
    return end == 0 ? commands.size() : end + 1;
}

} // namespace

ConvertedCommandFields ConvertedCommandFields::of(std::string_view commands)
{
    const std::string_view x = digitsFrom(commands, 1);
    const std::size_t separator = find(commands, COORDINATE_SEPARATOR[0], 0);
    const std::string_view y =
        digitsFrom(commands, separator == commands.size() ? 0 : separator + 1);
    return {commands[0], x, y, lengthOf(commands, find(commands, CARRIAGE_RETURN[0], 0))};
}

} // namespace MavSystem
