// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/ImportCommand.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/DriverOptions.h"
#include "ReferenceHost/Host/ImportHost.h"
#include "ReferenceHost/Pieces/OutputOptions.h"
#include "digitizer/ImportSession.h"

#include <QDir>
#include <QFileInfo>

#include <limits>

namespace ReferenceHost {

namespace {

const QString driverOption = QStringLiteral("driver");
const QString answerOption = QStringLiteral("answer");
const QString watchOption = QStringLiteral("watch");
const QString extendedOption = QStringLiteral("extended");
const QString settleOption = QStringLiteral("settle");
const QString modeOption = QStringLiteral("mode");

// A description for a pen needs no report, but a scale and the codes of the converted commands.
void requirePenDescription(const MavSystem::DescribedDriver& driver)
{
    if (driver.description.m_resolution == 0.0)
        throw CommandError(
            QStringLiteral("the description \"%1\" has no resolution to scale positions with")
                .arg(driver.name));
    const auto digitizer = MavSystem::Digitizer::instance();
    digitizer->selectDevice(driver.name, QStringLiteral("File:"));
    for (int button = 1; button <= 4; ++button) {
        const int number =
            digitizer->compareButtonNumber(MavSystem::ButtonValue{{char('0' + button), ' ', '\0'}});
        if (number != button)
            throw CommandError(
                QStringLiteral("with \"%1\" the pen's button %2 has the number %3; "
                               "use a description with the button codes 1 to 4 in "
                               "this order")
                    .arg(driver.name, QString::number(button), QString::number(number)));
    }
}

MavSystem::DescribedDriver penDriver(const QCommandLineParser& parser)
{
    // The driver library has read the program's settings, where a driver may be named.
    const QString saved = MavSystem::Digitizer::instance()->driver();
    const auto driver =
        requiredDriver(parser.isSet(driverOption) || saved.isEmpty()
                           ? requiredValue(parser, driverOption,
                                           QStringLiteral("'digitizer drivers' lists the names"))
                           : saved);
    requirePenDescription(driver);
    return driver;
}

QString penDirectory(const QString& path)
{
    const QFileInfo directory(path);
    if (!directory.exists())
        throw CommandError(QStringLiteral("there is no directory %1").arg(path));
    if (!directory.isDir())
        throw CommandError(QStringLiteral("%1 is no directory; the pen files in a directory are "
                                          "imported all together")
                               .arg(path));
    if (!directory.isReadable() || !directory.isExecutable())
        throw CommandError(QStringLiteral("the directory %1 cannot be read").arg(path));
    return QDir(path).absolutePath();
}

std::optional<int> givenAnswer(const QCommandLineParser& parser)
{
    const QStringList answers = {QStringLiteral("import"), QStringLiteral("delete"),
                                 QStringLiteral("cancel")};
    if (!parser.isSet(answerOption))
        return {};
    return answers.indexOf(choiceValue(parser, answerOption, answers));
}

ImportOptions parseOptions(const QCommandLineParser& parser)
{
    ImportOptions options;
    options.format = formatValue(parser);
    options.mode = numberValue(parser, modeOption, 0, std::numeric_limits<int>::max(), 0);
    options.settleMilliseconds =
        numberValue(parser, settleOption, 0, 60000, options.settleMilliseconds);
    options.answer = givenAnswer(parser);
    options.watch = parser.isSet(watchOption);
    options.extendedButtons = parser.isSet(extendedOption);
    options.directory = penDirectory(parser.positionalArguments().constFirst());
    options.driver = penDriver(parser);
    return options;
}

int run(const QCommandLineParser& parser)
{
    const QString picture = writablePicture(parser);
    ImportOptions options = parseOptions(parser);
    options.keepPieces = !picture.isEmpty();
    ImportSession session(options);
    const int status = session.run();
    const int pictureStatus = savePicture(session.pieces(), picture);
    return status == ExitSuccess ? pictureStatus : status;
}

} // namespace

Command importCommand()
{
    Command command;
    command.name = QStringLiteral("import");
    command.summary = QStringLiteral("import the files of a digital pen");
    command.description = QStringList{
        QStringLiteral("Imports the files of DIR whose names end in .dat, in any letter case, and "
                       "writes one line for each point. An imported file ends in .txt afterwards; "
                       "where that name is taken the file stays, and is imported again the next "
                       "time. When files are waiting, the driver asks whether to import or to "
                       "delete them; the question appears at the terminal, and without a terminal "
                       "nothing is done. A summary follows on the error stream."),
        QStringLiteral(
            "A file is imported when it has not changed for half a second (--settle), so "
            "pen software may write into DIR. A writer that pauses for longer has to move "
            "its files into DIR when they are complete."),
        QStringLiteral("DIR is remembered in the settings of this program.")};
    command.arguments = {
        {QStringLiteral("DIR"), QStringLiteral("The directory of the pen files.")}};
    command.options = {
        {driverOption,
         QStringLiteral("The description that scales the positions; it has the button codes 1 to "
                        "4. 'digitizer drivers' lists them. Default: the driver named in the "
                        "settings."),
         QStringLiteral("NAME")},
        {answerOption,
         QStringLiteral("Answers the driver's question: import, delete or cancel. \"delete\" "
                        "removes the waiting files for good."),
         QStringLiteral("ANSWER")},
        {watchOption, QStringLiteral("Goes on to import what arrives, until Ctrl-C, and waits for "
                                     "DIR to come back when it is removed.")},
        {settleOption,
         QStringLiteral(
             "A file has not changed for so many milliseconds before it is imported, 0 to "
             "60000. Default: 500. With 0 a file is imported as soon as it is there, and "
             "the end of DIR ends --watch."),
         QStringLiteral("MS")},
        {extendedOption, QStringLiteral("The pen's button 3 is a prefix to the next button.")},
        {modeOption,
         QStringLiteral("The host's mode code; 50 to 59 put the driver into its internal mode. "
                        "Default: 0."),
         QStringLiteral("N")},
        formatOption(),
        pictureOption(),
    };
    command.examples = {
        {QStringLiteral("digitizer import ~/pen --driver \"Example Pen\" --answer import "
                        "--picture pieces.svg"),
         QStringLiteral("Imports what is waiting and draws the pieces.")},
        {QStringLiteral("digitizer import ~/pen --watch --format json"),
         QStringLiteral("Hands each point to another program as it comes.")}};
    command.exitStatusNotes = QStringList{
        QStringLiteral("Files that are left, or that could not be read, and the answer \"cancel\" "
                       "give 1.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
