// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "support/PageBlocks.h"
#include "support/PageShell.h"

#include <QtTest>

#include <algorithm>

/// The code in the pages is the code of a file that is compiled or run. The comment before a block
/// says where it comes from:
///
///     FILE                    the whole file, without the two lines of the licence
///     FILE: FIRST .. LAST     the lines from the first that begins with FIRST to the next one,
///                             equally indented, that begins with LAST
///     run, output             PageCommandsTest runs it, or compares what was printed
///
/// Of commands without a comment, only the command lines are checked. Plain text needs no source.
class PagesTest : public QObject
{
    Q_OBJECT

private slots:
    void codeIsThatOfItsFile_data();
    void codeIsThatOfItsFile();
    void commandsAreTaken_data();
    void commandsAreTaken();
};

Q_DECLARE_METATYPE(PageBlock)

namespace {

const QStringList programs = {QStringLiteral("./dev"), QStringLiteral("digitizer"),
                              QStringLiteral("tablet-simulator")};

struct Region
{
    int begin; // line index in the file
    QStringList lines;
    QString problem;
};

bool isComparedHere(const PageBlock& block)
{
    const QString kind = block.source.section(QLatin1Char(','), 0, 0);
    return kind != QLatin1String("run") && kind != QLatin1String("output");
}

int indentation(const QString& line)
{
    static const QRegularExpression text(QStringLiteral("[^ ]|$"));
    return line.indexOf(text);
}

int findLine(const QStringList& lines, const QString& text, int from, int indented)
{
    for (int index = from; index < lines.size(); ++index) {
        const int found = indentation(lines.at(index));
        if ((indented < 0 || found == indented) && lines.at(index).mid(found).startsWith(text))
            return index;
    }
    return -1;
}

Region wholeFile(const QStringList& lines)
{
    const int begin = lines.constFirst().contains(QLatin1String("SPDX")) ? 2 : 0;
    return {begin, lines.mid(begin), {}};
}

Region regionOf(const QString& source)
{
    static const QRegularExpression parts(QStringLiteral("^([^:]+)(?:: (.+) \\.\\. (.+))?$"));
    const QRegularExpressionMatch match = parts.match(source);
    const QStringList lines = sourceLines(match.captured(1));
    if (lines.isEmpty())
        return {0, {}, QStringLiteral("there is no file '%1'").arg(match.captured(1))};
    if (match.captured(2).isEmpty())
        return wholeFile(lines);
    const int first = findLine(lines, match.captured(2), 0, -1);
    if (first < 0)
        return {0, {}, QStringLiteral("no line begins with '%1'").arg(match.captured(2))};
    const int indented = indentation(lines.at(first));
    const int last = findLine(lines, match.captured(3), first, indented);
    if (last < 0)
        return {0, {}, QStringLiteral("no line after it begins with '%1'").arg(match.captured(3))};
    Region region = {first, lines.mid(first, last - first + 1), {}};
    for (QString& line : region.lines)
        line.remove(0, indented);
    return region;
}

QString quoted(const QString& place, const QStringList& lines, int index)
{
    return QStringLiteral("\n%1: ").arg(place) +
           (index < lines.size() ? lines.at(index) : QStringLiteral("(nothing more)"));
}

} // namespace

void PagesTest::codeIsThatOfItsFile_data()
{
    QTest::addColumn<PageBlock>("block");
    for (const QString& page : pages()) {
        for (const PageBlock& block : blocksOf(page)) {
            const bool plain = block.language.isEmpty() || block.language == QLatin1String("sh");
            if (isComparedHere(block) && (!plain || !block.source.isEmpty()))
                QTest::newRow(qPrintable(block.place())) << block;
        }
    }
}

void PagesTest::codeIsThatOfItsFile()
{
    QFETCH(PageBlock, block);
    QVERIFY2(!block.source.isEmpty(),
             qPrintable(block.place() + QStringLiteral(": no comment says which file it is from")));
    const Region region = regionOf(block.source);
    QVERIFY2(
        region.problem.isEmpty(),
        qPrintable(block.place() + QStringLiteral(": %1: %2").arg(block.source, region.problem)));
    const auto differ = std::mismatch(block.lines.begin(), block.lines.end(), region.lines.begin(),
                                      region.lines.end());
    const int index = int(differ.first - block.lines.begin());
    const QString place = QStringLiteral("%1:%2")
                              .arg(block.source.section(QLatin1Char(':'), 0, 0))
                              .arg(region.begin + index + 1);
    QVERIFY2(block.lines == region.lines,
             qPrintable(QStringLiteral("the page and the file differ:") +
                        quoted(block.place(index), block.lines, index) +
                        quoted(place, region.lines, index)));
}

void PagesTest::commandsAreTaken_data()
{
    QTest::addColumn<QString>("command");
    static const QRegularExpression comment(QStringLiteral("\\s*(^|\\s)#.*$"));
    for (const QString& page : pages()) {
        for (const PageBlock& block : blocksOf(page)) {
            if (block.language != QLatin1String("sh") || !block.source.isEmpty())
                continue;
            for (int index = 0; index < block.lines.size(); ++index)
                QTest::newRow(qPrintable(block.place(index)))
                    << QString(block.lines.at(index)).remove(comment);
        }
    }
}

// Without a tablet a command cannot succeed, but its options are looked at first.
void PagesTest::commandsAreTaken()
{
    QFETCH(QString, command);
    const TestHost host;
    PageShell shell(host);
    shell.setWorkingDirectory(host.path({}));
    command.replace(QLatin1String("/dev/ttyUSB0"), QLatin1String("/dev/no-such-port"));
    const QString program = command.section(QLatin1Char(' '), 0, 0);
    QVERIFY2(programs.contains(program),
             qPrintable(QStringLiteral(
                            "'%1' is none of our commands: '<!-- run -->' before the block runs it")
                            .arg(command)));
    if (program == programs.first())
        command = QStringLiteral(SOURCE_DIRECTORY "/dev help | grep -q '^  %1 '")
                      .arg(command.section(QLatin1Char(' '), 1, 1));
    shell.run(command);
    QVERIFY2(shell.waitForFinished(20000), qPrintable(command));
    const QString output = QString::fromUtf8(shell.readAll());
    QVERIFY2(shell.exitCode() == 0 ||
                 (shell.exitCode() == 1 && output.contains(QLatin1String("digitizer: "))),
             qPrintable(QStringLiteral("'%1' ended with %2: %3")
                            .arg(command)
                            .arg(shell.exitCode())
                            .arg(output)));
}

QTEST_GUILESS_MAIN(PagesTest)
#include "PagesTest.moc"
