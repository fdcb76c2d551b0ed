// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

#include <QString>

#include <optional>

namespace ReferenceHost {

/// Serial settings as a description file writes them.
namespace LineSettings {

/// One setting: its attribute, the accepted values with the usual one first, and how to apply one.
struct Setting
{
    QString name;
    QString explanation;
    QStringList accepted;
    void (*apply)(PortSettings& settings, const QString& text);
};

/// Returns the five settings in the order of lineSettingsText().
const QVector<Setting>& settings();

/// Returns the settings in a text such as "9600 7 Even 1 none"; flow control may be left out.
/// Returns nothing if a value is missing or not accepted.
std::optional<PortSettings> parse(const QString& text);

/// Applies \a settings to \a port. To be called before the port is opened.
void apply(const PortSettings& settings, QextSerialPort& port);

} // namespace LineSettings

} // namespace ReferenceHost
