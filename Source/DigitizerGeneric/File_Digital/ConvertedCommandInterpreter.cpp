// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/ConvertedCommandInterpreter.h"

#include "DigitizerGeneric/File_Digital/ConvertedCommandFields.h"

namespace MavSystem {

namespace {

void insertAtPositions(QMap<int, char>& field, std::string_view digits, const std::string& text)
{
    auto position = int(digits.data() - text.data());
    for (const char digit : digits)
        field.insert(position++, digit);
}

} // namespace

bool t_ConvertedCommandInterpreter::interpreter(std::string& commands, ButtonValue& button,
                                                QMap<int, char>& x, QMap<int, char>& y)
{
    if (commands.empty())
        return false;
    const ConvertedCommandFields fields = ConvertedCommandFields::of(commands);
    button.m_code[0] = fields.code;
    insertAtPositions(x, fields.x, commands);
    insertAtPositions(y, fields.y, commands);
    commands.erase(0, fields.length);
    return true;
}

} // namespace MavSystem
