// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"
#include "QextSerialPort/qextserialport.h"

#include <QString>

#include <map>

/// The values of the serial settings in a device description, and the port's enumerators for them.
///
/// Keys match exactly: no trimming, no case folding, no numeric parsing. Looking up an unknown key
/// with the subscript operator adds it to the table with the enumerator of value 0. Each function
/// returns the only table of its kind in the process, created by the first call and modifiable.
/// Thread: the main thread, because a look-up may modify the table.
namespace MavSystem {

/// "150" to "19200" bits a second.
DIGITIZERGENERIC_EXPORT std::map<QString, BaudRateType>& BaudrateMap();

/// "7" and "8".
DIGITIZERGENERIC_EXPORT std::map<QString, DataBitsType>& DatabitMap();

/// "None", "Odd" and "Even".
DIGITIZERGENERIC_EXPORT std::map<QString, ParityType>& ParityMap();

/// "1", "1.5" and "2".
DIGITIZERGENERIC_EXPORT std::map<QString, StopBitsType>& StopbitMap();

/// "hardware", "software" and "none".
DIGITIZERGENERIC_EXPORT std::map<QString, FlowType>& FlowCtrlMap();

} // namespace MavSystem
