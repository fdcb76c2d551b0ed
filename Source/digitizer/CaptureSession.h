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
    int count = 0; ///< reports after which capturing ends; 0 for no limit
    ReportWriter::Format format = ReportWriter::Text;
    ButtonRoles roles;
    bool strictCount = false; ///< without checked reading
    bool reconnect = true;    ///< waits for a device that is gone; otherwise that ends capturing
};

/// Takes reports from the tablet until the user, the wanted number or a fault ends it.
class CaptureSession : public QObject
{
    Q_OBJECT

public:
    explicit CaptureSession(const CaptureOptions& options);
    ~CaptureSession() override;

    /// Opens the device at the path \a port, which is the user's or stands in for it, captures, and
    /// closes it. Returns an empty text when capturing ended as wanted, or what ended it. Throws a
    /// CommandError when the device does not open.
    QString run(const QString& port);

    /// Returns what was traced so far.
    QVector<Piece> pieces() const { return m_recorder.pieces(); }

    /// Says that the device is gone, and waits or ends as the options want it. What was traced and
    /// counted stays.
    void deviceGone();

    /// Says that the device is back.
    void deviceBack();

    /// Ends capturing at the next turn of the event loop, for the reason given.
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
