// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QString>
#include <QStringList>

namespace ReferenceHost {

/// The values of a device description in the words of its file.

/// Returns speed, data bits, parity, stop bits and flow control, each as its attribute has it.
QStringList lineSettingTexts(const PortSettings& settings);

/// Returns speed, data bits, parity, stop bits, and flow control unless there is none:
/// "9600 7 Even 1".
QString lineSettingsText(const PortSettings& settings);

/// Returns the report template: "XXXXUYYYYUBC".
QString layoutText(const MavSystem::DigitizerArgument& description);

/// Returns the characters of a button code that count: "01".
QString buttonCodeText(const MavSystem::DigitizerArgument& description,
                       const MavSystem::ButtonValue& button);

} // namespace ReferenceHost
