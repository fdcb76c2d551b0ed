// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "Fuzzing/ReentrantHost.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/PenInput.h"
#include "support/TextRows.h"

#include <QtTest>

#include <sys/wait.h>
#include <unistd.h>

namespace {
// In a process of its own: the driver starts anew, and one that crashes does not end the others.
bool runAlone(const QByteArray& decisions)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(20); // a host that does not end has failed
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        const QStringList faults = ReentrantHost::run(decisions);
        for (const QString& fault : faults)
            std::fprintf(stderr, "%s\n", qPrintable(fault));
        std::_Exit(faults.isEmpty() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

/// Random hosts that call the driver from inside its own calls. REENTRY_SEEDS=1-200 runs these
/// seeds.
class ReentryTest : public QObject
{
    Q_OBJECT

private slots:
    void keptHosts_data()
    {
        QTest::addColumn<QString>("path");
        const QDir corpus(SOURCE_DIRECTORY "/Fuzzing/corpus/reentry");
        for (const QFileInfo& file : corpus.entryInfoList(QDir::Files))
            QTest::newRow(qPrintable(file.fileName())) << file.filePath();
    }

    void keptHosts()
    {
        QFETCH(QString, path);
        QVERIFY(runAlone(bytesOf(path)));
    }

    void randomHosts()
    {
        const QStringList range = qEnvironmentVariable("REENTRY_SEEDS", "1-30").split('-');
        QStringList failed;
        for (int seed = range.first().toInt(); seed <= range.last().toInt(); ++seed) {
            if (!runAlone(ReentrantHost::randomDecisions(quint32(seed))))
                failed << QString::number(seed);
        }
        QVERIFY2(failed.isEmpty(), qPrintable("seeds " + failed.join(' ')));
    }

    void aPortBehindThePenInputClosesAfterIt()
    {
        PenInput pen;
        const ReferenceHost::PseudoTerminal tablet;
        pen.digitizer->selectDevice("A", tablet.path());
        QVERIFY(pen.digitizer->open());
        pen.digitizer->selectDevice("A", "File:");
        QVERIFY(pen.digitizer->open());
        QVERIFY(!pen.digitizer->close());
        QVERIFY(pen.digitizer->active());
        QVERIFY(pen.reports.isEmpty());
        QVERIFY(pen.digitizer->close());
        QVERIFY(!pen.digitizer->active());
        QCOMPARE(pen.reports.size(), 1);
    }
};

QTEST_GUILESS_MAIN(ReentryTest)
#include "ReentryTest.moc"
