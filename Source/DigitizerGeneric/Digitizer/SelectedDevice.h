// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <QString>

namespace MavSystem {

/// The device that is selected in Digitizer, asked about in words.
class DIGITIZERGENERIC_EXPORT SelectedDevice
{
public:
    /// Returns why the selected device cannot be used and what to do, a sentence for the user; an
    /// empty text when it can. For a tablet: no installed description has the driver's name, the
    /// description takes no reports, there is no such port, this user may not use it, or it does
    /// not open, for instance because another program has it. For the pen, "File:": no description,
    /// or the directory of pen files is not there.
    ///
    /// Asks Digitizer::deviceExist(), which opens the port for a moment; shows nothing. Not to be
    /// asked while the device is open: its port is then taken, by this driver. Thread: the main
    /// thread. Not promised: that open() succeeds afterwards.
    static QString problem();
};

} // namespace MavSystem
