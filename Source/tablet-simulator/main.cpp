// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "DigitizerGeneric/DigitizerGenericVersion.h"
#include "QextSerialPort/SerialTiming.h"
#include "ReferenceHost/CommandLine/CommandLine.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/DriverOptions.h"
#include "ReferenceHost/Host/StandardHost.h"
#include "ReferenceHost/Serial/RecordedSession.h"
#include "tablet-simulator/PieceScript.h"
#include "tablet-simulator/PortLink.h"
#include "tablet-simulator/TabletRun.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <csignal>

using namespace TabletSimulation;

using namespace MavSystem;
using namespace ReferenceHost;

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    const QString problem = openRegularFile(file);
    if (!problem.isEmpty())
        throw CommandError(QStringLiteral("'%1' cannot be read: %2").arg(path, problem));
    return file.readAll();
}

DescribedDriver chosenDriver(const QCommandLineParser& parser)
{
    if (parser.isSet(QStringLiteral("description")))
        return requireReports(driverFromFile(parser.value(QStringLiteral("description"))));
    const QString name = requiredValue(parser, QStringLiteral("driver"),
                                       QStringLiteral("'digitizer drivers' lists them"));
    // Its layout is built in, so it needs no description.
    DescribedDriver driver;
    driver.name = name;
    if (driver.isLectraE92() && !DescriptionFolder::find(name)) {
        driver.description.m_portSettings.BaudRate = BAUD9600;
        driver.description.m_portSettings.DataBits = DATA_8;
        return driver;
    }
    return requireReports(requiredDriver(name));
}

QVector<Press> chosenPresses(const QCommandLineParser& parser, const DescribedDriver& driver)
{
    if (!parser.isSet(QStringLiteral("script")))
        return bodiceFront(driver.isLectraE92() ? 2 : 1,
                           !driver.description.m_fourButtons && !driver.isLectraE92());
    const QString path = parser.value(QStringLiteral("script"));
    const ReadScript script = readScript(contentOf(path));
    if (!script.error.isEmpty())
        throw CommandError(path + QStringLiteral(": ") + script.error);
    return script.presses;
}

QByteArray encoded(const Press& press, const DescribedDriver& driver)
{
    const EncodedReport report = driver.isLectraE92() ? encodeLectraE92Report(press)
                                                      : encodeReport(driver.description, press);
    if (!report.error.isEmpty())
        throw CommandError(report.error);
    return report.bytes;
}

qint64 microsecondsOnLine(const PortSettings& settings, int characters)
{
    return qint64(characters * SerialTiming::characterMicroseconds(settings));
}

int longestOf(const QVector<Transmission>& reports)
{
    int longest = 0;
    for (const Transmission& report : reports)
        longest = std::max(longest, report.bytes.size());
    return longest;
}

LineFaults chosenFaults(const QCommandLineParser& parser, const QVector<Transmission>& reports)
{
    LineFaults faults;
    faults.splitOffset = numberValue(parser, QStringLiteral("split"), 1, 511, 0);
    faults.mergedReports = numberValue(parser, QStringLiteral("merge"), 2, 1000, 1);
    faults.garbage = parser.isSet(QStringLiteral("garbage"));
    faults.seed = unsigned(numberValue(parser, QStringLiteral("seed"), 0, 2147483647, 1));
    faults.hangUpAfter = numberValue(parser, QStringLiteral("hangup-after"), 0, 1000000000, -1);
    const int longest = longestOf(reports) * faults.mergedReports;
    if (faults.splitOffset >= longest)
        throw CommandError(QStringLiteral("--split is %1, but at most %2 bytes are sent at once")
                               .arg(faults.splitOffset)
                               .arg(longest),
                           ExitUsage);
    if (faults.garbage)
        printError(QStringLiteral("garbage of seed %1").arg(faults.seed));
    return faults;
}

QVector<Transmission> simulated(const QCommandLineParser& parser)
{
    const DescribedDriver driver = chosenDriver(parser);
    QVector<Transmission> reports;
    for (const Press& press : chosenPresses(parser, driver)) {
        const QByteArray bytes = encoded(press, driver);
        reports.append(
            {microsecondsOnLine(driver.description.m_portSettings, bytes.size()), bytes});
    }
    return reports;
}

QVector<Transmission> replayed(const QString& path)
{
    const ReadSession read = readSession(contentOf(path));
    if (!read.error.isEmpty())
        throw CommandError(path + QStringLiteral(": ") + read.error);
    QVector<Transmission> chunks;
    qint64 before = 0;
    for (const RecordedSession::Chunk& chunk : read.session.chunks) {
        chunks.append({(chunk.milliseconds - before) * 1000, chunk.bytes});
        before = chunk.milliseconds;
    }
    return chunks;
}

// What is to be sent, in the pace that the command line asks for.
QVector<Transmission> chosenReports(const QCommandLineParser& parser)
{
    const QVector<Transmission> once = parser.isSet(QStringLiteral("replay"))
                                           ? replayed(parser.value(QStringLiteral("replay")))
                                           : simulated(parser);
    if (once.isEmpty())
        throw CommandError(QStringLiteral("there is nothing to send"));
    const int rate = numberValue(parser, QStringLiteral("rate"), 1, 10000, 0);
    const int repetitions = numberValue(parser, QStringLiteral("repeat"), 1, 1000000, 1);
    QVector<Transmission> reports;
    for (int round = 0; round < repetitions; ++round)
        reports += once;
    if (rate > 0) {
        for (Transmission& report : reports)
            report.pauseMicroseconds = 1000000 / rate;
    }
    return reports;
}

