// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

/// What a run over a serial line is to be.
struct SerialSoakOptions
{
    int reports;
    bool checkedReading;
    int damageOneIn; ///< 0 for no damage
    bool lineSpeed;  ///< at the speed of a tablet, each report in two pieces with a pause between
    unsigned seed;
};

/// Has the simulator send numbered reports as fast as the line takes them, or at line speed, to a
/// host that stalls, and prints what the host was handed. Returns whether it is what checked
/// reading promises; always true with it off. Throws CommandError where the simulator or the port
/// fails.
bool soakSerial(const SerialSoakOptions& options);
