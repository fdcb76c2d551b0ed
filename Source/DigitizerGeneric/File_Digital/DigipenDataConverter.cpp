// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/DigipenDataConverter.h"

#include "DigitizerGeneric/File_Digital/DigipenState.h"

namespace MavSystem {

namespace {

constexpr int endOfPieceBatches = 2; // of an extended state in internal mode

} // namespace

t_DigipenDataConverter::t_DigipenDataConverter(t_DigipenState* initial)
    : m_state(initial), m_initial_state(initial)
{}

void t_DigipenDataConverter::button(int n)
{
    m_last_button = n;
    m_state->button(*this, n);
}

void t_DigipenDataConverter::coordinate(short x, short y)
{
    m_coordinate_button = m_last_button;
    m_state->coordinate(*this, x, y);
}

bool t_DigipenDataConverter::generateEndOfPieceInstructions(std::string& commands)
{
    commands.clear();
    if (!endCommandMissing())
        return false;
    button(4);
    coordinate(0, 0);
    commands.swap(m_commands);
    ++m_end_of_piece_count;
    return !commands.empty();
}

bool t_DigipenDataConverter::endCommandMissing()
{
    if (m_coordinate_button != m_state->terminateButton())
        return true;
    return m_state->is4ex() && t_DigipenState::m_internal_mode &&
           m_end_of_piece_count < endOfPieceBatches;
}

void t_DigipenDataConverter::reset()
{
    m_state = m_initial_state;
    m_end_of_piece_count = 0;
}

} // namespace MavSystem
