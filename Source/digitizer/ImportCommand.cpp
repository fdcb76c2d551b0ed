// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/ImportCommand.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/DriverLookup.h"
#include "ReferenceHost/Host/ImportHost.h"
#include "digitizer/DriverOptions.h"
#include "digitizer/ImportSession.h"
#include "digitizer/OutputOptions.h"

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

// A pen's description needs no report template, but a resolution and the codes of the converted
// commands.
void requirePenDescription(const MavSystem::DescribedDriver& driver)
{
    if (driver.description.m_resolution == 0.0)
        throw CommandError(
            QStringLiteral(
                "driver \"%1\" cannot scale the pen's positions: its description has no resolution")
                .arg(driver.name));
    const auto digitizer = MavSystem::Digitizer::instance();
    digitizer->selectDriver(driver, MavSystem::penDevice());
    for (int button = 1; button <= 4; ++button) {
        const int number =
            digitizer->compareButtonNumber(MavSystem::ButtonValue{{char('0' + button), ' ', '\0'}});
        if (number != button)
            throw CommandError(
                QStringLiteral("driver \"%1\" gives the pen's button %2 the number %3; choose a "
                               "driver with the button codes 1 to 4, in this order")
                    .arg(driver.name, QString::number(button), QString::number(number)));
    }
}

MavSystem::DescribedDriver penDriver(const QCommandLineParser& parser)
{
    // The driver library has read the program's settings, which may name a driver.
    const QString saved = MavSystem::Digitizer::instance()->driver();
    const auto driver = parser.isSet(driverOption) || saved.isEmpty()
                            ? DriverOptions::installed(parser)
                            : valueOrThrow(DriverLookup::installed(saved));
    requirePenDescription(driver);
    return driver;
}

QString penDirectory(const QString& path)
{
    const QFileInfo directory(path);
    if (!directory.exists())
        throw CommandError(
            QStringLiteral("there is no directory %1; give the directory of the pen files")
                .arg(path));
    if (!directory.isDir())
        throw CommandError(
            QStringLiteral("%1 is not a directory; give the directory of the pen files").arg(path));
    if (!directory.isReadable() || !directory.isExecutable())
        throw CommandError(
            QStringLiteral("cannot read the directory %1; you need permission to list and enter it")
                .arg(path));
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

QList<QCommandLineOption> importOptions()
{
    return {
        {driverOption,
         QStringLiteral(
             "Use driver NAME, whose description has a resolution and the button codes 1 to 4; "
             "'digitizer drivers' lists the names. Default: the driver saved in the settings."),
         QStringLiteral("NAME")},
        {answerOption,
         QStringLiteral("Answer that question with import, delete or cancel. \"delete\" "
                        "removes the waiting files for good."),
         QStringLiteral("ANSWER")},
        {watchOption, QStringLiteral("Keep importing files as they arrive, until Ctrl-C. If DIR is "
                                     "removed, wait for it to come back.")},
        {settleOption,
         QStringLiteral("Import a file once it has not changed for MS milliseconds, 0 to 60000. "
                        "Default: 500. With 0, a file is imported as soon as it appears, and "
                        "--watch ends if DIR is removed."),
         QStringLiteral("MS")},
        {extendedOption,
         QStringLiteral("Treat the pen's button 3 as a prefix to the next button.")},
        {modeOption,
         QStringLiteral(
             "Set the host's mode code. 50 to 59 select the library's internal mode. Default: 0."),
         QStringLiteral("N")},
        formatOption(),
        pictureOption(),
    };
}

} // namespace

Command importCommand()
{
    Command command;
    command.name = QStringLiteral("import");
    command.summary = QStringLiteral("import the files of a digital pen");
    command.description = QStringList{
        QStringLiteral(
            "Imports the files in DIR whose names end in .dat, in any letter case, and prints one "
            "line for each point. Imported files are renamed to .txt. If that name is taken, the "
            "file keeps its name and is imported again next time. If files are waiting, the "
            "command asks at the terminal whether to import or to delete them. Without a terminal, "
            "and "
            "without --answer, they are left alone. A summary goes to standard error."),
        QStringLiteral("A file is imported once it has not changed for half a second (see "
                       "--settle), so pen software may write directly to DIR. Software that pauses "
                       "for longer must move its files to DIR when they are complete."),
        QStringLiteral("DIR is saved in the settings of this program.")};
    command.arguments = {
        {QStringLiteral("DIR"), QStringLiteral("The directory of the pen files.")}};
    command.options = importOptions();
    command.examples = {
        {QStringLiteral("digitizer import ~/pen --driver \"Example Pen\" --answer import "
                        "--picture pieces.svg"),
         QStringLiteral("Import the waiting files and draw the pieces.")},
        {QStringLiteral("digitizer import ~/pen --watch --format json"),
         QStringLiteral("Pass each point to another program as it arrives.")}};
    command.exitStatusNotes =
        QStringList{QStringLiteral("'import' exits with 1 if files are left, if a file could not "
                                   "be read, or if the answer is \"cancel\".")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
