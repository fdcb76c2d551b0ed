// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavApplication.h"

#include <QMessageBox>
#include <QPushButton>

/// What the library needs from this application: message boxes with its window as parent. The
/// folders are the default ones.
class HostFramework : public MavSystem::MavApplication
{
public:
    explicit HostFramework(QWidget* window) : m_window(window) { setInstance(this); }

    QWidget* mainWindow() const override { return m_window; }

    void displayWarning(const QString& text, const QString& details, QWidget*) const override
    {
        QMessageBox::warning(m_window, "Digitizer", (text + "\n\n" + details).trimmed());
    }

    void displayError(const QString& text, const QString& details, QWidget*) const override
    {
        QMessageBox::critical(m_window, "Digitizer", (text + "\n\n" + details).trimmed());
    }

    /// Asks whether to import (0) or delete (1) waiting pen files, or neither (2). Return and
    /// Escape mean neither, so that nobody deletes files by accident.
    int confirmContinue(const QString& text, const QString& title, const QString& first,
                        const QString& second, const QString& third, QWidget*) const override
    {
        QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, m_window);
        const QAbstractButton* const import = box.addButton(first, QMessageBox::AcceptRole);
        const QAbstractButton* const remove = box.addButton(second, QMessageBox::DestructiveRole);
        QPushButton* const neither = box.addButton(third, QMessageBox::RejectRole);
        box.setDefaultButton(neither);
        box.setEscapeButton(neither);
        box.exec();
        return box.clickedButton() == import ? 0 : box.clickedButton() == remove ? 1 : 2;
    }

private:
    QWidget* m_window;
};
