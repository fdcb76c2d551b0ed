// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/CaptureCommand.h"

#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Serial/LineTap.h"
#include "digitizer/CaptureSession.h"
#include "digitizer/DriverOptions.h"
#include "digitizer/LineOptions.h"
#include "digitizer/OutputOptions.h"

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

// Longer than the pause after which the driver has delivered everything that the tap passed on.
constexpr int handOverMilliseconds = 500;

QString usablePort(const QCommandLineParser& parser)
{
    if (parser.value(deviceOption) == MavSystem::penDevice())
        throw CommandError(
            QStringLiteral("--device is File:, which is the digital pen; use 'digitizer import'"),
            ExitUsage);
    return LineOptions::device(parser);
}

CaptureOptions parseOptions(const QCommandLineParser& parser)
{
    CaptureOptions options;
    options.format = formatValue(parser);
    options.count = numberValue(parser, countOption, 1, std::numeric_limits<int>::max(), 0);
    options.strictCount = parser.isSet(strictCountOption);
    options.reconnect = !parser.isSet(noReconnectOption);
    if (parser.isSet(buttonsOption))
        options.roles = valueOrThrow(parseButtonRoles(parser.value(buttonsOption)), ExitUsage);
    options.driver = DriverOptions::chosenWithReports(parser);
    if (!parser.isSet(buttonsOption))
        options.roles = standardButtonRoles(options.driver);
    options.device = usablePort(parser);
    return options;
}

// The tap has the device open. The driver's end, a pseudo-terminal, stays when the device is gone.
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
    refuseExisting(parser, recordOption);
    if (parser.isSet(recordOption))
        tap = valueOrThrow(
            LineTap::start(options.driver, options.device, parser.value(recordOption)));
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

QList<QCommandLineOption> captureOptions()
{
    return {
        DriverOptions::driver(),
        DriverOptions::description(),
        {deviceOption, QStringLiteral("Use serial port PORT, such as /dev/ttyUSB0."),
         QStringLiteral("PORT")},
        {countOption, QStringLiteral("Stop after N reports."), QStringLiteral("N")},
        formatOption(),
        {buttonsOption,
         QStringLiteral(
             "Change the meaning of the buttons, for example "
             "1=corner,2=curve,3=hole,4=end,5=notch. A button that is not listed has no meaning."),
         QStringLiteral("MAP")},
        {recordOption,
         QStringLiteral("Record every byte that arrives, with its time, in a new file. "
                        "'tablet-simulator --replay FILE' sends it again."),
         QStringLiteral("FILE")},
        pictureOption(),
        {strictCountOption,
         QStringLiteral(
             "Read only when exactly the bytes of one report are waiting, and do not check them. "
             "Use this if 'digitizer monitor' shows good reports as passed over "
             "because the tablet deviates from the template in places that do not matter. If two "
             "reports arrive together, neither they nor any later ones are read.")},
        {noReconnectOption,
         QStringLiteral("Stop when the port is lost instead of waiting for it.")},
    };
}

} // namespace

Command captureCommand()
{
    Command command;
    command.name = QStringLiteral("capture");
    command.summary = QStringLiteral("capture points from a tablet on a serial port");
    command.description = QStringList{
        QStringLiteral(
            "Opens the port and prints one line for each press of a button: a running number, the "
            "point in centimetres, the button, and what the button means. Ctrl-C closes the port; "
            "the last line is then the library's closing report."),
        QStringLiteral(
            "Each report is checked against the description's template, however many arrive "
            "together. Bytes that do not fit are passed over and shown on standard error."),
        QStringLiteral("If the cable is pulled, the command waits for the port to come back and "
                       "continues with the current piece. Presses in the meantime are lost."),
        QStringLiteral("Button 1 is a corner, 2 a curve point, 3 a punch hole and 4 the end of a "
                       "piece. On tablets with sixteen buttons, 5 is a notch. On the \"Lectra "
                       "E92\", buttons 2 to 5 have the first four meanings.")};
    command.options = captureOptions();
    command.examples = {
        {QStringLiteral("digitizer capture --driver \"Wacom II-S ASCII (SD-510C, ArtPad)\" "
                        "--device /dev/ttyUSB0 --picture pieces.svg"),
         QStringLiteral("Trace pieces until Ctrl-C, then draw them.")}};
    command.exitStatusNotes = QStringList{
        QStringLiteral("'capture' exits with 0 after Ctrl-C and after --count reports. It exits "
                       "with 1 after Ctrl-C while the port is lost, and when the port is lost with "
                       "--no-reconnect. What was traced is drawn in any case.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
