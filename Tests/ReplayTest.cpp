// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "ReferenceHost/Serial/RecordedSession.h"
#include "support/DescriptionBuilder.h"
#include "support/Descriptions.h"
#include "support/RecordedMessages.h"
#include "support/TestHost.h"

#include <limits>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {
// The reports that are there after the chunk of \a milliseconds.
QStringList expectedUntil(const QByteArray& expected, qint64 milliseconds)
{
    QStringList reports;
    for (const QByteArray& line : expected.split('\n')) {
        const int blank = line.indexOf(' ');
        if (blank > 0 && !line.startsWith('#') && line.left(blank).toLongLong() <= milliseconds)
            reports << line.mid(blank + 1);
    }
    return reports;
}

} // namespace

/// Every recorded session Replay/*.log, chunk by chunk through a real pseudo-terminal and the
/// driver. Beside it, *.expected has a line "time x y button" for each report: the time of the
/// chunk that completes it, and the point in centimetres to nine decimals.
class ReplayTest : public QObject
{
    Q_OBJECT

private slots:
    void sessionsGiveTheExpectedReports_data()
    {
        QTest::addColumn<QByteArray>("log");
        QTest::addColumn<QByteArray>("expected");
        auto files = Descriptions::filesIn("Tests/Replay");
        for (const auto& [name, content] : files) {
            if (name.endsWith(".log"))
                QTest::newRow(qPrintable(name))
                    << content << files[QString(name).replace(".log", ".expected")];
        }
    }

    void sessionsGiveTheExpectedReports()
    {
        QFETCH(QByteArray, log);
        QFETCH(QByteArray, expected);
        const auto session = readSession(log);
        QVERIFY2(session, qPrintable(session ? QString() : session.error()));
        QVERIFY(!session->chunks.isEmpty());
        QVERIFY2(!expected.isEmpty(), "there is no expectation beside the log");

        TestHost host;
        for (const auto& [name, content] : Descriptions::files())
            host.writeDescription(name, content);
        host.writeDescription("lectra.xml", DescriptionBuilder("Lectra E92").xml());
        const RecordedMessages messages(true);
        PseudoTerminal tablet;
        QStringList reports;
        DigitalReport::registerHandle(
            [&](const DigitalReport& report) { reports << Descriptions::textOf(report); });
        const auto digitizer = Digitizer::instance();
        const auto atEnd = qScopeGuard([&] {
            DigitalReport::unregisterHandle();
            digitizer->close();
            // The "Lectra E92" keeps a log of its own beside the program.
            QFile::remove(QCoreApplication::applicationDirPath() + "/received_data.txt");
        });
        digitizer->selectDevice(session->driver, tablet.path());
        QVERIFY(digitizer->open());
        digitizer->readReport();
        for (const RecordedSession::Chunk& chunk : session->chunks) {
            const int before = RecordedMessages::texts().size();
            QVERIFY(tablet.write(chunk.bytes));
            QTRY_VERIFY(RecordedMessages::texts().size() > before); // the driver has looked at it
            QCOMPARE(reports, expectedUntil(expected, chunk.milliseconds));
        }
        QCOMPARE(reports, expectedUntil(expected, std::numeric_limits<qint64>::max()));
    }
};

QTEST_GUILESS_MAIN(ReplayTest)
#include "ReplayTest.moc"
