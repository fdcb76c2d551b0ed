// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/CommandLine.h"
#include "ReferenceHost/CommandLine/NearestNames.h"
#include "support/ProgramRun.h"

#include <QtTest>

using namespace ReferenceHost;

/// The command line that the programs share, and what they do when they start.
class CommandLineTest : public QObject
{
    Q_OBJECT

private slots:
    void aWrongCommandLineIsOneClearLine_data();
    void aWrongCommandLineIsOneClearLine();
    void theManualPageNamesEveryCommandAndOption();
    void nearestNamesAreFound_data();
    void nearestNamesAreFound();
};

void CommandLineTest::aWrongCommandLineIsOneClearLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* arguments, const char* message) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(message);
    };
    row("", "a command is missing (see 'digitizer --help')");
    row("drvers", "unknown command 'drvers'; did you mean drivers? (see 'digitizer --help')");
    row("--hlp", "unknown option '--hlp' (see 'digitizer --help')");
    row("drivers --fromat json",
        "unknown option --fromat; did you mean --format? (see 'digitizer drivers --help')");
    row("drivers --format", "missing value after '--format' (see 'digitizer drivers --help')");
    row("drivers --format jsn", "--format is 'jsn', but must be one of text, json; did you mean "
                                "json?");
    row("drivers x", "unexpected argument 'x' (see 'digitizer drivers --help')");
}

void CommandLineTest::aWrongCommandLineIsOneClearLine()
{
    QFETCH(QString, arguments);
    QFETCH(QString, message);
    const TestHost host;
    const ProgramRun result =
        runDigitizer(host, arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(result.errors, QStringLiteral("digitizer: %1\n").arg(message));
    QCOMPARE(result.exitStatus, int(ExitUsage));
    QCOMPARE(result.output, QString());
}

void CommandLineTest::theManualPageNamesEveryCommandAndOption()
{
    const TestHost host;
    const QString page = runDigitizer(host, {QStringLiteral("--manual-page")}).output;
    const QString commands = runDigitizer(host, {QStringLiteral("--help")}).output;
    const QRegularExpression entry(QStringLiteral("^  ([a-z]+) {3,}"),
                                   QRegularExpression::MultilineOption);
    const QRegularExpression option(QStringLiteral("^  (--[a-z-]+)"),
                                    QRegularExpression::MultilineOption);
    int found = 0;
    for (auto command = entry.globalMatch(commands); command.hasNext(); ++found) {
        const QString name = command.next().captured(1);
        QVERIFY2(page.contains(QStringLiteral(".SS digitizer %1 ").arg(name)), qPrintable(name));
        const QString help = runDigitizer(host, {name, QStringLiteral("--help")}).output;
        for (auto options = option.globalMatch(help); options.hasNext();) {
            QString text =
                options.next().captured(1).replace(QLatin1Char('-'), QLatin1String("\\-"));
            QVERIFY2(page.contains(text), qPrintable(text));
        }
    }
    QVERIFY(found > 0);
}

void CommandLineTest::nearestNamesAreFound_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("nearest");
    const QString cr = QStringLiteral("Summagraphics Bit Pad Two (CR)");
    const QString crlf = QStringLiteral("Summagraphics Bit Pad Two (CR LF)");
    const QString wacom = QStringLiteral("Wacom II-S ASCII");
    QTest::newRow("part, without blank") << QStringLiteral("bitpad") << QStringList{cr, crlf};
    QTest::newRow("letter case") << QStringLiteral("WACOM ii-s ascii") << QStringList{wacom};
    QTest::newRow("exchanged letters") << QStringLiteral("Wacmo II-S") << QStringList{wacom};
    QTest::newRow("nearer one first")
        << QStringLiteral("Sumagraphics Bit Pad Two CR LF") << QStringList{crlf, cr};
    QTest::newRow("nothing near") << QStringLiteral("Microtek") << QStringList{};
    QTest::newRow("nothing typed") << QString() << QStringList{};
}

void CommandLineTest::nearestNamesAreFound()
{
    QFETCH(QString, typed);
    QTEST(nearestNames(typed, {QStringLiteral("Wacom II-S ASCII"),
                               QStringLiteral("Summagraphics Bit Pad Two (CR LF)"),
                               QStringLiteral("Summagraphics Bit Pad Two (CR)")}),
          "nearest");
}

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
