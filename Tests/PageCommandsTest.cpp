// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "support/PageBlocks.h"
#include "support/PageShell.h"

#include <QtTest>

#include <algorithm>
#include <memory>
#include <vector>

/// Runs the commands of the pages in their order, as somebody does who follows the page with a new
/// home. The comment before a block says how:
///
///     run                   each command succeeds
///     run, ends with N      the last command ends with this status
///     run, other terminal   the commands go on beside the next ones, from the first line that they
///                           print, and succeed before the page ends
///     output                what the last commands of this terminal have printed; "..." stands for
///                           any lines
class PageCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void commandsDoWhatThePageSays_data();
    void commandsDoWhatThePageSays();
};

Q_DECLARE_METATYPE(PageBlock)

namespace {

constexpr int patience = 100000; // milliseconds; some commands compile

bool isRun(const PageBlock& block)
{
    return block.source.startsWith(QLatin1String("run"));
}

bool buildsAnotherFolder(const PageBlock& block)
{
    return isRun(block) && !block.lines.filter(QLatin1String("./dev ")).isEmpty() &&
           QLatin1String(PROGRAM_DIRECTORY) != QLatin1String(SOURCE_DIRECTORY "/build/release/bin");
}

/// Somebody who follows a page. Each operation returns what went wrong, or an empty text.
class Reader
{
public:
    QString follow(const PageBlock& block)
    {
        if (block.source == QLatin1String("output"))
            return compare(block.lines);
        if (block.source == QLatin1String("run, other terminal"))
            return runBeside(block.lines);
        if (isRun(block))
            return run(block.lines, block.source.section(QLatin1String("ends with "), 1).toInt());
        return {};
    }

    QString finish()
    {
        QString problem;
        for (const auto& terminal : m_terminals)
            problem += end(*terminal, 0);
        return problem;
    }

private:
    QString run(const QStringList& commands, int status)
    {
        PageShell shell(m_host);
        shell.run(commands.join(QLatin1Char('\n')));
        return end(shell, status);
    }

    QString runBeside(const QStringList& commands)
    {
        m_terminals.push_back(std::make_unique<PageShell>(m_host));
        m_terminals.back()->run(commands.join(QLatin1Char('\n')));
        return m_terminals.back()->waitForReadyRead(patience)
                   ? QString()
                   : QStringLiteral("nothing is printed");
    }

    QString end(PageShell& shell, int status)
    {
        const bool ended = shell.waitForFinished(patience);
        m_output = QString::fromUtf8(shell.readAll());
        m_output.replace(m_host.path(QStringLiteral("home")), QLatin1String("/home/ann"));
        if (ended && shell.exitCode() == status)
            return {};
        return (ended ? QStringLiteral("ended with %1, after\n").arg(shell.exitCode())
                      : QStringLiteral("does not end, after\n")) +
               m_output;
    }

    QString compare(const QStringList& lines) const
    {
        QString pattern;
        for (const QString& line : lines)
            pattern += line == QLatin1String("...")
                           ? QStringLiteral("(.*\n)*")
                           : QRegularExpression::escape(line) + QLatin1Char('\n');
        const QRegularExpression expected(QRegularExpression::anchoredPattern(pattern));
        return expected.match(m_output).hasMatch()
                   ? QString()
                   : QStringLiteral("this was printed:\n") + m_output;
    }

    TestHost m_host;
    QString m_output;
    std::vector<std::unique_ptr<PageShell>> m_terminals;
};

} // namespace

void PageCommandsTest::commandsDoWhatThePageSays_data()
{
    QTest::addColumn<QVector<PageBlock>>("blocks");
    for (const QString& page : pages()) {
        const QVector<PageBlock> blocks = blocksOf(page);
        if (std::any_of(blocks.begin(), blocks.end(), isRun))
            QTest::newRow(qPrintable(page)) << blocks;
    }
}

void PageCommandsTest::commandsDoWhatThePageSays()
{
    QFETCH(QVector<PageBlock>, blocks);
    Reader reader;
    for (const PageBlock& block : blocks) {
        if (buildsAnotherFolder(block))
            QSKIP("./dev builds and installs build/release, which is not this build");
        const QString problem = reader.follow(block);
        QVERIFY2(problem.isEmpty(), qPrintable(block.place() + QLatin1String(": ") + problem));
    }
    const QString problem = reader.finish();
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

QTEST_GUILESS_MAIN(PageCommandsTest)
#include "PageCommandsTest.moc"
