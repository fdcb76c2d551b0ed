// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The library's answer on a device, and what to do about it.
struct DeviceCheck
{
    QString answer; ///< of Digitizer::deviceExist()
    QString advice; ///< empty when the device can be used

    bool isUsable() const { return advice.isEmpty(); }
};

/// Selects the driver and the device, a serial port or "File:", and asks the library whether they
/// can be used. A port is opened for a moment.
DeviceCheck checkDevice(const QString& driver, const QString& device);
