// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavCoreExport.h"

#include <QDir>
#include <QString>

class QWidget;

namespace MavSystem {

/// What the library asks of its host: two folders, a main window, and three message boxes.
///
/// A host derives from this class and makes its object known with setInstance(). Every operation
/// has a sensible default: message boxes while a QApplication runs, the standard error stream
/// otherwise. Thread: the main thread.
class MAVCORE_EXPORT MavApplication
{
public:
    virtual ~MavApplication();

    /// Returns the host's object, or the default one; never null.
    static MavApplication* instance();

    /// Makes \a application the host's object. Not owned; it must outlive its use. Null brings the
    /// default back.
    static void setInstance(MavApplication* application);

    /// Returns the parent for message boxes. Default: the active window, null when there is none.
    virtual QWidget* mainWindow() const;

    /// Returns the directory that holds "digitizer/generated" with the shipped descriptions.
    /// Default: "plugins" beside the executable.
    virtual QDir pluginsDir() const;

    /// Returns the directory that holds "generated" with the installed descriptions.
    /// Default: the application's own data location of the user. Not created here.
    virtual QDir appDataLocation() const;

    /// Shows a warning; returns when it has been dismissed.
    virtual void displayWarning(const QString& text, const QString& details, QWidget* parent) const;

    /// Shows an error; returns when it has been dismissed.
    virtual void displayError(const QString& text, const QString& details, QWidget* parent) const;

    /// Asks \a text and returns the index of the choice taken: 0 \a first, 1 \a second, 2 \a third.
    /// A dismissed dialog returns 2. So does a process without dialogs: the third choice is the
    /// harmless one, and nothing is imported or deleted unasked.
    virtual int confirmContinue(const QString& text, const QString& title, const QString& first,
                                const QString& second, const QString& third, QWidget* parent) const;
};

} // namespace MavSystem
