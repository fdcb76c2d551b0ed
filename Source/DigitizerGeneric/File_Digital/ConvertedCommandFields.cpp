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

// A text that starts with its carriage return is given up whole.
std::size_t lengthOf(std::string_view commands)
{
    const std::size_t end = commands.find(CARRIAGE_RETURN[0]);
    if (end == std::string_view::npos)
        return 0;
    return end == 0 ? commands.size() : end + 1;
}

} // namespace

ConvertedCommandFields ConvertedCommandFields::of(std::string_view commands)
{
    const std::size_t separator = commands.find(COORDINATE_SEPARATOR[0]);
    const std::size_t yStart = separator == std::string_view::npos ? 0 : separator + 1;
    return {commands[0], digitsFrom(commands, 1), digitsFrom(commands, yStart), lengthOf(commands)};
}

} // namespace MavSystem
