// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

/// What a run is to be. A wrong result is false; what the run cannot do throws CommandError.
struct SoakOptions
{
    int reports = 100000;
    int files = 0; ///< so many pen files instead of reports
    bool plain = false;
    bool lineSpeed = false;
    int damageOneIn = 0; ///< 0 for no damage
    unsigned seed = 0;
};

/// Has the simulator send numbered reports, as fast as the line takes them or at the speed of a
/// tablet, to a host that stalls, and prints what the host was handed. Returns whether it is what
/// checked reading promises; always true without.
bool soakSerial(const SoakOptions& options);

/// Writes numbered pen files into the directory of a host that stalls and prints what the host was
/// handed. Returns whether each file came once, whole and right, and was marked as imported.
bool soakPens(const SoakOptions& options);
