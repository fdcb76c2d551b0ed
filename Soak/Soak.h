// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

/// The options of a run. A wrong result returns false; a run that is not possible throws a
/// CommandError.
struct SoakOptions
{
    int reports = 100000;
    int files = 0; ///< the number of pen files instead of reports
    bool plain = false;
    bool lineSpeed = false;
    int damageOneIn = 0; ///< 0 for no damage
    unsigned seed = 0;
};

/// Lets the simulator send numbered reports, as fast as possible or at the speed of a tablet, to a
/// host that stalls, and prints what the host got. Returns whether this is what checked reading
/// promises; always true without checked reading.
bool soakSerial(const SoakOptions& options);

/// Writes numbered pen files to the directory of a host that stalls, and prints what the host got.
/// Returns whether each file arrived exactly once, completely and correctly, and was marked as
/// imported.
bool soakPens(const SoakOptions& options);
