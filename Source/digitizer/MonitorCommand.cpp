// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/MonitorCommand.h"

#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/InputLines.h"
#include "ReferenceHost/CommandLine/StopSignals.h"
#include "ReferenceHost/Serial/LineMonitor.h"
#include "ReferenceHost/Serial/SerialLine.h"
#include "digitizer/DriverOptions.h"
#include "digitizer/LineOptions.h"

#include <QEventLoop>
#include <QTimer>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

std::optional<DigitalReport> decodeLectraE92(const QByteArray& bytes)
{
    if (bytes.size() < LectraE92::characters || bytes.left(LectraE92::characters).contains('\0'))
        return std::nullopt;
    return LectraE92::reportOf(bytes.constData());
}

LineMonitor monitorFor(const DescribedDriver& driver)
{
    if (driver.isLectraE92())
        return LineMonitor(DigitizerArgument(), decodeLectraE92);
    const DigitizerArgument& description = driver.description;
    return LineMonitor(description,
                       [description, layout = ReportLayout(description)](const QByteArray& bytes) {
                           return FieldDecoding::reportOf(description, layout, bytes.constData(),
                                                          FieldDecoding::decodeButton |
                                                              FieldDecoding::decodeCoordinate);
                       });
}

// Returns whether the user stopped; otherwise the port is gone.
bool showLine(SerialLine& line, LineMonitor& monitor)
{
    QEventLoop loop;
    bool stopped = true;
    const auto show = [&](const QString& text) {
        if (!printOutput(text))
            loop.quit();
    };
    QTimer quiet;
    quiet.setSingleShot(true);
    QObject::connect(&quiet, &QTimer::timeout, [&] {
        // Only a second check tells a quiet port from a terminal that kept this program waiting.
        if (quiet.interval() > 0)
            quiet.start(0);
        else
            show(monitor.pause(line.elapsed()));
    });
    QObject::connect(&line, &SerialLine::received, [&](const QByteArray& bytes) {
        quiet.start(monitor.pauseMilliseconds());
        show(monitor.take(line.elapsed(), bytes));
    });
    QObject::connect(&line, &SerialLine::ended, [&] {
        stopped = false;
        loop.quit();
    });
    const StopSignals stop;
    QObject::connect(&stop, &StopSignals::stopRequested, &loop, &QEventLoop::quit);
    const InputLines input;
    QObject::connect(&input, &InputLines::entered, [&] { show(monitor.summary()); });
    loop.exec();
    show(monitor.pause(line.elapsed()) + monitor.summary());
    return stopped;
}

int run(const QCommandLineParser& parser)
{
    const bool hasDriver = DriverOptions::areGiven(parser);
    if (hasDriver && LineOptions::areGiven(parser))
        throw CommandError(
            QStringLiteral("the description contains the serial settings; leave out --baudrate, "
                           "--databit, --parity, --stopbit and --flowctrl"),
            ExitUsage);
    PortSettings settings = LineOptions::settings(parser, LineOptions::usualSettings());
    LineMonitor monitor;
    if (hasDriver) {
        const DescribedDriver driver = DriverOptions::chosenWithReports(parser);
        monitor = monitorFor(driver);
        settings = driver.description.m_portSettings;
    }
    SerialLine line;
    valueOrThrow(line.open(LineOptions::device(parser), settings));
    if (!showLine(line, monitor))
        throw CommandError(QStringLiteral("the port is lost; check the cable and start again"));
    return ExitSuccess;
}

} // namespace

Command monitorCommand()
{
    Command command;
    command.name = QStringLiteral("monitor");
    command.summary = QStringLiteral("show every byte that arrives at a serial port");
    command.description = QStringList{
        QStringLiteral(
            "Shows all bytes in hexadecimal and as text, with the seconds since the start. With "
            "--driver or --description it also shows which of them are reports, with the button "
            "and the point in centimetres, and which ones the library passes over. Below each byte "
            "is its role in the template, with \"!\" in front if the byte does not fit it. \"?\" "
            "marks bytes whose number is not the length of a report."),
        QStringLiteral(
            "'digitizer capture' delivers the same reports, unless --strict-count is given."),
        QStringLiteral("Ctrl-C stops and prints a summary: bytes, reports, reports per second, "
                       "bytes passed over, and the largest x and y. Enter prints the summary at "
                       "any time. No other program may have the port open.")};
    command.options = LineOptions::options();
    command.options.insert(1, DriverOptions::driver());
    command.options.insert(2, DriverOptions::description());
    command.examples = {
        {QStringLiteral("digitizer monitor --device /dev/ttyUSB0 --baudrate 9600 --databit 7 "
                        "--parity Even"),
         QStringLiteral("Show the bytes of an unknown tablet. If they are unreadable, the settings "
                        "are wrong.")},
        {QStringLiteral("digitizer monitor --device /dev/ttyUSB0 --driver \"Genius NewSketch MM "
                        "(500 LPI)\""),
         QStringLiteral("Show the reports of a known tablet.")}};
    command.exitStatusNotes = QStringList{
        QStringLiteral("'monitor' exits with 0 after Ctrl-C, and with 1 if the port is lost.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
