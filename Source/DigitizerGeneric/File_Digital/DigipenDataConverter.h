// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <string>

namespace MavSystem {

class t_DigipenState;

/// Turns the events of a digital pen into converted commands, by its current state.
///
/// Not for concurrent use: the states are shared by the process. Thread: the host's main thread.
class DIGITIZERGENERIC_EXPORT t_DigipenDataConverter
{
public:
    /// Starts in \a initial, whose enter() is not run. Not owned.
    explicit t_DigipenDataConverter(t_DigipenState* initial);

    /// A pen button, of any number.
    virtual void button(int n);

    /// A pen position, in the pen's own units.
    virtual void coordinate(short x, short y);

    /// Replaces \a commands by those that close the last piece of a file and returns true if there
    /// are any. To be called again when they are used up, until it returns false.
    ///
    /// Nothing is generated when the last position was given under the terminate button, except for
    /// an extended state in internal mode, which gets two batches.
    bool generateEndOfPieceInstructions(std::string& commands);

    /// Returns whether generateEndOfPieceInstructions() would generate now.
    bool endCommandMissing();

    /// Back to the initial state with no batch generated; the rest lives on into the next file.
    void reset();

    t_DigipenState* m_state;
    std::string m_commands; ///< written and not yet taken
    int m_last_button = 0;
    int m_coordinate_button = 0; ///< m_last_button when the last position came
    t_DigipenState* m_initial_state;
    int m_end_of_piece_count = 0; ///< batches generated in this file
};

} // namespace MavSystem
