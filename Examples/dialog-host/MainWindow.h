// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Drawing.h"
#include "HostFramework.h"

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QMainWindow>

/// An application's window, to which the digitizer was added.
class MainWindow : public QMainWindow
{
public:
    MainWindow();
    ~MainWindow() override;

    /// Opens the port, or with "File:" the directory of pen files in the settings. Returns an empty
    /// text, or why that is not possible.
    QString openDigitizer(const QString& driver, const QString& port);

private:
    void addMenus();
    void watchInput();
    void chooseDigitizer();
    void closeDigitizer();
    void take(const MavSystem::DigitalReport& report);
    void showStatus(const QString& text);

    HostFramework m_framework{this};
    Drawing m_drawing;
};
