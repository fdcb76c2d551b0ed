// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavApplication.h"

namespace ReferenceHost {

/// The host that the programs of this project are to the driver library. It says where the
/// descriptions are and shows messages.
///
/// Settings and data are the project's own, never those of another program:
///   settings           ~/.config/DigitizerGeneric/PROGRAM.conf
///   data               ~/.local/share/DigitizerGeneric, shared by the programs
///   installed          "generated" in the data folder; those of the library come there at the
///   start
/// XDG_CONFIG_HOME and XDG_DATA_HOME move the first two as everywhere.
class StandardHost : public MavSystem::MavApplication
{
public:
    /// Names the application \a programName, makes this object the MavApplication, and updates the
    /// installed descriptions. To be created once, after the QCoreApplication.
    explicit StandardHost(const QString& programName);

    QDir appDataLocation() const override;

    /// Both print one line on standard error.
    void displayWarning(const QString& text, const QString& details,
                        QWidget* parent) const override;
    void displayError(const QString& text, const QString& details, QWidget* parent) const override;

    /// Prints the question and answers with the third choice, the harmless one.
    int confirmContinue(const QString& text, const QString& title, const QString& first,
                        const QString& second, const QString& third,
                        QWidget* parent) const override;
};

} // namespace ReferenceHost
