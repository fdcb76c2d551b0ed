// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/CaptureSession.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "ReferenceHost/Command.h"
#include "ReferenceHost/Console.h"
#include "ReferenceHost/PortAccess.h"

using namespace MavSystem;

namespace {

constexpr int lineCheckMilliseconds = 500;

const char usable[] = "No Error has occurred";

QString unreadAdvice(const Driver& driver)
{
    return QStringLiteral("the tablet sends, but not one whole report of %1 characters at a time, "
                          "so nothing is read any more: end with Ctrl-C and start again while the "
                          "tablet is at rest; if it happens again, see what arrives with "
                          "'digitizer monitor'")
        .arg(driver.description.m_reportLength);
}

} // namespace

CaptureSession::CaptureSession(const CaptureOptions& options)
    : m_options(options), m_writer(options.format)
{
    connect(&m_signals, &StopSignals::stopRequested, this, [this] { stop(); });
    connect(&m_lineTimer, &QTimer::timeout, this, &CaptureSession::lookAfterLine);
    DigitalReport::registerHandle([this](const DigitalReport& report) { receive(report); });
}

CaptureSession::~CaptureSession()
{
    DigitalReport::unregisterHandle();
}

QString CaptureSession::run(const QString& port)
{
    m_identity = portIdentity(m_options.device);
    open(port);
    printError(QStringLiteral("ready: \"%1\" at %2; Ctrl-C ends")
                   .arg(m_options.driver.name, m_options.device));
    m_lineTimer.start(lineCheckMilliseconds);
    if (!m_ending)
        m_loop.exec();
    m_ending = true;
    Digitizer::instance()->close();
    return m_problem;
}

void CaptureSession::stop(const QString& problem)
{
    if (m_ending)
        return;
    m_ending = true;
    m_problem = problem;
    m_loop.quit();
}

void CaptureSession::open(const QString& port)
{
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(m_options.driver.name, port);
    const QString answer = Digitizer::deviceExist();
    if (answer == QLatin1String("Device is already locked") ||
        answer == QLatin1String("Permission denied"))
        throw CommandError(
            QStringLiteral("another program has %1 open; end it first").arg(m_options.device));
    if (answer != QLatin1String(usable))
        throw CommandError(QStringLiteral("%1 cannot be used: %2").arg(m_options.device, answer));
    if (!digitizer->open())
        throw CommandError(QStringLiteral("%1 does not open").arg(m_options.device));
    if (!printOutput(m_writer.header()))
        stop(QStringLiteral("cannot write to the standard output"));
    digitizer->readReport();
}

void CaptureSession::receive(const DigitalReport& report)
{
    m_unread.reportDelivered();
    m_warnedOfUnread = false;
    const PointRole role = roleOf(report, m_options.roles);
    if (m_ending && role != PointRole::Closing)
        return;
    const QPointF point(report.coordinate().x(), report.coordinate().y());
    m_recorder.add(point, role);
    ++m_reports;
    if (!printOutput(m_writer.line({m_reports, point, report.m_button_number, role})))
        stop(QStringLiteral("cannot write to the standard output"));
    else if (m_reports == m_options.count)
        stop();
}

void CaptureSession::lookAfterLine()
{
    if (portIdentity(m_options.device) != m_identity) {
        stop(QStringLiteral("%1 is gone: the tablet or its adapter was pulled out")
                 .arg(m_options.device));
    } else if (m_unread.isStuck() && !m_warnedOfUnread) {
        m_warnedOfUnread = true;
        printError(unreadAdvice(m_options.driver));
    }
}
