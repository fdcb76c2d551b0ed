// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavApplication.h"

#include <QStringList>
#include <QTemporaryDir>

#include <functional>

/// A host for tests: its folders are temporary, its message boxes are recorded, and QSettings of
/// the process point into the temporary directory. One at a time; it is the MavApplication while it
/// lives.
class TestHost : public MavSystem::MavApplication
{
public:
    TestHost();
    ~TestHost() override;

    QDir pluginsDir() const override;
    QDir appDataLocation() const override;
    void displayWarning(const QString& text, const QString& details,
                        QWidget* parent) const override;
    void displayError(const QString& text, const QString& details, QWidget* parent) const override;
    int confirmContinue(const QString& text, const QString& title, const QString& first,
                        const QString& second, const QString& third,
                        QWidget* parent) const override;

    /// Writes a file, with its folders, below the temporary directory and returns its path.
    QString write(const QString& relativePath, const QByteArray& content);

    /// Writes "data/generated/NAME", an installed description.
    QString writeDescription(const QString& name, const QByteArray& content);

    QString path(const QString& relativePath) const { return m_directory.filePath(relativePath); }

    mutable QStringList warnings;
    mutable QStringList errors;
    mutable QStringList questions; ///< text, title and the three choices, joined by "|"
    int answer = 2;                ///< what confirmContinue() returns
    std::function<void()> duringDialog = [] {}; ///< runs inside each message box

private:
    QTemporaryDir m_directory;
};
