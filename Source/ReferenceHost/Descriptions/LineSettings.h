// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

#include <QString>

#include <optional>

namespace ReferenceHost {

/// The settings of a line in the words of a description file.
namespace LineSettings {

/// One setting: its attribute, the texts it takes with the usual one first, and what it sets.
struct Setting
{
    QString name;
    QString explanation;
    QStringList accepted;
    void (*apply)(PortSettings& settings, const QString& text);
};

/// Returns the five settings in the order of lineSettingsText().
const QVector<Setting>& settings();

/// Returns the settings that texts such as "9600 7 Even 1 none" stand for; flow control may be left
/// out. Returns nothing when a text is missing or not accepted.
std::optional<PortSettings> parse(const QString& text);

/// Gives \a settings to \a port, which is to be opened after it.
void apply(const PortSettings& settings, QextSerialPort& port);

} // namespace LineSettings

} // namespace ReferenceHost
