// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

#include <iterator>

/// The speed of a serial port with given settings.
namespace SerialTiming {

inline constexpr int speeds[] = {50,    75,    110,   134,    150,    200,   300,   600,
                                 1200,  1800,  2400,  4800,   9600,   14400, 19200, 38400,
                                 56000, 57600, 76800, 115200, 128000, 256000};
static_assert(std::size(speeds) == BAUD256000 + 1, "one speed for each BaudRateType");

constexpr int bitsPerSecond(BaudRateType baudRate)
{
    return speeds[baudRate];
}

constexpr int bitsOf(DataBitsType dataBits)
{
    return 5 + dataBits;
}

constexpr double bitsOf(StopBitsType stopBits)
{
    constexpr double bits[] = {1, 1.5, 2};
    return bits[stopBits];
}

/// Returns the time of one character in microseconds: a start bit, the data bits, a parity bit if
/// there is one, and the stop bits.
constexpr double characterMicroseconds(const PortSettings& settings)
{
    const double bits = 1 + bitsOf(settings.DataBits) + (settings.Parity == PAR_NONE ? 0 : 1) +
                        bitsOf(settings.StopBits);
    return 1e6 * bits / bitsPerSecond(settings.BaudRate);
}

} // namespace SerialTiming
