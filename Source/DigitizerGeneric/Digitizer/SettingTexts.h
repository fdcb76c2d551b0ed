// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

/// The values that a description file may give to the serial settings, as it writes them.
namespace MavSystem::SettingTexts {

template <typename Value>
struct SettingText
{
    const char* text;
    Value value;
};

inline constexpr SettingText<BaudRateType> baudRates[] = {
    {"150", BAUD150},   {"300", BAUD300},   {"600", BAUD600},   {"1200", BAUD1200},
    {"2400", BAUD2400}, {"4800", BAUD4800}, {"9600", BAUD9600}, {"19200", BAUD19200}};
inline constexpr SettingText<DataBitsType> dataBits[] = {{"7", DATA_7}, {"8", DATA_8}};
inline constexpr SettingText<ParityType> parities[] = {
    {"None", PAR_NONE}, {"Odd", PAR_ODD}, {"Even", PAR_EVEN}};
inline constexpr SettingText<StopBitsType> stopBits[] = {
    {"1", STOP_1}, {"1.5", STOP_1_5}, {"2", STOP_2}};
inline constexpr SettingText<FlowType> flowControls[] = {
    {"hardware", FLOW_HARDWARE}, {"software", FLOW_XONXOFF}, {"none", FLOW_OFF}};

} // namespace MavSystem::SettingTexts
