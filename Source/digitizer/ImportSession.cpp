// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/ImportSession.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/SettingKeys.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/Counted.h"
#include "ReferenceHost/CommandLine/StopSignals.h"
#include "ReferenceHost/Host/ImportHost.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QSettings>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

constexpr int progressMilliseconds = 300;
constexpr int settledMilliseconds = 100;   // between two checks for waiting files
constexpr int directoryMilliseconds = 500; // between two checks of a watched directory
constexpr int namesListed = 20;

void listFiles(const QStringList& lines)
{
    for (const QString& line : lines.mid(0, namesListed))
        printError(line);
    if (lines.size() > namesListed)
        printError(QStringLiteral("and %1").arg(counted(lines.size() - namesListed, "more file")));
}

} // namespace

ImportSession::ImportSession(const ImportOptions& options)
    : m_options(options),
      m_directory(options.directory),
      m_writer(options.format),
      m_roles(standardButtonRoles(options.driver)),
      m_waitingBefore(m_directory.waiting()),
      m_importedBefore(m_directory.imported()),
      m_unreadable(m_directory.unreadable()),
      // Reports that are printed on the terminal show the progress themselves.
      m_progressPossible(isatty(STDERR_FILENO) && !isatty(STDOUT_FILENO))
{
    m_sinceProgress.start();
    DigitalReport::registerHandle([this](const DigitalReport& report) { receive(report); });
}

ImportSession::~ImportSession()
{
    DigitalReport::unregisterHandle();
}

int ImportSession::run()
{
    const ImportHost host(m_options.answer);
    QSettings().setValue(QLatin1String(SettingKeys::penDirectory), m_options.directory);
    const auto digitizer = Digitizer::instance();
    digitizer->selectDriver(m_options.driver, penDevice());
    digitizer->setExtended4Buttons(m_options.extendedButtons);
    digitizer->setPenFileSettleTime(m_options.settleMilliseconds);
    digitizer->m_host_mode = m_options.mode;
    if (!printOutput(m_writer.header()))
        throw CommandError(QStringLiteral("cannot write to standard output"));
    const bool open = digitizer->open();
    if (open && !m_options.watch)
        waitUntilSettled();
    clearProgress();
    if (open && m_options.watch)
        watch();
    digitizer->close();
    const int status = sumUp(open, host.answered() == ImportHost::Delete);
    return m_gone ? ExitFailure : status;
}

void ImportSession::receive(const DigitalReport& report)
{
    const PointRole role = roleOf(report, m_roles);
    const QPointF point(report.coordinate().x(), report.coordinate().y());
    ++m_reports;
    ++m_points[role];
    if (m_options.keepPieces)
        m_recorder.add(point, role);
    if (!printOutput(m_writer.line({m_reports, point, report.m_button_number, role}))) {
        // An import cannot be stopped from its handler, and a file that is read to its end counts
        // as imported. Exiting here leaves this file and those after it unchanged.
        clearProgress();
        printError(QStringLiteral("cannot write to standard output; the current pen file and those "
                                  "after it are left unchanged"));
        std::_Exit(ExitFailure);
    }
    if (m_progressPossible && m_sinceProgress.hasExpired(progressMilliseconds))
        showProgress();
}

void ImportSession::showProgress()
{
    const int done = m_waitingBefore - m_directory.waiting();
    std::fprintf(stderr, "\r\033[K%d of %s, %s", done, qPrintable(counted(m_waitingBefore, "file")),
                 qPrintable(counted(m_reports, "point")));
    m_progressShown = true;
    m_sinceProgress.restart();
}

void ImportSession::clearProgress()
{
    if (m_progressShown)
        std::fputs("\r\033[K", stderr);
    m_progressPossible = m_progressShown = false;
}

// Polls \a isDone.
void ImportSession::runUntilStopped(int intervalMilliseconds, const std::function<bool()>& isDone)
{
    const StopSignals stopSignals;
    QEventLoop loop;
    QObject::connect(&stopSignals, &StopSignals::stopRequested, &loop, &QEventLoop::quit);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (isDone())
            loop.quit();
    });
    timer.start(intervalMilliseconds);
    loop.exec();
}

void ImportSession::waitUntilSettled()
{
    const auto digitizer = Digitizer::instance();
    if (digitizer->unsettledPenFiles() == 0)
        return;
    runUntilStopped(settledMilliseconds, [&] {
        const bool done = digitizer->unsettledPenFiles() == 0;
        if (!done && m_progressPossible) {
            std::fprintf(stderr, "\r\033[Kwaiting for %s to be complete",
                         qUtf8Printable(m_directory.lastChanged()));
            m_progressShown = true;
        }
        return done;
    });
}

void ImportSession::watch()
{
    printError(QStringLiteral("watching %1; press Ctrl-C to stop").arg(m_options.directory));
    runUntilStopped(directoryMilliseconds, [this] { return lookAfterDirectory(); });
}

// Returns whether watching ends.
bool ImportSession::lookAfterDirectory()
{
    countImported();
    const bool gone = !QFileInfo(m_options.directory).isDir();
    if (gone == m_gone)
        return false;
    m_gone = gone;
    // Without a settle time the library does not notice that the directory is back.
    const bool ends = gone && m_options.settleMilliseconds == 0;
    printError(
        QStringLiteral("%1 is %2")
            .arg(m_options.directory,
                 QLatin1String(ends   ? "gone"
                               : gone ? "gone; waiting for it to come back (press Ctrl-C to stop)"
                                      : "back")));
    return ends;
}

void ImportSession::countImported()
{
    const int imported = m_directory.imported();
    m_imported += std::max(0, imported - m_importedBefore);
    m_importedBefore = imported;
}

int ImportSession::sumUp(bool imported, bool deleted)
{
    countImported();
    const QVector<PenDirectory::Left> left = m_directory.left();
    if (deleted) {
        printError(
            QStringLiteral("%1 deleted").arg(counted(m_waitingBefore - left.size(), "file")));
        return left.isEmpty() ? ExitSuccess : ExitFailure;
    }
    if (!imported) {
        printError(QStringLiteral("nothing was imported; %1")
                       .arg(counted(left.size(), "file") + QStringLiteral(" left")));
        return ExitFailure;
    }
    QStringList kinds;
    for (auto kind = m_points.cbegin(); kind != m_points.cend(); ++kind)
        kinds << QStringLiteral("%1 %2").arg(roleName(kind.key()), QString::number(kind.value()));
    printError(QStringLiteral("%1 imported, %2%3%4")
                   .arg(counted(m_imported, "file"), counted(m_reports, "point"),
                        QLatin1String(kinds.isEmpty() ? "" : ": "),
                        kinds.join(QStringLiteral(", "))));
    QStringList lines;
    for (const QString& name : m_unreadable)
        lines << QStringLiteral(
                     "%1 could not be read; it was renamed, but its points were not imported")
                     .arg(name);
    for (const PenDirectory::Left& file : left)
        lines << QStringLiteral("%1 is left: %2").arg(file.name, file.reason);
    listFiles(lines);
    return lines.isEmpty() ? ExitSuccess : ExitFailure;
}

} // namespace ReferenceHost
