// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/LineTap.h"

#include "ReferenceHost/Descriptions/DescriptionTexts.h"
#include "ReferenceHost/Serial/PortRetry.h"

#include <QSocketNotifier>

namespace ReferenceHost {

namespace {

RecordedSession headerOf(const MavSystem::DescribedDriver& driver)
{
    RecordedSession session;
    session.tablet = driver.name;
    session.driver = driver.name;
    session.settings = lineSettingsText(driver.description.m_portSettings);
    session.date = QDateTime::currentDateTimeUtc();
    return session;
}

} // namespace

LineTap::LineTap(const MavSystem::DescribedDriver& driver, const QString& path)
    : m_writer(path, headerOf(driver))
{}

tl::expected<std::unique_ptr<LineTap>, QString>
LineTap::start(const MavSystem::DescribedDriver& driver, const QString& device, const QString& path)
{
    std::unique_ptr<LineTap> tap(new LineTap(driver, path));
    if (!tap->problem().isEmpty())
        return tl::unexpected(QStringLiteral("cannot record to %1: %2").arg(path, tap->problem()));
    if (!tap->m_terminal.isOpen())
        return tl::unexpected(
            QStringLiteral("cannot open a pseudo-terminal: %1").arg(tap->m_terminal.errorString()));
    const auto opened = tap->m_line.open(device, driver.description.m_portSettings);
    if (!opened)
        return tl::unexpected(opened.error());
    tap->connectEnds();
    return tap;
}

void LineTap::connectEnds()
{
    connect(&m_line, &SerialLine::received, this, &LineTap::record);
    connect(&m_line, &SerialLine::ended, this, [this] {
        m_retry.start(portRetryMilliseconds);
        Q_EMIT lost();
    });
    connect(&m_retry, &QTimer::timeout, this, &LineTap::tryAgain);
    m_writable = new QSocketNotifier(m_terminal.descriptor(), QSocketNotifier::Write, this);
    m_writable->setEnabled(false);
    connect(m_writable, &QSocketNotifier::activated, this, &LineTap::passToDriver);
    auto* const notifier =
        new QSocketNotifier(m_terminal.descriptor(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &LineTap::passToTablet);
}

LineTap::~LineTap() = default;

void LineTap::tryAgain()
{
    if (!m_line.reopen())
        return;
    m_retry.stop();
    Q_EMIT returned();
}

void LineTap::record(const QByteArray& bytes)
{
    m_writer.append({m_line.elapsed(), bytes});
    m_toDriver += bytes;
    passToDriver();
}

// Never waits: the driver reads in the same event loop.
void LineTap::passToDriver()
{
    m_toDriver.remove(0, m_terminal.writeSome(m_toDriver, 0));
    m_writable->setEnabled(!m_toDriver.isEmpty());
}

void LineTap::passToTablet()
{
    m_line.write(m_terminal.read());
}

} // namespace ReferenceHost
