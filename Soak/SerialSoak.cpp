// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/Serial/RecordedSession.h"
#include "ReportTally.h"
#include "Soak.h"
#include "StallingHost.h"
#include "support/TestHost.h"

#include <QProcess>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {

QMap<int, QByteArray> chosenDamage(const SoakOptions& options)
{
    QMap<int, QByteArray> damaged;
    std::mt19937 random(options.seed);
    for (int number = 0; options.damageOneIn > 0 && number < options.reports; ++number) {
        if (random() % unsigned(options.damageOneIn) == 0)
            damaged[number] = NumberedReport::damaged(NumberedReport::bytesOf(number), random);
    }
    return damaged;
}

void writeSession(const QString& path, int reports, const QMap<int, QByteArray>& damaged)
{
    SessionWriter writer(path, {});
    for (int number = 0; number < reports && writer.errorString().isEmpty(); ++number)
        writer.append(
            {0, damaged.contains(number) ? damaged[number] : NumberedReport::bytesOf(number)});
    if (!writer.errorString().isEmpty())
        throw CommandError(path + QStringLiteral(": ") + writer.errorString());
}

// Sends each report in two writes and keeps the port open until it is stopped.
QString startSimulator(QProcess& simulator, const QString& session, const SoakOptions& options)
{
    QStringList arguments = {QStringLiteral("--replay"), session, QStringLiteral("--stay"),
                             QStringLiteral("--split"), QString::number(1 + options.seed % 17)};
    arguments += options.lineSpeed ? QStringList{QStringLiteral("--rate"), QStringLiteral("100")}
                                   : QStringList{QStringLiteral("--flood")};
    simulator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    simulator.start(QStringLiteral(PROGRAM_DIRECTORY "/tablet-simulator"), arguments);
    while (!simulator.canReadLine() && simulator.waitForReadyRead(60000)) {
    }
    return QString::fromLocal8Bit(simulator.readLine()).trimmed();
}

// Stops the simulator. Returns whether it has sent everything and the host has read it.
bool stopSimulator(QProcess& simulator)
{
    simulator.terminate();
    return simulator.waitForFinished() && simulator.exitStatus() == QProcess::NormalExit &&
           simulator.exitCode() == ExitSuccess;
}

void openTablet(const QString& port, const SoakOptions& options)
{
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("Soak"), port);
    digitizer->setCheckedReading(!options.plain);
    if (!digitizer->open())
        throw CommandError(QStringLiteral("cannot open %1").arg(port));
    digitizer->readReport();
}

} // namespace

bool soakSerial(const SoakOptions& options)
{
    TestHost testHost;
    testHost.writeDescription(QStringLiteral("soak.xml"), NumberedReport::description);
    for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"}) // of the simulator
        qputenv(variable, QFile::encodeName(testHost.path(QStringLiteral("home"))));
    const QMap<int, QByteArray> damaged = chosenDamage(options);
    const QString session = testHost.path(QStringLiteral("session.log"));
    writeSession(session, options.reports, damaged);
    QProcess simulator;
    const QString port = startSimulator(simulator, session, options);

    ReportTally tally(options.reports, damaged);
    StallingHost host(options.seed, options.lineSpeed ? 25 : 2500, options.reports,
                      [&](const DigitalReport& report) { tally.take(report); });
    qint64 passedOver = 0;
    qint64 unread = 0;
    const InputEvents* const events = Digitizer::instance()->inputEvents();
    QObject::connect(events, &InputEvents::bytesPassedOver, &simulator,
                     [&](const QByteArray& bytes) { passedOver += bytes.size(); });
    QObject::connect(events, &InputEvents::inputUnread, &simulator, [&](qint64 bytes) {
        unread = bytes;
        host.stop();
    });
    openTablet(port, options);
    host.run([&] { return tally.isComplete(); });
    const bool allTaken = stopSimulator(simulator);
    DigitalReport::unregisterHandle();
    Digitizer::instance()->close();

    std::printf("bytes passed over %lld, unread %lld; the host read %s\n", passedOver, unread,
                allTaken ? "everything" : "only a part");
    const bool asPromised = tally.finish() && (options.damageOneIn > 0 || passedOver == 0);
    return options.plain || (asPromised && allTaken);
}
