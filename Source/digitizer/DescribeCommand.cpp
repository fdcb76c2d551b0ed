// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/DescribeCommand.h"

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/Describe/DescriptionProposal.h"
#include "ReferenceHost/Describe/PressProtocol.h"
#include "ReferenceHost/Descriptions/DescriptionTexts.h"
#include "ReferenceHost/Lint/DescriptionLint.h"
#include "digitizer/LineOptions.h"
#include "digitizer/OutputOptions.h"
#include "digitizer/PressDialog.h"

namespace ReferenceHost {

namespace {

const QString fromOption = QStringLiteral("from");
const QString nameOption = QStringLiteral("name");
const QString distanceOption = QStringLiteral("distance");
const QString outputOption = QStringLiteral("output");
const QString recordOption = QStringLiteral("record");

// What the tablet sent, and what else is known of it.
struct Observation
{
    QVector<QByteArray> presses;
    TabletFacts facts;
};

std::optional<double> distanceOf(const QCommandLineParser& parser)
{
    if (!parser.isSet(distanceOption))
        return std::nullopt;
    bool isNumber = false;
    const double distance = parser.value(distanceOption).toDouble(&isNumber);
    if (!isNumber || !(distance >= 1 && distance <= 1000))
        throw CommandError(QStringLiteral("--distance is '%1', but must be a number of centimetres "
                                          "from 1 to 1000")
                               .arg(parser.value(distanceOption)),
                           ExitUsage);
    return distance;
}

// Checked before the user presses a button, so that no work is lost over a file name.
QString nameOf(const QCommandLineParser& parser, const QString& tablet)
{
    if (parser.isSet(nameOption))
        return parser.value(nameOption);
    return tablet.isEmpty() ? QStringLiteral("Unnamed tablet") : tablet;
}

RecordedSession readRecording(const QString& path)
{
    QFile file(path);
    const QString problem = MavSystem::openRegularFile(file);
    if (!problem.isEmpty())
        throw CommandError(QStringLiteral("cannot read %1: %2").arg(path, problem));
    return valueOrThrow(readSession(file.readAll()).map_error([&](const QString& error) {
        return QStringLiteral("%1: %2").arg(path, error);
    }));
}

Observation observeRecording(const QCommandLineParser& parser)
{
    const RecordedSession session = readRecording(parser.value(fromOption));
    const auto recorded = lineSettingsIn(session.settings);
    const PortSettings line =
        LineOptions::settings(parser, recorded.value_or(LineOptions::usualSettings()));
    return {PressProtocol::pressesOf(session.chunks),
            {nameOf(parser, session.tablet), line, recorded || LineOptions::areGiven(parser),
             distanceOf(parser)}};
}

void record(const QString& path, const Observation& observation,
            const QVector<RecordedSession::Chunk>& chunks)
{
    RecordedSession session;
    session.tablet = observation.facts.name;
    session.settings = lineSettingTexts(observation.facts.line).join(QLatin1Char(' '));
    session.date = QDateTime::currentDateTime();
    session.chunks = chunks;
    const SessionWriter writer(path, session);
    if (!writer.errorString().isEmpty())
        throw CommandError(
            QStringLiteral("cannot write to %1: %2").arg(path, writer.errorString()));
}

Observation observeTablet(const QCommandLineParser& parser)
{
    const PortSettings settings = LineOptions::settings(parser, LineOptions::usualSettings());
    Observation observation = {{}, {nameOf(parser, QString()), settings, true, distanceOf(parser)}};
    SerialLine line;
    valueOrThrow(line.open(LineOptions::device(parser), settings));
    const auto chunks = PressDialog(line, observation.facts.distance).ask();
    if (parser.isSet(recordOption))
        record(parser.value(recordOption), observation, chunks);
    observation.presses = PressProtocol::pressesOf(chunks);
    return observation;
}

QByteArray describe(const Observation& observation)
{
    const ReportSplit split =
        valueOrThrow(PressProtocol::checked(observation.presses).and_then(splitReports));
    const FoundLayout layout = valueOrThrow(findLayout(split.reports));
    return proposeDescription(split, layout, observation.facts);
}

// Above all, this finds a name that is already taken.
void lint(const QByteArray& description)
{
    QMap<QString, QString> installed;
    for (const auto& driver : MavSystem::DescriptionFolder::drivers())
        installed.insert(driver.name, driver.file);
    for (const LintFinding& finding : lintDescription(description, installed))
        printError(textOf(QStringLiteral("proposal"), finding));
}

int write(const QByteArray& description, const QString& path)
{
    lint(description);
    if (path.isEmpty())
        return printOutput(QString::fromUtf8(description)) ? ExitSuccess : ExitFailure;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) ||
        file.write(description) != description.size() || !file.flush())
        throw CommandError(QStringLiteral("cannot write to %1: %2").arg(path, file.errorString()));
    return ExitSuccess;
}

