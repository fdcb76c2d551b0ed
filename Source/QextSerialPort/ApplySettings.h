// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

/// Applies \a settings to \a port. To be called before the port is opened.
inline void applySettings(const PortSettings& settings, QextSerialPort& port)
{
    port.setBaudRate(settings.BaudRate);
    port.setFlowControl(settings.FlowControl);
    port.setParity(settings.Parity);
    port.setStopBits(settings.StopBits);
    port.setDataBits(settings.DataBits);
}
