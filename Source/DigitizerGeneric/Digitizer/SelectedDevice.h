// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <QString>

namespace MavSystem {

/// Says in words whether the device selected in Digitizer can be used.
class DIGITIZERGENERIC_EXPORT SelectedDevice
{
public:
    /// Returns a sentence for the user that says why the selected device cannot be used and what to
    /// do about it, or an empty text if it can be used. Reasons for a tablet: no installed
    /// description has the driver's name, the description has no usable report template, there is
    /// no such port, the user may not use it, or it cannot be opened, for example because another
    /// program has it open. Reasons for the pen, "File:": no such description, or no directory of
    /// pen files.
    ///
    /// Calls Digitizer::deviceExist(), which opens the port for a moment. Shows nothing. Not to be
    /// called while the device is open, because the port is then in use by this library, unless the
    /// port was lost. Thread: the main thread. Not promised: that open() succeeds afterwards.
    static QString problem();
};

} // namespace MavSystem
