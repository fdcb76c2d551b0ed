// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"
#include "ReferenceHost/Host/PenDirectory.h"
#include "ReferenceHost/Pieces/PieceRecorder.h"
#include "ReferenceHost/Pieces/ReportWriter.h"

#include <QElapsedTimer>
#include <QMap>

#include <functional>
#include <optional>

namespace ReferenceHost {

/// What the user asked for.
struct ImportOptions
{
    MavSystem::DescribedDriver driver;
    QString directory; ///< absolute
    std::optional<int> answer;
    bool watch = false;
    int settleMilliseconds = 500; ///< a file is imported once it has not changed for this long
    bool extendedButtons = false;
    int mode = 0;
    ReportWriter::Format format = ReportWriter::Text;
    bool keepPieces = false; ///< for a picture; otherwise memory does not grow with the points
};

/// Imports the pen files of a directory through the driver library.
class ImportSession
{
public:
    explicit ImportSession(const ImportOptions& options);
    ~ImportSession();

    /// Imports, watches if asked to, and prints a summary on standard error. Returns the exit
    /// status.
    int run();

    /// Returns the pieces imported so far; none without keepPieces.
    QVector<Piece> pieces() const { return m_recorder.pieces(); }

private:
    void receive(const MavSystem::DigitalReport& report);
    void showProgress();
    void clearProgress();
    void runUntilStopped(int intervalMilliseconds, const std::function<bool()>& isDone);
    void waitUntilSettled();
    void watch();
    bool lookAfterDirectory();
    void countImported();
    int sumUp(bool imported, bool deleted);

    ImportOptions m_options;
    PenDirectory m_directory;
    ReportWriter m_writer;
    ButtonRoles m_roles;
    PieceRecorder m_recorder;
    QMap<PointRole, int> m_points;
    int m_reports = 0;
    int m_waitingBefore;
    int m_importedBefore; // imported files at the last check
    int m_imported = 0;
    bool m_gone = false; // the directory
    QStringList m_unreadable;
    QElapsedTimer m_sinceProgress;
    bool m_progressPossible;
    bool m_progressShown = false;
};

} // namespace ReferenceHost
