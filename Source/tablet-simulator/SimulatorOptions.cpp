// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/SimulatorOptions.h"

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "DigitizerGeneric/Digitizer/ReportLayout.h"
#include "QextSerialPort/SerialTiming.h"
#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/DriverLookup.h"
#include "ReferenceHost/Serial/RecordedSession.h"
#include "tablet-simulator/PieceScript.h"

#include <QFile>

#include <algorithm>

using namespace MavSystem;
using namespace ReferenceHost;

namespace TabletSimulation {

namespace {

struct OptionText
{
    const char* name;
    const char* explanation;
    const char* value = "";
};

constexpr OptionText optionTexts[] = {
    {"driver", "Simulate the tablet of driver NAME: an installed one, or \"Lectra E92\".", "NAME"},
    {"description", "Simulate the tablet of description FILE instead of an installed driver.",
     "FILE"},
    {"script",
     "Send the points in FILE instead of the built-in piece. Each line is \"x y "
     "button\": the point in centimetres and the button number that the library is to deliver. # "
     "starts a comment.",
     "FILE"},
    {"replay",
     "Send the recorded session in FILE, with the recorded timing unless --rate, --fast "
     "or --flood is given. Neither --driver nor --description is needed.",
     "FILE"},
    {"link", "Create the symbolic link PATH to the port and remove it at the end.", "PATH"},
    {"rate", "Send N reports per second. Default: as many as the baud rate allows.", "N"},
    {"fast", "Send each report as soon as the previous one has been read."},
    {"flood", "Send everything as fast as possible, whether the program reads or not, and wait "
              "only while the port's buffer is full. Reports then arrive merged and in pieces."},
    {"repeat", "Send everything N times.", "N"},
    {"delay",
     "Send the first report when the port has been open for MS milliseconds. Default: "
     "300. The library discards what arrives while it opens the port.",
     "MS"},
    {"stay", "Keep the port open at the end, until Ctrl-C."},
    {"split", "Fault: send each report in two writes, the first of OFFSET bytes.", "OFFSET"},
    {"merge",
     "Fault: send K reports in one write. A host without checked reading then gets no report until "
     "it opens the port again.",
     "K"},
    {"garbage", "Fault: send one to four random bytes between reports."},
    {"seed", "Use N as the seed of the random bytes. Default: 1.", "N"},
    {"hangup-after", "Fault: hang up after N reports, as a pulled cable does.", "N"},
};

// What \a read makes of the content of a file.
template <typename Value>
Value readFrom(const QString& path, tl::expected<Value, QString> (*read)(const QByteArray&))
{
    QFile file(path);
    const QString problem = openRegularFile(file);
    if (!problem.isEmpty())
        throw CommandError(QStringLiteral("cannot read %1: %2").arg(path, problem));
    return valueOrThrow(read(file.readAll()).map_error([&](const QString& error) {
        return QStringLiteral("%1: %2").arg(path, error);
    }));
}

DescribedDriver chosenDriver(const QCommandLineParser& parser)
{
    if (parser.isSet(QStringLiteral("description")))
        return valueOrThrow(DriverLookup::inFile(parser.value(QStringLiteral("description")))
                                .and_then(DriverLookup::takingReports));
    const QString name = requiredValue(parser, QStringLiteral("driver"),
                                       QStringLiteral("'digitizer drivers' lists the names"));
    // The layout of this tablet is built in, so it needs no description.
    DescribedDriver driver;
    driver.name = name;
    if (driver.isLectraE92() && !DescriptionFolder::find(name)) {
        driver.description.m_portSettings.BaudRate = BAUD9600;
        driver.description.m_portSettings.DataBits = DATA_8;
        return driver;
    }
    return valueOrThrow(DriverLookup::installed(name).and_then(DriverLookup::takingReports));
}

QVector<Press> chosenPresses(const QCommandLineParser& parser, const DescribedDriver& driver)
{
    if (!parser.isSet(QStringLiteral("script")))
        return bodiceFront(standardButtonRoles(driver));
    return readFrom(parser.value(QStringLiteral("script")), readScript);
}

QByteArray encoded(const Press& press, const DescribedDriver& driver)
{
    return valueOrThrow(driver.isLectraE92() ? encodeLectraE92Report(press)
                                             : encodeReport(driver.description, press));
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
    faults.splitOffset =
        numberValue(parser, QStringLiteral("split"), 1, ReportLayout::maximumCharacters - 1, 0);
    faults.mergedReports = numberValue(parser, QStringLiteral("merge"), 2, 1000, 1);
    faults.garbage = parser.isSet(QStringLiteral("garbage"));
    faults.seed = unsigned(numberValue(parser, QStringLiteral("seed"), 0, 2147483647, 1));
    faults.hangUpAfter = numberValue(parser, QStringLiteral("hangup-after"), 0, 1000000000, -1);
    const int longest = longestOf(reports) * faults.mergedReports;
    if (faults.splitOffset >= longest)
        throw CommandError(
            QStringLiteral(
                "--split is '%1', but must be less than %2, the length of the longest write")
                .arg(faults.splitOffset)
                .arg(longest),
            ExitUsage);
    if (faults.garbage)
        printError(QStringLiteral("the seed of the random bytes is %1").arg(faults.seed));
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
    const RecordedSession session = readFrom(path, readSession);
    QVector<Transmission> chunks;
    qint64 before = 0;
    for (const RecordedSession::Chunk& chunk : session.chunks) {
        chunks.append({(chunk.milliseconds - before) * 1000, chunk.bytes});
        before = chunk.milliseconds;
    }
    return chunks;
}

// The reports to send, at the pace given on the command line.
QVector<Transmission> chosenReports(const QCommandLineParser& parser)
{
    const QVector<Transmission> once = parser.isSet(QStringLiteral("replay"))
                                           ? replayed(parser.value(QStringLiteral("replay")))
                                           : simulated(parser);
    if (once.isEmpty())
        throw CommandError(QStringLiteral("nothing to send"));
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
            throw CommandError(QStringLiteral("--%1 and --%2 cannot be combined")
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

} // namespace

QList<QCommandLineOption> SimulatorOptions::accepted()
{
    QList<QCommandLineOption> options;
    for (const OptionText& text : optionTexts)
        options << QCommandLineOption(QString::fromLatin1(text.name),
                                      QString::fromLatin1(text.explanation),
                                      QString::fromLatin1(text.value));
    return options;
}

SimulatorOptions SimulatorOptions::parse(const QCommandLineParser& parser)
{
    refuseContradictions(parser);
    const QVector<Transmission> reports = chosenReports(parser);
    SimulatorOptions options;
    options.writes = withFaults(reports, chosenFaults(parser, reports));
    options.run.openDelayMilliseconds =
        numberValue(parser, QStringLiteral("delay"), 0, 60000, options.run.openDelayMilliseconds);
    options.run.pace = chosenPace(parser);
    options.run.stay = parser.isSet(QStringLiteral("stay"));
    options.link = parser.value(QStringLiteral("link"));
    return options;
}

} // namespace TabletSimulation
