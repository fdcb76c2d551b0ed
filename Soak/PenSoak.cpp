// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "PenTally.h"
#include "PenWriter.h"
#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/Host/PenDirectory.h"
#include "Soak.h"
#include "StallingHost.h"
#include "support/TestHost.h"

#include <QSettings>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {

constexpr int settleTime = 500; // milliseconds, as in the reference hosts

void openPens(const QString& directory)
{
    QDir().mkpath(directory);
    QSettings().setValue(QStringLiteral("digitizer_file_directory"), directory);
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("Soak"), QStringLiteral("File:"));
    digitizer->setPenFileSettleTime(settleTime);
    if (!digitizer->open())
        throw CommandError(QStringLiteral("cannot open the directory %1").arg(directory));
}

} // namespace

bool soakPens(const SoakOptions& options)
{
    TestHost testHost;
    testHost.writeDescription(QStringLiteral("soak.xml"), NumberedReport::description);
    const QString directory = testHost.path(QStringLiteral("pens"));
    PenTally tally(options.files);
    PenWriter writer(directory, options.files, options.seed, tally);
    StallingHost host(options.seed, 2500, options.files * PenTally::points,
                      [&](const DigitalReport& report) { tally.take(report); });
    openPens(directory);
    writer.start();
    host.run([&] {
        return writer.isFinished() && tally.wholeFiles() >= options.files &&
               Digitizer::instance()->unsettledPenFiles() == 0;
    });
    writer.stop();
    Digitizer::instance()->close();

    const PenDirectory left(directory);
    std::printf("written %d, half of them slowly, up to %d at a time, longest pause in a file %d "
                "ms, failed writes %d; renamed to .txt %d, left as .dat %d\n",
                writer.begun(), writer.mostAtOnce(), writer.longestPause(), writer.failedWrites(),
                left.imported(), left.waiting());
    const bool asPromised =
        tally.finish() && left.imported() == options.files && left.waiting() == 0;
    if (!asPromised && writer.longestPause() >= settleTime)
        std::printf("The machine was too busy: a file was not written for longer than the settle "
                    "time, so it may rightly be cut short.\n");
    return asPromised;
}
