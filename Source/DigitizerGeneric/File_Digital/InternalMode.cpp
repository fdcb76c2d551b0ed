// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/InternalMode.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"

namespace MavSystem {

bool hostModeIsInternal()
{
    // Asked for at every step of an import; counting references each time would show.
    static const Digitizer* const digitizer = Digitizer::instance().get();
    return digitizer->m_host_mode >= 50 && digitizer->m_host_mode <= 59;
}

} // namespace MavSystem
