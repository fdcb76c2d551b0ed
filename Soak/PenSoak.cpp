// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "PenSoak.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "NumberedPenFile.h"
#include "NumberedReport.h"
#include "PenTally.h"
#include "PenWriter.h"
#include "ReferenceHost/Command.h"
#include "ReferenceHost/Console.h"
#include "ReferenceHost/PenDirectory.h"
#include "StallingHost.h"
#include "support/TestHost.h"

#include <QSettings>

using namespace MavSystem;

namespace {

constexpr int settleTime = 500; // milliseconds, as the reference hosts have it

void openPens(const QString& directory)
{
    QDir().mkpath(directory);
    QSettings().setValue(QStringLiteral("digitizer_file_directory"), directory);
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("Soak"), QStringLiteral("File:"));
    digitizer->setPenFileSettleTime(settleTime);
    if (!digitizer->open())
        throw CommandError(QStringLiteral("the directory '%1' does not open").arg(directory));
}

} // namespace

bool soakPens(int files, unsigned seed)
{
    TestHost testHost;
    testHost.writeDescription(QStringLiteral("soak.xml"), NumberedReport::description);
    const QString directory = testHost.path(QStringLiteral("pens"));
    PenTally tally(files);
    PenWriter writer(directory, files, seed, tally);
    StallingHost host(seed, 2500, files * NumberedPenFile::points,
                      [&](const DigitalReport& report) { tally.take(report); });
    openPens(directory);
    writer.start();
    host.run([&] {
        return writer.isFinished() && tally.wholeFiles() >= files &&
               Digitizer::instance()->unsettledPenFiles() == 0;
    });
    writer.requestInterruption();
    writer.wait();
    Digitizer::instance()->close();

    const PenDirectory left(directory);
    printOutput(tally.summary() + writer.summary() +
                QStringLiteral("renamed to .txt %1, left as .dat %2\n")
                    .arg(left.imported())
                    .arg(left.waiting()) +
                host.summary());
    const bool asPromised = tally.isAsPromised() && left.imported() == files && left.waiting() == 0;
    if (!asPromised && writer.longestPause() >= settleTime)
        printOutput(QStringLiteral("The machine was too busy: a file was left alone for longer "
                                   "than the settle time and may be cut short rightly.\n"));
    return asPromised;
}
