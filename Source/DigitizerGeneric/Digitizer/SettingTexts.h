// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

#include <QString>

/// The values that a description file may give to the serial settings, and how it writes them.
namespace MavSystem::SettingTexts {

// In the order of their texts.
inline constexpr BaudRateType baudRates[] = {BAUD150,  BAUD300,  BAUD600,  BAUD1200,
                                             BAUD2400, BAUD4800, BAUD9600, BAUD19200};
inline constexpr DataBitsType dataBits[] = {DATA_7, DATA_8};
inline constexpr ParityType parities[] = {PAR_EVEN, PAR_NONE, PAR_ODD};
inline constexpr StopBitsType stopBits[] = {STOP_1, STOP_1_5, STOP_2};
inline constexpr FlowType flowControls[] = {FLOW_HARDWARE, FLOW_OFF, FLOW_XONXOFF};

/// Each returns the text of a value, also of one that no description may give.
QString textOf(BaudRateType value);
QString textOf(DataBitsType value);
QString textOf(ParityType value);
QString textOf(StopBitsType value);
QString textOf(FlowType value);

} // namespace MavSystem::SettingTexts
