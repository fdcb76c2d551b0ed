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

constexpr unsigned splitOffsets = 17; // the shortest report, one that has lost a byte, has 18

/// The program tablet-simulator, which sends a session and keeps the line until it is stopped.
class Tablet : public QProcess
{
public:
    Tablet(const TestHost& host, const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
            environment.insert(QLatin1String(variable), host.path(QStringLiteral("home")));
        setProcessEnvironment(environment);
        setProcessChannelMode(QProcess::ForwardedErrorChannel);
        start(QStringLiteral(PROGRAM_DIRECTORY "/tablet-simulator"), arguments);
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

QStringList tabletArguments(const QString& session, const SerialSoakOptions& options)
{
    const QStringList arguments = {QStringLiteral("--replay"), session, QStringLiteral("--stay"),
                                   QStringLiteral("--split"),
                                   QString::number(1 + options.seed % splitOffsets)};
    return arguments + (options.lineSpeed
                            ? QStringList{QStringLiteral("--rate"), QStringLiteral("100")}
                            : QStringList{QStringLiteral("--flood")});
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
    Tablet tablet(testHost,
                  tabletArguments(writeSession(testHost, options.reports, damaged), options));
    const QString port = tablet.waitForPort();

    ReportTally tally(options.reports, damaged);
    StallingHost host(options.seed, options.lineSpeed ? 25 : 2500, options.reports,
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
    host.run([&] { return tally.isComplete(); });
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
