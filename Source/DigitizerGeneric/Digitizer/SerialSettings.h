// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"
#include "QextSerialPort/qextserialport.h"

#include <QString>

#include <map>

/// The texts of a device description's serial settings and the port's enumerators for them.
///
/// Keys match exactly: no trimming, no case folding, no numeric parsing. A text looked up with the
/// subscript operator that is no key stays in the table with the enumeration's value 0.
/// Each function returns the one table of the process, made at the first call and modifiable.
/// Thread: the main thread, since a look-up may modify the table.
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
