// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/InternalMode.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"

namespace MavSystem {

bool hostModeIsInternal()
{
    const int mode = Digitizer::instance()->m_host_mode;
    return mode >= 50 && mode <= 59;
}

} // namespace MavSystem
