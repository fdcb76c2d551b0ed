// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/File_Digital/DigipenState.h"

#include <array>

namespace MavSystem {

/// The states that the buttons 1 to 4 lead to.
using DigipenDispatch = std::array<t_DigipenState* (*)(), 4>;

/// Changes to the state that \a dispatch gives for button \a n; any other number changes nothing.
inline void dispatchButton(t_DigipenState& state, t_DigipenDataConverter& converter, int n,
                           const DigipenDispatch& dispatch)
{
    if (n >= 1 && n <= int(dispatch.size()))
        state.changeState(converter, dispatch[std::size_t(n) - 1]());
}

} // namespace MavSystem
