// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"
#include "ReferenceHost/CommandLine/StopSignals.h"
#include "ReferenceHost/Pieces/PieceRecorder.h"
#include "ReferenceHost/Pieces/ReportWriter.h"
#include "digitizer/PassedOverNotice.h"

#include <QEventLoop>
#include <QObject>
#include <QTimer>

namespace ReferenceHost {

/// What the user asked for.
struct CaptureOptions
{
    MavSystem::DescribedDriver driver;
    QString device;
    int count = 0; ///< stops after this many reports; 0 is no limit
    ReportWriter::Format format = ReportWriter::Text;
    ButtonRoles roles;
    bool strictCount = false; ///< reads without checking
    bool reconnect = true;    ///< waits for a lost device to come back; otherwise capturing ends
};

/// Captures reports until the user stops it, the count is reached or something fails.
class CaptureSession : public QObject
{
    Q_OBJECT

public:
    explicit CaptureSession(const CaptureOptions& options);
    ~CaptureSession() override;

    /// Opens the device at the path \a port, captures, and closes it. The path may be that of a
    /// pseudo-terminal in place of the user's port. Returns an empty text if capturing ended as
    /// requested, otherwise what ended it. Throws a CommandError if the device cannot be opened.
    QString run(const QString& port);

    /// Returns what was traced so far.
    QVector<Piece> pieces() const { return m_recorder.pieces(); }

    /// To be called when the device is gone. Waits for it or ends, as the options say; traced
    /// pieces and the count are kept.
    void deviceGone();

    /// To be called when the device is back.
    void deviceBack();

    /// Ends capturing as soon as the event loop runs again; run() then returns \a problem.
    void stop(const QString& problem = QString());

private:
    void open(const QString& port);
    void listen();
    void tryAgain();
    void receive(const MavSystem::DigitalReport& report);
    void adviseOnUnread();

    CaptureOptions m_options;
    ReportWriter m_writer;
    PieceRecorder m_recorder;
    StopSignals m_signals;
    PassedOverNotice m_passedOver;
    QTimer m_retry; // runs while the library's port is gone
    QEventLoop m_loop;
    QString m_problem;
    int m_reports = 0;
    bool m_ending = false;
    bool m_gone = false;
    bool m_warnedOfUnread = false;
};

} // namespace ReferenceHost
