// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <QFile>
#include <QFileSystemWatcher>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <boost/scoped_ptr.hpp>

#include <string>

namespace MavSystem {

class DigitalReport;
class Digitizer;
class OpenPenFile;
class PenFileSettling;
class t_DigipenStringAnalyzer;

/// Imports the "*.dat" files that a digital pen leaves in a directory, and watches for new ones.
///
/// The directory is the host's setting "digitizer_file_directory"; without it the root directory of
/// the file system. A file that has been imported carries the extension ".txt"; if that name is
/// taken, it keeps its own and is imported again at the next change of the directory.
///
/// With the driver's settle time, taken at open(), a file is imported once it stands still, and the
/// directory is looked at by a timer instead of being watched by the system. Each change of a file
/// that keeps its name then imports that one again, and nothing else does.
///
/// Only one import runs at a time in the process. Another one that is asked for meanwhile (by a
/// change of the directory while an error is shown, or by a host that opens again inside its report
/// handler) runs when that has ended. Thread: the host's main thread.
class DIGITIZERGENERIC_EXPORT DigipenFileDigitalization : public QObject
{
    Q_OBJECT

public:
    /// \a digitizer decodes the commands and is not owned. \a extended4Buttons chooses the extended
    /// four-button family of pen states.
    DigipenFileDigitalization(Digitizer* digitizer, bool extended4Buttons);
    ~DigipenFileDigitalization() override;

    /// Returns true if the directory is now watched. Asks the user when files are waiting: after
    /// "Import" they are imported before it returns; after "Delete" they are removed and it returns
    /// false, as it does after "Cancel" and, without a question, when there is no such directory or
    /// the system cannot watch it. To be called once on each object.
    ///
    /// With a settle time, those that have stood still for it while the question was shown are
    /// imported before it returns, the others later.
    bool open();

    /// Stops watching; an import under way goes on to its end. Always returns true.
    bool close();

    /// Returns whether the directory is watched.
    bool active() const;

    /// Returns how many files of the last look wait until they stand still or are imported; 0
    /// without a settle time.
    int unsettledFiles() const;

    /// Deletes this object, or has it deleted at the end of the import or question under way.
    void release();

    /// Removes the files of \a directory whose names match one of \a patterns, without regard to
    /// case; no hidden files, no subdirectories. Without a pattern nothing is removed. What cannot
    /// be removed is left, silently.
    static void removeAllFileFromDirectory(QString directory, QStringList patterns);

    /// One step of reading the current file; fills \a button, \a x and \a y and returns true if it
    /// produced a command.
    bool readingDigitizingCommand(ButtonValue& button, QMap<int, char>& x, QMap<int, char>& y);

    /// Reads the next line, up to its first zero byte, its line end included; returns true if it is
    /// not empty.
    bool readNextLine(std::string& line);

    /// Closes the current file and gives it the extension ".txt", unless that name is taken or,
    /// with a settle time, the file's own name now belongs to another file.
    void closeAndModifyFileExtentionToTxt();

public Q_SLOTS:
    /// Imports every pen file of the directory \a strPath, in the order of their names. Errors are
    /// shown to the user, and the import goes on, whatever the host's error display throws.
    void analyzerDigitPenFile(const QString& strPath);

private:
    class InUse;

    Q_DECL_HIDDEN int askAboutWaitingFiles() const;
    Q_DECL_HIDDEN bool startWatching();
    Q_DECL_HIDDEN void importDirectory(const QString& path);
    Q_DECL_HIDDEN void importSettled(const QString& directory);
    Q_DECL_HIDDEN void importFile(const QString& path);
    Q_DECL_HIDDEN void importStep(ButtonValue& button, DigitalReport& report);
    Q_DECL_HIDDEN bool deliverStep(ButtonValue& button, DigitalReport& report);
    template <class TakeCommand>
    Q_DECL_HIDDEN bool advance(TakeCommand takeCommand);
    Q_DECL_HIDDEN bool fillLine();
    Q_DECL_HIDDEN void finishFile();

    std::string m_line;
    int m_reading_state = 0;
    QFileSystemWatcher m_watcher;
    QFile m_file;
    QString m_file_name;
    bool m_active = false;
    boost::scoped_ptr<t_DigipenStringAnalyzer> m_analyzer;
    Digitizer* m_digitizer;
    boost::scoped_ptr<OpenPenFile> m_open_file; // reads m_file
    int m_uses = 0;                             // operations of this object that are under way
    bool m_released = false;
    QString m_directory; // absolute; set by open()
    boost::scoped_ptr<PenFileSettling> m_settling;
    QTimer m_timer; // asks for the looks
};

} // namespace MavSystem
