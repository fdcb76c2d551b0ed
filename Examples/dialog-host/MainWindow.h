// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Drawing.h"
#include "HostFramework.h"

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QMainWindow>

/// The window of an application that uses the digitizer.
class MainWindow : public QMainWindow
{
public:
    MainWindow();
    ~MainWindow() override;

    /// Opens the port, or with "File:" the directory of pen files in the settings. Returns an empty
    /// text, or why that failed.
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
