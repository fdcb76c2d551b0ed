// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "NumberedPenFile.h"
#include "NumberedReport.h"
#include "PenSoak.h"
#include "ReferenceHost/CommandLine.h"
#include "ReferenceHost/Console.h"
#include "ReferenceHost/OptionValues.h"
#include "SerialSoak.h"

#include <QCoreApplication>

#include <limits>
#include <random>

namespace {

QCommandLineOption option(const char* name, const char* explanation, const char* value = "")
{
    return QCommandLineOption(QString::fromLatin1(name), QString::fromLatin1(explanation),
                              QString::fromLatin1(value));
}

unsigned seedOf(const QCommandLineParser& parser)
{
    const auto largest = std::numeric_limits<int>::max();
    const int random = int(std::random_device()() & unsigned(largest));
    const int seed = numberValue(parser, QStringLiteral("seed"), 0, largest, random);
    printOutput(QStringLiteral("seed %1\n").arg(seed));
    return unsigned(seed);
}

Command serialCommand()
{
    Command command;
    command.name = QStringLiteral("serial");
    command.summary = QStringLiteral("send numbered reports to a host that stalls");
    command.options = {
        option("reports", "Send N reports (default 100000).", "N"),
        option("line-speed",
               "Send them at the speed of a tablet, in pieces, and not as fast as the line takes "
               "them; the host sleeps more often."),
        option("plain", "Without checked reading; what is lost then is told and is no failure."),
        option("damage", "Damage one report in N: a byte changed, lost or added.", "N"),
        option("seed", "Seed of the stalls and of the damage (default: a random one).", "N"),
    };
    command.run = [](const QCommandLineParser& parser) -> int {
        SerialSoakOptions options;
        options.reports =
            numberValue(parser, QStringLiteral("reports"), 1, NumberedReport::largest, 100000);
        options.checkedReading = !parser.isSet(QStringLiteral("plain"));
        options.damageOneIn = numberValue(parser, QStringLiteral("damage"), 1, 1000000, 0);
        options.lineSpeed = parser.isSet(QStringLiteral("line-speed"));
        options.seed = seedOf(parser);
        return soakSerial(options) ? ExitSuccess : ExitFailure;
    };
    return command;
}

Command pensCommand()
{
    Command command;
    command.name = QStringLiteral("pens");
    command.summary = QStringLiteral("write pen files to the directory of a host that stalls");
    command.options = {
        option("files", "Write N files (default 10000), half of them slowly.", "N"),
        option("seed", "Seed of the stalls and of the writes (default: a random one).", "N"),
    };
    command.run = [](const QCommandLineParser& parser) -> int {
        const int files =
            numberValue(parser, QStringLiteral("files"), 1, NumberedPenFile::largest, 10000);
        return soakPens(files, seedOf(parser)) ? ExitSuccess : ExitFailure;
    };
    return command;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Program program;
    program.name = QStringLiteral("soak");
    program.version = QStringLiteral(DIGITIZER_VERSION);
    program.summary = QStringLiteral("the driver under load for as long as one likes");
    program.commands = {serialCommand(), pensCommand()};
    return runProgram(program, application.arguments());
}
