// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

#include <QCommandLineParser>
#include <QString>

namespace ReferenceHost {

/// The options --device, --baudrate, --databit, --parity, --stopbit and --flowctrl of the commands
/// that read a port without the driver.
namespace LineOptions {

QList<QCommandLineOption> options();

/// Returns whether any of the serial settings is given.
bool areGiven(const QCommandLineParser& parser);

/// Returns the serial settings: those given, and \a others for the rest.
PortSettings settings(const QCommandLineParser& parser, const PortSettings& others);

/// Returns 9600 8 None 1 none.
PortSettings usualSettings();

/// Returns the path of the port that --device names, or throws a CommandError.
QString device(const QCommandLineParser& parser);

} // namespace LineOptions

} // namespace ReferenceHost
