// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/DescribeCommand.h"

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/Describe/DescriptionProposal.h"
#include "ReferenceHost/Describe/PressProtocol.h"
#include "ReferenceHost/Descriptions/DescriptionTexts.h"
#include "ReferenceHost/Descriptions/LineSettings.h"
#include "ReferenceHost/Lint/DescriptionLint.h"
#include "digitizer/LineOptions.h"
#include "digitizer/PressDialog.h"

#include <QFileInfo>

namespace ReferenceHost {

namespace {

const QString fromOption = QStringLiteral("from");
const QString nameOption = QStringLiteral("name");
const QString distanceOption = QStringLiteral("distance");
const QString outputOption = QStringLiteral("output");
const QString recordOption = QStringLiteral("record");

// What to describe, and with what it was read.
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

// Before anyone presses a button: a file that cannot be written would cost the user's work.
void refuseExisting(const QCommandLineParser& parser, const QString& option)
{
    const QString path = parser.value(option);
    if (parser.isSet(option) && QFileInfo::exists(path))
        throw CommandError(
            QStringLiteral("--%1: %2 exists already; it is not overwritten").arg(option, path));
}

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
    const ReadSession read = readSession(file.readAll());
    if (!read.error.isEmpty())
        throw CommandError(QStringLiteral("%1: %2").arg(path, read.error));
    return read.session;
}

Observation observeRecording(const QCommandLineParser& parser)
{
    const RecordedSession session = readRecording(parser.value(fromOption));
    const auto recorded = LineSettings::parse(session.settings);
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
        throw CommandError(QStringLiteral("cannot write %1: %2").arg(path, writer.errorString()));
}

Observation observeTablet(const QCommandLineParser& parser)
{
    const PortSettings settings = LineOptions::settings(parser, LineOptions::usualSettings());
    Observation observation = {{}, {nameOf(parser, QString()), settings, true, distanceOf(parser)}};
    SerialLine line;
    line.open(LineOptions::device(parser), settings);
    const auto chunks = PressDialog(line, observation.facts.distance).ask();
    if (parser.isSet(recordOption))
        record(parser.value(recordOption), observation, chunks);
    observation.presses = PressProtocol::pressesOf(chunks);
    return observation;
}

QString describe(const Observation& observation)
{
    const QString problem = PressProtocol::problemOf(observation.presses);
    if (!problem.isEmpty())
        throw CommandError(problem);
    const ReportSplit split = splitReports(observation.presses);
    if (!split.error.isEmpty())
        throw CommandError(split.error);
    const FoundLayout layout = findLayout(split.reports);
    if (!layout.error.isEmpty())
        throw CommandError(layout.error);
    return proposeDescription(split, layout, observation.facts);
}

// A name that is taken already, above all.
void lint(const QByteArray& description)
{
    QMap<QString, QString> installed;
    for (const auto& driver : MavSystem::DescriptionFolder::drivers())
        installed.insert(driver.name, driver.file);
    for (const LintFinding& finding : lintDescription(description, installed))
        printError(textOf(QStringLiteral("proposal"), finding));
}

int write(const QString& description, const QString& path)
{
    lint(description.toUtf8());
    if (path.isEmpty())
        return printOutput(description) ? ExitSuccess : ExitFailure;
    QFile file(path);
    const QByteArray content = description.toUtf8();
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) ||
        file.write(content) != content.size() || !file.flush())
        throw CommandError(QStringLiteral("cannot write %1: %2").arg(path, file.errorString()));
    return ExitSuccess;
}

int run(const QCommandLineParser& parser)
{
    const bool isRecorded = parser.isSet(fromOption);
    if (isRecorded && (parser.isSet(QStringLiteral("device")) || parser.isSet(recordOption)))
        throw CommandError(QStringLiteral("--from takes the place of --device and --record"),
                           ExitUsage);
    refuseExisting(parser, outputOption);
    refuseExisting(parser, recordOption);
    const Observation observation = isRecorded ? observeRecording(parser) : observeTablet(parser);
    return write(describe(observation), parser.value(outputOption));
}

} // namespace

Command describeCommand()
{
    Command command;
    command.name = QStringLiteral("describe");
    command.summary = QStringLiteral("propose a description of an unknown tablet");
    command.description = QStringList{
        QStringLiteral("Asks for a few presses, finds the length of the report and what stands at "
                       "each position, and writes a description. What it is not sure of is marked "
                       "in it with \"Not sure\"; the support level is \"untested\"."),
        QStringLiteral("The presses, in this order: button 1 near the lower left corner, to the "
                       "right of that, above it and near the middle; then, without moving the "
                       "cursor, buttons 2, 3 and so on, once each. Pauses part them. A recording "
                       "for --from holds the same presses in the same order, nothing else, with "
                       "at least %1 milliseconds between them.")
            .arg(PressProtocol::pauseMilliseconds),
        QStringLiteral("Set the tablet to text reports of one length, absolute coordinates and one "
                       "report a press; where its origin can be moved, put it at the lower left. "
                       "If the tablet sends signs, choose an origin in the middle instead, so that "
                       "a minus is seen. 'digitizer monitor' finds the settings of the line.")};
    command.options = LineOptions::options();
    command.options << QList<QCommandLineOption>{
        {fromOption, QStringLiteral("Describes from a recorded session instead of a port."),
         QStringLiteral("FILE")},
        {nameOption, QStringLiteral("The driver name; default is the recorded tablet's."),
         QStringLiteral("NAME")},
        {distanceOption,
         QStringLiteral("How far the second point lies to the right of the first, and the third "
                        "above it, in centimetres. The resolution cannot be found without it."),
         QStringLiteral("CM")},
        {outputOption,
         QStringLiteral("Writes the description to a new file instead of the standard output."),
         QStringLiteral("FILE")},
        {recordOption, QStringLiteral("Keeps the presses in a new file for --from."),
         QStringLiteral("FILE")}};
    command.examples = {
        {QStringLiteral("digitizer describe --device /dev/ttyUSB0 --distance 30 --name \"Our old "
                        "table\" --output old-table.xml"),
         QStringLiteral("Asks for the presses and writes the description.")}};
    command.exitStatusNotes = QStringList{
        QStringLiteral("1 when no template can express the report; the message says why.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
