// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/CaptureSession.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "DigitizerGeneric/Digitizer/SelectedDevice.h"
#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/Serial/PortRetry.h"

#include <utility>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

QString unreadAdvice(const DescribedDriver& driver)
{
    return QStringLiteral("reading has stopped: the bytes waiting are not exactly one report "
                          "(length %1); press Ctrl-C and start again while the tablet is idle; if "
                          "it happens again, look at the input with 'digitizer monitor'")
        .arg(driver.description.m_reportLength);
}

} // namespace

CaptureSession::CaptureSession(const CaptureOptions& options)
    : m_options(options), m_writer(options.format)
{
    connect(&m_signals, &StopSignals::stopRequested, this, [this] {
        stop(m_gone ? QStringLiteral("%1 did not come back").arg(m_options.device) : QString());
    });
    connect(&m_retry, &QTimer::timeout, this, &CaptureSession::tryAgain);
    listen();
    DigitalReport::registerHandle([this](const DigitalReport& report) { receive(report); });
}

CaptureSession::~CaptureSession()
{
    DigitalReport::unregisterHandle();
}

QString CaptureSession::run(const QString& port)
{
    open(port);
    printError(QStringLiteral("ready: \"%1\" at %2; press Ctrl-C to stop")
                   .arg(m_options.driver.name, m_options.device));
    if (!m_ending)
        m_loop.exec();
    m_ending = true;
    Digitizer::instance()->close();
    return m_problem;
}

void CaptureSession::deviceGone()
{
    if (m_ending)
        return;
    if (!m_options.reconnect) {
        stop(QStringLiteral("%1 is gone; the tablet or its adapter was unplugged")
                 .arg(m_options.device));
        return;
    }
    m_gone = true;
    printError(QStringLiteral("%1 is gone; waiting for it to come back (press Ctrl-C to stop)")
                   .arg(m_options.device));
}

void CaptureSession::deviceBack()
{
    m_gone = false;
    printError(QStringLiteral("%1 is back").arg(m_options.device));
}

void CaptureSession::stop(const QString& problem)
{
    if (m_ending)
        return;
    m_ending = true;
    m_problem = problem;
    m_loop.quit();
}

void CaptureSession::listen()
{
    const InputEvents* const events = Digitizer::instance()->inputEvents();
    connect(events, &InputEvents::bytesPassedOver, this,
            [this](const QByteArray& bytes) { m_passedOver.add(bytes); });
    connect(events, &InputEvents::inputUnread, this, &CaptureSession::adviseOnUnread);
    connect(events, &InputEvents::portLost, this, [this] {
        deviceGone();
        m_retry.start(portRetryMilliseconds);
    });
}

void CaptureSession::open(const QString& port)
{
    const auto digitizer = Digitizer::instance();
    digitizer->selectDriver(m_options.driver, port);
    digitizer->setCheckedReading(!m_options.strictCount);
    const QString problem = SelectedDevice::problem();
    if (!problem.isEmpty())
        throw CommandError(problem);
    if (!digitizer->open())
        throw CommandError(QStringLiteral("cannot open %1").arg(m_options.device));
    if (!printOutput(m_writer.header()))
        stop(QStringLiteral("cannot write to standard output"));
    digitizer->readReport();
}

// Opening replaces the lost port without a closing report, so the output continues.
void CaptureSession::tryAgain()
{
    if (m_ending || !SelectedDevice::problem().isEmpty() || !Digitizer::instance()->open())
        return;
    m_retry.stop();
    Digitizer::instance()->readReport();
    deviceBack();
}

void CaptureSession::receive(const DigitalReport& report)
{
    m_warnedOfUnread = false;
    const PointRole role = roleOf(report, m_options.roles);
    if (m_ending && role != PointRole::Closing)
        return;
    const QPointF point(report.coordinate().x(), report.coordinate().y());
    m_recorder.add(point, role);
    ++m_reports;
    if (!printOutput(m_writer.line({m_reports, point, report.m_button_number, role})))
        stop(QStringLiteral("cannot write to standard output"));
    else if (m_reports == m_options.count)
        stop();
}

void CaptureSession::adviseOnUnread()
{
    if (!std::exchange(m_warnedOfUnread, true))
        printError(unreadAdvice(m_options.driver));
}

} // namespace ReferenceHost
