// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/CaptureCommand.h"

#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/DriverOptions.h"
#include "ReferenceHost/Pieces/OutputOptions.h"
#include "ReferenceHost/Serial/LineTap.h"
#include "ReferenceHost/Serial/PortAccess.h"
#include "digitizer/CaptureSession.h"

#include <QTimer>

#include <limits>
#include <memory>

namespace ReferenceHost {

namespace {

const QString deviceOption = QStringLiteral("device");
const QString countOption = QStringLiteral("count");
const QString buttonsOption = QStringLiteral("buttons");
const QString recordOption = QStringLiteral("record");
const QString strictCountOption = QStringLiteral("strict-count");
const QString noReconnectOption = QStringLiteral("no-reconnect");

// Longer than the pause after which the driver has handed over whatever the tap passed on to it.
constexpr int handOverMilliseconds = 500;

QString usablePort(const QCommandLineParser& parser)
{
    const QString device =
        requiredValue(parser, deviceOption, QStringLiteral("'digitizer ports' lists the ports"));
    if (device == QLatin1String("File:"))
        throw CommandError(QStringLiteral("--device File: is the digital pen; use 'digitizer "
                                          "import'"),
                           ExitUsage);
    const QString problem = portProblem(device);
    if (!problem.isEmpty())
        throw CommandError(problem);
    return MavSystem::portPath(device);
}

CaptureOptions parseOptions(const QCommandLineParser& parser)
{
    CaptureOptions options;
    options.format = formatValue(parser);
    options.count = numberValue(parser, countOption, 1, std::numeric_limits<int>::max(), 0);
    options.strictCount = parser.isSet(strictCountOption);
    options.reconnect = !parser.isSet(noReconnectOption);
    if (parser.isSet(buttonsOption))
        options.roles = parseButtonRoles(parser.value(buttonsOption));
    options.driver = requireReports(DriverOptions::chosen(parser));
    if (!parser.isSet(buttonsOption))
        options.roles = standardButtonRoles(options.driver);
    options.device = usablePort(parser);
    return options;
}

// The tap's port is the device, and what the driver has open stays.
void watchTap(const LineTap& tap, CaptureSession& session, const CaptureOptions& options)
{
    QObject::connect(&tap, &LineTap::lost, &session, [&] {
        if (options.reconnect)
            session.deviceGone();
        else
            QTimer::singleShot(handOverMilliseconds, &session, &CaptureSession::deviceGone);
    });
    QObject::connect(&tap, &LineTap::returned, &session, &CaptureSession::deviceBack);
}

int run(const QCommandLineParser& parser)
{
    const QString picture = writablePicture(parser);
    const CaptureOptions options = parseOptions(parser);
    std::unique_ptr<LineTap> tap;
    if (parser.isSet(recordOption))
        tap = std::make_unique<LineTap>(options.driver, options.device, parser.value(recordOption));
    CaptureSession session(options);
    if (tap)
        watchTap(*tap, session, options);
    QString problem = session.run(tap ? tap->port() : options.device);
    if (tap && problem.isEmpty())
        problem = tap->problem();
    if (!problem.isEmpty())
        printError(problem);
    const int pictureStatus = savePicture(session.pieces(), picture);
    return problem.isEmpty() ? pictureStatus : ExitFailure;
}

} // namespace

Command captureCommand()
{
    Command command;
    command.name = QStringLiteral("capture");
    command.summary = QStringLiteral("take reports from a tablet on a serial port");
    command.description = QStringList{
        QStringLiteral("Opens the tablet and writes one line for each press of a button, at once: "
                       "its number, the point in centimetres, the button, and what the button "
                       "means. Ctrl-C closes the device; the last line is then the library's "
                       "closing report."),
        QStringLiteral("What arrives is checked: only reports that fit the description's template "
                       "are taken, each by itself, however many arrive together. Anything else is "
                       "passed over and shown on the error stream."),
        QStringLiteral(
            "When the cable is pulled, capturing waits until the port is there again and "
            "goes on with the piece in hand. What is pressed meanwhile is lost."),
        QStringLiteral("Buttons mean: 1 corner, 2 curve point, 3 punch hole, 4 end of piece; on "
                       "tablets with sixteen buttons 5 is a notch. With \"Lectra E92\" the same "
                       "four begin at button 2.")};
    command.options = {
        DriverOptions::driver(),
        DriverOptions::description(),
        {deviceOption, QStringLiteral("The serial port, such as /dev/ttyUSB0."),
         QStringLiteral("PORT")},
        {countOption, QStringLiteral("Ends after N reports."), QStringLiteral("N")},
        formatOption(),
        {buttonsOption,
         QStringLiteral("Another meaning of the buttons, for instance "
                        "1=corner,2=curve,3=hole,4=end,5=notch. A button left out has none."),
         QStringLiteral("MAP")},
        {recordOption,
         QStringLiteral("Records every byte of the line with its time into a new file, which "
                        "'tablet-simulator --replay' sends again."),
         QStringLiteral("FILE")},
        pictureOption(),
        {strictCountOption,
         QStringLiteral("Takes a report when exactly as many bytes as one report are waiting, "
                        "whatever they are. For a tablet that sends something else than the "
                        "description says in places that do not matter, so that 'digitizer "
                        "monitor' shows good reports as passed over. Reports that arrive together, "
                        "and all after them, are then not taken.")},
        {noReconnectOption, QStringLiteral("Ends when the tablet is pulled out, for scripts.")},
    };
    command.examples = {
        {QStringLiteral("digitizer capture --driver \"Wacom II-S ASCII (SD-510C, ArtPad)\" "
                        "--device /dev/ttyUSB0 --picture pieces.svg"),
         QStringLiteral("Traces pieces until Ctrl-C and draws them.")}};
    command.exitStatusNotes = QStringList{
        QStringLiteral("Ctrl-C and the end of --count are success; not so Ctrl-C while the tablet "
                       "is pulled out, and --no-reconnect when it is. What was traced until then "
                       "is drawn in any case.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
