// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QLineEdit>
#include <QSettings>

/// Asks for the driver and the port, or the directory of a digital pen.
class DeviceDialog : public QDialog
{
public:
    explicit DeviceDialog(QWidget* parent) : QDialog(parent)
    {
        setWindowTitle("Open digitizer");
        auto* const form = new QFormLayout(this);
        form->addRow("&Driver:", &m_driver);
        form->addRow("&Port:", &m_port);
        form->addRow("Pen &files in:", &m_penDirectory);
        auto* const buttons =
            new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel);
        form->addRow(buttons);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(&m_port, &QComboBox::currentTextChanged, this,
                [this](const QString& port) { m_penDirectory.setEnabled(port == "File:"); });
        fillIn();
    }

    QString driver() const { return m_driver.currentText(); }

    /// Returns the serial port, or "File:" for the pen.
    QString port() const { return m_port.currentText(); }

    QString penDirectory() const { return m_penDirectory.text(); }

private:
    void fillIn()
    {
        for (const auto& driver : MavSystem::DescriptionFolder::drivers())
            m_driver.addItem(driver.name);
        m_port.setEditable(true);
        m_port.lineEdit()->setPlaceholderText("such as /dev/ttyUSB0, or File: for a digital pen");
        m_port.addItem("File:");
        for (const QString& name : QDir("/dev").entryList({"ttyUSB*", "ttyACM*"}, QDir::System))
            m_port.addItem("/dev/" + name);
        const auto digitizer = MavSystem::Digitizer::instance();
        m_driver.setCurrentText(digitizer->driver());
        m_port.setCurrentText(digitizer->device());
        m_penDirectory.setText(QSettings().value("digitizer_file_directory").toString());
    }

    QComboBox m_driver;
    QComboBox m_port;
    QLineEdit m_penDirectory;
};