void refuseContradictions(const QCommandLineParser& parser)
{
    constexpr const char* contradictions[][2] = {
        {"description", "driver"}, {"replay", "driver"},    {"replay", "description"},
        {"replay", "script"},      {"fast", "rate"},        {"fast", "flood"},
        {"flood", "rate"},         {"hangup-after", "stay"}};
    for (const auto& [one, other] : contradictions) {
        if (parser.isSet(QLatin1String(one)) && parser.isSet(QLatin1String(other)))
            throw CommandError(QStringLiteral("--%1 and --%2 exclude each other")
                                   .arg(QLatin1String(one), QLatin1String(other)),
                               ExitUsage);
    }
}

Pace chosenPace(const QCommandLineParser& parser)
{
    if (parser.isSet(QStringLiteral("flood")))
        return Pace::Flood;
    return parser.isSet(QStringLiteral("fast")) ? Pace::Taken : Pace::Timed;
}

void stopOnSignals()
{
    struct sigaction action = {};
    action.sa_handler = [](int) { stopTabletRun(); };
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
}

int run(const QCommandLineParser& parser)
{
    refuseContradictions(parser);
    const QVector<Transmission> reports = chosenReports(parser);
    const QVector<Transmission> writes = withFaults(reports, chosenFaults(parser, reports));
    RunOptions options;
    options.openDelayMilliseconds =
        numberValue(parser, QStringLiteral("delay"), 0, 60000, options.openDelayMilliseconds);
    options.pace = chosenPace(parser);
    options.stay = parser.isSet(QStringLiteral("stay"));

    PseudoTerminal tablet;
    if (!tablet.isOpen())
        throw CommandError(
            QStringLiteral("there is no pseudo-terminal: %1").arg(tablet.errorString()));
    const PortLink link(tablet.path(), parser.value(QStringLiteral("link")));
    stopOnSignals();
    printOutput(link.path() + QLatin1Char('\n'));
    return runTablet(tablet, writes, options) ? ExitSuccess : ExitFailure;
}

QCommandLineOption option(const char* name, const char* explanation, const char* value = "")
{
    return QCommandLineOption(QString::fromLatin1(name), QString::fromLatin1(explanation),
                              QString::fromLatin1(value));
}

Program simulatorProgram()
{
    Command command;
    command.options = {
        option("driver", "The tablet: the name of an installed description, or \"Lectra E92\".",
               "NAME"),
        option("description", "The tablet: a description file, instead of --driver.", "FILE"),
        option("script",
               "Send this instead of the built-in piece: \"x y button\" a line, in centimetres and "
               "the button number that is to arrive; # begins a comment.",
               "FILE"),
        option(
            "replay",
            "Send a recorded session, in its own time unless --rate, --fast or --flood is given; "
            "it needs no tablet.",
            "FILE"),
        option("link", "Make a symbolic link to the port; it is removed at the end.", "PATH"),
        option("rate",
               "Send so many reports a second. Default: as many as the line's speed allows.", "N"),
        option("fast", "Send each report as soon as the one before has been taken."),
        option(
            "flood",
            "Send everything as fast as the line takes it, whether the program reads or not, and "
            "wait while the line is full. Reports then arrive merged and in pieces."),
        option("repeat", "Send everything so often.", "N"),
        option("delay",
               "Wait until the port has been open for so many milliseconds (default 300); a driver "
               "discards what arrives while it opens.",
               "MS"),
        option("stay", "Keep the port at the end until stopped with Ctrl-C."),
        option("split", "Fault: send each report in two writes, the first of so many bytes.",
               "OFFSET"),
        option(
            "merge",
            "Fault: send so many reports in one write. A driver without checked reading then reads "
            "nothing more until its port is opened again.",
            "K"),
        option("garbage", "Fault: send one to four random bytes between reports."),
        option("seed", "Seed of the random bytes (default 1).", "N"),
        option("hangup-after", "Fault: pull the cable after so many reports.", "N"),
    };
    command.examples = {
        {QStringLiteral("tablet-simulator --driver 'Generic 5-5-1 (ASCII)' --link /tmp/tablet"),
         QStringLiteral(
             "Wait for a program that opens /tmp/tablet and trace a bodice front there.")},
        {QStringLiteral("tablet-simulator --replay session.log --fast"),
         QStringLiteral("Send a recorded session again.")},
    };
    command.exitStatusNotes =
        QStringList{QStringLiteral("0 when all was sent, 1 when it was stopped before.")};
    command.run = run;

    Program program;
    program.name = QStringLiteral("tablet-simulator");
    program.version = versionText();
    program.summary = QStringLiteral("a digitizing tablet without a tablet");
    program.description =
        QStringList{QStringLiteral("Opens a pseudo-terminal, prints its path, waits until a "
                                   "program opens that as a serial port, and "
                                   "sends reports as the described tablet does. What the program "
                                   "sends, such as a beep, is printed "
                                   "to the error stream."),
                    QStringLiteral("The built-in piece is a bodice front: button 1 corner, 2 curve "
                                   "point, 3 punch hole, 4 end of piece "
                                   "and, on tablets with sixteen buttons, 5 notch; with four "
                                   "buttons the notches are left out. The \"Lectra E92\" numbers "
                                   "its four buttons from 2.")};
    program.commands = {command};
    return program;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Program program = simulatorProgram();
    const StandardHost host(program.name);
    return runProgram(program, application.arguments());
}
