// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace ReferenceHost {

/// The values of a device description as its file writes them.

/// Returns baud rate, data bits, parity, stop bits and flow control, each as its attribute has it:
/// the values of describedSettings(). "50" and "5" are those of a value that the driver does not
/// know.
QStringList lineSettingTexts(const PortSettings& settings);

/// Returns the same as one text, without flow control if it is off: "9600 7 Even 1".
QString lineSettingsText(const PortSettings& settings);

/// Returns the settings in such a text, with or without flow control, or nothing if a value is
/// missing or not accepted.
std::optional<PortSettings> lineSettingsIn(const QString& text);

/// Returns the report template: "XXXXUYYYYUBC".
QString layoutText(const std::vector<MavSystem::ReportFormatValues>& roles);

/// Returns the characters of a button code that are compared: "01".
QString buttonCodeText(const MavSystem::DigitizerArgument& description,
                       const MavSystem::ButtonValue& button);

} // namespace ReferenceHost