int run(const QCommandLineParser& parser)
{
    const bool isRecorded = parser.isSet(fromOption);
    if (isRecorded && (parser.isSet(QStringLiteral("device")) || parser.isSet(recordOption)))
        throw CommandError(QStringLiteral("--from cannot be combined with --device or --record"),
                           ExitUsage);
    refuseExisting(parser, outputOption);
    refuseExisting(parser, recordOption);
    const Observation observation = isRecorded ? observeRecording(parser) : observeTablet(parser);
    return write(describe(observation), parser.value(outputOption));
}

QList<QCommandLineOption> describeOptions()
{
    return LineOptions::options() << QList<QCommandLineOption>{
               {fromOption,
                QStringLiteral("Read the presses from a recorded session instead of a port."),
                QStringLiteral("FILE")},
               {nameOption,
                QStringLiteral(
                    "Name the new driver NAME. Default: the tablet's name in the recording, "
                    "otherwise \"Unnamed tablet\"."),
                QStringLiteral("NAME")},
               {distanceOption,
                QStringLiteral(
                    "The second point is CM centimetres to the right of the first, and the third "
                    "is CM "
                    "centimetres above it. Without this option the resolution cannot be found."),
                QStringLiteral("CM")},
               {outputOption,
                QStringLiteral("Write the description to a new file instead of standard output."),
                QStringLiteral("FILE")},
               {recordOption,
                QStringLiteral("Save the presses in a new file, for use with --from."),
                QStringLiteral("FILE")}};
}

} // namespace

Command describeCommand()
{
    Command command;
    command.name = QStringLiteral("describe");
    command.summary = QStringLiteral("propose a description for an unknown tablet");
    command.description = QStringList{
        QStringLiteral("Asks for a few presses, works out the length and the layout of the report, "
                       "and writes a description. Comments marked \"Not sure\" say what to check. "
                       "The support level is \"untested\"."),
        QStringLiteral(
            "The presses are, in this order: button 1 near the lower left corner, to the right of "
            "that point, above it, and near the middle; then, without moving the cursor, buttons "
            "2, 3 and so on, once each. Pause between presses. A recording for --from contains the "
            "same presses in the same order and nothing else, at least %1 milliseconds apart.")
            .arg(PressProtocol::pauseMilliseconds),
        QStringLiteral("Set the tablet to text reports of fixed length, absolute coordinates and "
                       "one report per press. If its origin can be moved, put it at the lower "
                       "left. If the tablet sends signs, put it in the middle instead, so that a "
                       "minus sign appears. Use 'digitizer monitor' to find the serial settings.")};
    command.options = describeOptions();
    command.examples = {
        {QStringLiteral("digitizer describe --device /dev/ttyUSB0 --distance 30 --name \"Our old "
                        "table\" --output old-table.xml"),
         QStringLiteral("Ask for the presses and write the description.")}};
    command.exitStatusNotes = QStringList{QStringLiteral(
        "'describe' exits with 1 if no template can express the report; the message says why.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
