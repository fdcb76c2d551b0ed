// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "MavCore/MavApplication.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include <cstdio>

namespace MavSystem {

namespace {

MavApplication* s_instance = nullptr;

bool dialogsPossible()
{
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

void writeToStandardError(const QString& text, const QString& details)
{
    const QString line =
        details.isEmpty() ? text : text + QLatin1String(" (") + details + QLatin1Char(')');
    std::fprintf(stderr, "%s\n", qUtf8Printable(line));
}

void showBox(QMessageBox::Icon icon, const QString& text, const QString& details, QWidget* parent)
{
    if (!dialogsPossible()) {
        writeToStandardError(text, details);
        return;
    }
    QMessageBox box(icon, QCoreApplication::applicationName(), text, QMessageBox::Ok, parent);
    box.setInformativeText(details);
    box.exec();
}

} // namespace

MavApplication::~MavApplication()
{
    // A host object that goes must not stay known.
    if (s_instance == this)
        s_instance = nullptr;
}

MavApplication* MavApplication::instance()
{
    static MavApplication standard;
    return s_instance ? s_instance : &standard;
}

void MavApplication::setInstance(MavApplication* application)
{
    s_instance = application;
}

QWidget* MavApplication::mainWindow() const
{
    return dialogsPossible() ? QApplication::activeWindow() : nullptr;
}

QDir MavApplication::pluginsDir() const
{
    return QDir(QCoreApplication::applicationDirPath() + QLatin1String("/plugins"));
}

QDir MavApplication::appDataLocation() const
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

void MavApplication::displayWarning(const QString& text, const QString& details,
                                    QWidget* parent) const
{
    showBox(QMessageBox::Warning, text, details, parent);
}

void MavApplication::displayError(const QString& text, const QString& details,
                                  QWidget* parent) const
{
    showBox(QMessageBox::Critical, text, details, parent);
}

int MavApplication::confirmContinue(const QString& text, const QString& title, const QString& first,
                                    const QString& second, const QString& third,
                                    QWidget* parent) const
{
    constexpr int harmless = 2;
    if (!dialogsPossible()) {
        writeToStandardError(text, third);
        return harmless;
    }
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
    const QPushButton* const firstButton = box.addButton(first, QMessageBox::AcceptRole);
    const QPushButton* const secondButton = box.addButton(second, QMessageBox::DestructiveRole);
    QPushButton* const thirdButton = box.addButton(third, QMessageBox::RejectRole);
    // Return and Escape both take the harmless choice.
    box.setDefaultButton(thirdButton);
    box.setEscapeButton(thirdButton);
    box.exec();
    if (box.clickedButton() == firstButton)
        return 0;
    return box.clickedButton() == secondButton ? 1 : harmless;
}

} // namespace MavSystem
