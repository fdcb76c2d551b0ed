// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavApplication.h"

/// What the programs of this project are to the driver library: where descriptions are, and how
/// messages are shown.
///
/// Settings and data are the project's own, never those of another program:
///   settings           ~/.config/DigitizerGeneric/PROGRAM.conf
///   data               ~/.local/share/DigitizerGeneric, shared by the programs
///   installed          "generated" in the data folder, see ShippedDescriptions.h
///   shipped            ../share/DigitizerGeneric/Plugins, from the folder of the executable
/// XDG_CONFIG_HOME and XDG_DATA_HOME move the first two as everywhere.
class StandardHost : public MavSystem::MavApplication
{
public:
    /// Names the application \a programName, makes this object the MavApplication, and brings the
    /// installed descriptions up to date. To be made once, after the QCoreApplication.
    explicit StandardHost(const QString& programName);

    QDir pluginsDir() const override;
    QDir appDataLocation() const override;

    /// Each is one line on the standard error stream.
    void displayWarning(const QString& text, const QString& details,
                        QWidget* parent) const override;
    void displayError(const QString& text, const QString& details, QWidget* parent) const override;

    /// Says what was asked and answers with the third choice, the harmless one.
    int confirmContinue(const QString& text, const QString& title, const QString& first,
                        const QString& second, const QString& third,
                        QWidget* parent) const override;
};
