// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "SerialSoak.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "NumberedReport.h"
#include "ReferenceHost/Command.h"
#include "ReferenceHost/Console.h"
#include "ReferenceHost/RecordedSession.h"
#include "ReportTally.h"
#include "StallingHost.h"
#include "support/TestHost.h"

#include <QProcess>

#include <random>

using namespace MavSystem;

namespace {

/// The program tablet-simulator, which sends a session and keeps the line until it is stopped.
class Tablet : public QProcess
{
public:
    Tablet(const TestHost& host, const QString& session)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
            environment.insert(QLatin1String(variable), host.path(QStringLiteral("home")));
        setProcessEnvironment(environment);
        setProcessChannelMode(QProcess::ForwardedErrorChannel);
        start(QStringLiteral(PROGRAM_DIRECTORY "/tablet-simulator"),
              {QStringLiteral("--replay"), session, QStringLiteral("--flood"),
               QStringLiteral("--stay")});
    }

    QString waitForPort()
    {
        while (!canReadLine() && waitForReadyRead(60000)) {
        }
        return QString::fromLocal8Bit(readLine()).trimmed();
    }

    /// Returns whether the host has taken everything.
    bool stop()
    {
        terminate();
        return waitForFinished() && exitStatus() == NormalExit && exitCode() == ExitSuccess;
    }
};

QMap<int, QByteArray> chosenDamage(const SerialSoakOptions& options)
{
    QMap<int, QByteArray> damaged;
    std::mt19937 random(options.seed);
    for (int number = 0; options.damageOneIn > 0 && number < options.reports; ++number) {
        if (random() % unsigned(options.damageOneIn) == 0)
            damaged.insert(number,
                           NumberedReport::damaged(NumberedReport::bytesOf(number), random));
    }
    return damaged;
}

QString writeSession(const TestHost& host, int reports, const QMap<int, QByteArray>& damaged)
{
    const QString path = host.path(QStringLiteral("session.log"));
    SessionWriter writer(path, {});
    for (int number = 0; number < reports && writer.errorString().isEmpty(); ++number) {
        const auto become = damaged.constFind(number);
        writer.append(
            {0, become == damaged.constEnd() ? NumberedReport::bytesOf(number) : become.value()});
    }
    if (!writer.errorString().isEmpty())
        throw CommandError(
            QStringLiteral("'%1' cannot be written: %2").arg(path, writer.errorString()));
    return path;
}

void openTablet(const QString& port, bool checkedReading)
{
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("Soak"), port);
    digitizer->setCheckedReading(checkedReading);
    if (!digitizer->open())
        throw CommandError(QStringLiteral("the port '%1' does not open").arg(port));
    digitizer->readReport();
}

} // namespace

bool soakSerial(const SerialSoakOptions& options)
{
    TestHost testHost;
    testHost.writeDescription(QStringLiteral("soak.xml"), NumberedReport::description);
    const QMap<int, QByteArray> damaged = chosenDamage(options);
    Tablet tablet(testHost, writeSession(testHost, options.reports, damaged));
    const QString port = tablet.waitForPort();

    ReportTally tally(options.reports, damaged);
    StallingHost host(options.seed, options.reports,
                      [&](const DigitalReport& report) { tally.take(report); });
    qint64 passedOver = 0;
    qint64 unread = 0;
    InputEvents* const events = Digitizer::instance()->inputEvents();
    QObject::connect(events, &InputEvents::bytesPassedOver, &tablet,
                     [&](const QByteArray& bytes) { passedOver += bytes.size(); });
    QObject::connect(events, &InputEvents::inputUnread, &tablet, [&](qint64 bytes) {
        unread = bytes;
        host.stop();
    });
    openTablet(port, options.checkedReading);
    host.run([&] { return tally.handedOver() == tally.sent(); });
    const QString hostSummary = host.summary();
    const bool allTaken = tablet.stop();
    tally.finish();
    DigitalReport::unregisterHandle();
    Digitizer::instance()->close();

    printOutput(tally.summary() +
                QStringLiteral("bytes passed over %1, unread %2; the line has taken %3\n")
                    .arg(passedOver)
                    .arg(unread)
                    .arg(QLatin1String(allTaken ? "everything" : "a part only")) +
                hostSummary);
    return !options.checkedReading ||
           (allTaken && tally.isAsPromised() && (options.damageOneIn > 0 || passedOver == 0));
}
