// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavCoreExport.h"

#include <QDir>
#include <QString>

class QWidget;

namespace MavSystem {

/// What the library needs from its host: two folders, a main window and three message boxes.
///
/// A host derives from this class and registers its object with setInstance(). Every operation has
/// a default: messages appear in message boxes if a QApplication runs, and on standard error
/// otherwise. Thread: the main thread.
class MAVCORE_EXPORT MavApplication
{
public:
    virtual ~MavApplication();

    /// Returns the host's object, or the default one; never null.
    static MavApplication* instance();

    /// Makes \a application the host's object. The caller owns it and must keep it until another
    /// object is set or the process ends. Null restores the default.
    static void setInstance(MavApplication* application);

    /// Returns the parent for message boxes. Default: the active window, or null if there is none.
    virtual QWidget* mainWindow() const;

    /// Returns the directory that holds "digitizer/generated" with the shipped descriptions.
    /// Default: "plugins" next to the executable.
    virtual QDir pluginsDir() const;

    /// Returns the directory that holds "generated" with the installed descriptions. Default: the
    /// user's data location for this application. The directory is not created.
    virtual QDir appDataLocation() const;

    /// Shows a warning and returns when it has been dismissed.
    virtual void displayWarning(const QString& text, const QString& details, QWidget* parent) const;

    /// Shows an error and returns when it has been dismissed.
    virtual void displayError(const QString& text, const QString& details, QWidget* parent) const;

    /// Asks \a text and returns the choice: 0 for \a first, 1 for \a second, 2 for \a third.
    /// Returns 2 if the dialog is dismissed, or if the process shows no dialogs: the third choice
    /// is harmless, and nothing is imported or deleted without the user's consent.
    virtual int confirmContinue(const QString& text, const QString& title, const QString& first,
                                const QString& second, const QString& third, QWidget* parent) const;
};

} // namespace MavSystem
