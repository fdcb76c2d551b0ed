// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/DigitizerGenericVersion.h"
#include "NumberedReport.h"
#include "PenTally.h"
#include "ReferenceHost/CommandLine/CommandLine.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "Soak.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace ReferenceHost;

namespace {

QCommandLineOption option(const char* name, const char* explanation, const char* value = "")
{
    return QCommandLineOption(QString::fromLatin1(name), QString::fromLatin1(explanation),
                              QString::fromLatin1(value));
}

int run(const QCommandLineParser& parser)
{
    for (const char* serial : {"reports", "line-speed", "damage", "plain"}) {
        if (parser.isSet(QStringLiteral("files")) && parser.isSet(QLatin1String(serial)))
            throw CommandError(
                QStringLiteral("--files and --%1 cannot be combined").arg(QLatin1String(serial)),
                ExitUsage);
    }
    constexpr int largest = std::numeric_limits<int>::max();
    const auto number = [&](const char* name, int most, int absent) {
        return numberValue(parser, QLatin1String(name), 1, most, absent);
    };
    SoakOptions options;
    options.reports = number("reports", NumberedReport::largest, options.reports);
    options.files = number("files", PenTally::largestFile, options.files);
    options.plain = parser.isSet(QStringLiteral("plain"));
    options.lineSpeed = parser.isSet(QStringLiteral("line-speed"));
    options.damageOneIn = number("damage", largest, options.damageOneIn);
    options.seed = unsigned(number("seed", largest, std::max(1, int(std::random_device()() / 2))));
    std::printf("seed %u\n", options.seed);
    const bool right = options.files > 0 ? soakPens(options) : soakSerial(options);
    return right ? ExitSuccess : ExitFailure;
}

} // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QCoreApplication application(argc, argv);
    Command command;
    command.options = {
        option("reports", "Send N numbered reports through a pseudo-terminal. Default: 100000.",
               "N"),
        option("line-speed", "Send them at the speed of a tablet instead of as fast as possible, "
                             "in pieces with pauses, to a host that sleeps more often."),
        option("damage", "Damage one report in N: change, lose or add a byte.", "N"),
        option("plain",
               "Do not use checked reading. Lost reports are then counted, but are not a failure."),
        option("files", "Write N pen files instead of sending reports, half of them slowly.", "N"),
        option("seed", "Use N as the seed of all random values. Default: a random one.", "N"),
    };
    command.run = run;
    Program program;
    program.name = QStringLiteral("soak");
    program.version = MavSystem::versionText();
    program.summary = QStringLiteral("run a stalling host under load and compare every value");
    program.commands = {command};
    return runProgram(program, application.arguments());
}
