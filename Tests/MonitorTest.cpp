// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "ReferenceHost/Serial/LineMonitor.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescribedTemplate.h"
#include "support/TestHost.h"

#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

using namespace MavSystem;
using namespace ReferenceHost;

/// What "monitor" makes of the bytes of a line.
class MonitorTest : public QObject
{
    Q_OBJECT

private slots:
    void bytesAreListedWithTheirRoles_data();
    void bytesAreListedWithTheirRoles();
    void theSummaryCounts();
    void aLineIsShownUntilItEnds_data();
    void aLineIsShownUntilItEnds();
};

namespace {

DigitizerArgument describe(const QByteArray& letters)
{
    DigitizerArgument description = describedTemplate(letters);
    description.m_resolution = 10;
    description.m_fourButtons = true;
    description.m_buttonCodeLength = 1;
    description.m_buttons = {{{'1', ' ', ' '}}, {{'2', ' ', ' '}}};
    return description;
}

LineMonitor monitor(const QByteArray& letters)
{
    const DigitizerArgument description = describe(letters);
    return LineMonitor(description, [=](const QByteArray& bytes) -> std::optional<DigitalReport> {
        return FieldDecoding::reportOf(description, ReportLayout(description), bytes.constData(),
                                       FieldDecoding::decodeButton |
                                           FieldDecoding::decodeCoordinate);
    });
}

const QByteArray zero(1, '\0');

} // namespace

void MonitorTest::bytesAreListedWithTheirRoles_data()
{
    QTest::addColumn<QByteArray>("letters");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected"); // each run of blanks as one
    const auto row = [](const char* name, const char* letters, const QByteArray& bytes,
                        const char* expected) {
        QTest::newRow(name) << QByteArray(letters) << bytes << QString::fromLatin1(expected);
    };
    row("report", "XX.XUYYUBC", "12.3,45,2\r",
        " 1.500 31 32 2e 33 2c 34 35 2c 32 0d |12.3,45,2.|\n"
        " X X . X U Y Y U B C button 2 at 0.1230, 0.4500 cm\n");
    row("damaged", "XXYYBC", "1\xb2 41\r",
        " 1.500 31 b2 20 34 31 0d |1. 41.|\n"
        " X !X !Y Y B C passed over by the driver: 2 characters do not fit\n");
    row("stray", "XXYYBC", "3\r12341\r",
        " 1.500 33 0d |3.|\n ? ? 2 stray bytes\n"
        " 1.500 31 32 33 34 31 0d |12341.|\n X X Y Y B C button 1 at 0.1200, 0.3400 cm\n");
    row("a report after a pause", "XYB", "121",
        " 2.000 31 32 31 |121|\n X Y B button 1 at 0.0100, 0.0200 cm\n");
    row("two that overlap", "XYB", "1211", " 2.000 31 32 31 31 |1211|\n ? ? ? ? 4 stray bytes\n");
    row("zero byte", "XYBUC", "121" + zero + "\r",
        " 1.500 31 32 31 00 0d |121..|\n X Y B U C button 1 at 0.0100, 0.0200 cm\n");
    row("incomplete", "XXYYBC", "1", " 2.000 31 |1|\n ? a stray byte\n");
    row("a report a chunk", "", "12", " 1.500 31 32 |12|\n button 0 at 0.0000, 0.0000 cm\n");
    row("longer than a row", "XXYYBUUUUUUUUUUUUUUUUUC", "12341,,,,,,,,,,,,,,,,,\r",
        " 1.500 31 32 33 34 31 2c 2c 2c 2c 2c 2c 2c 2c 2c 2c 2c 2c 2c 2c 2c "
        "|12341,,,,,,,,,,,,,,,|\n"
        " X X Y Y B U U U U U U U U U U U U U U U\n 2c 2c 0d |,,.|\n"
        " U U C button 1 at 0.1200, 0.3400 cm\n");
}

void MonitorTest::bytesAreListedWithTheirRoles()
{
    QFETCH(QByteArray, letters);
    QFETCH(QByteArray, bytes);
    LineMonitor listing = monitor(letters);
    QString text = listing.take(1500, bytes);
    text += listing.pause(2000);
    const int marks = text.indexOf(QLatin1Char('\n')) + 1;
    if (!letters.isEmpty()) // beneath each other
        QCOMPARE(text.indexOf(QRegularExpression(QStringLiteral("[XY?]"))), marks + 13);
    text.replace(QRegularExpression(QStringLiteral(" +")), QStringLiteral(" "));
    QTEST(text, "expected");

    LineMonitor plain;
    QVERIFY(plain.take(0, bytes).contains(QString::fromLatin1(bytes.left(20).toHex(' '))));
    QCOMPARE(plain.summary(), QStringLiteral("%1 bytes\n").arg(bytes.size()));
}

void MonitorTest::theSummaryCounts()
{
    LineMonitor listing = monitor("XXYYBC");
    QCOMPARE(listing.summary(), QStringLiteral("0 bytes, 0 reports, 0 bytes passed over\n"));
    listing.take(1000, "12341\r");
    listing.take(1500, "!\r90051\r");
    listing.take(2000, "9:991\r12351\r");
    QCOMPARE(listing.summary(),
             QStringLiteral("26 bytes, 3 reports (2.0 a second), 8 bytes passed over; "
                            "largest x 0.9000 cm, largest y 0.3500 cm\n"));
}

void MonitorTest::aLineIsShownUntilItEnds_data()
{
    QTest::addColumn<bool>("cablePulled");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("tablet");
    QTest::newRow("stopped") << false << QStringLiteral("--driver")
                             << QStringLiteral("Genius NewSketch MM (500 LPI)");
    QTest::newRow("cable pulled") << true << QStringLiteral("--description")
                                  << QStringLiteral(SOURCE_DIRECTORY "/Plugins/digitizer/generated/"
                                                                     "genius-newsketch-mm.xml");
}

void MonitorTest::aLineIsShownUntilItEnds()
{
    QFETCH(bool, cablePulled);
    QFETCH(QString, option);
    QFETCH(QString, tablet);
    TestHost host;
    PseudoTerminal terminal;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), host.path(QStringLiteral("home")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), host.path(QStringLiteral("home")));
    process.setProcessEnvironment(environment);
    QByteArray output;
    connect(&process, &QProcess::readyReadStandardOutput, this,
            [&] { output += process.readAllStandardOutput(); });
    process.start(
        QStringLiteral(PROGRAM_DIRECTORY "/digitizer"),
        {QStringLiteral("monitor"), QStringLiteral("--device"), terminal.path(), option, tablet});
    process.write("\n"); // once the port is open, the summary shows it
    QTRY_VERIFY2(output.contains("0 bytes"), qPrintable(process.errorString()));
    QVERIFY(terminal.write("?,\n1234,0567,2\r\n12"));
    QTRY_VERIFY2(output.contains("2 stray bytes"), output.constData()); // after a pause
    QVERIFY2(output.contains("button 2 at 6.2679, 2.8800 cm"), output.constData());
    if (cablePulled)
        terminal.hangUp();
    else
        process.terminate();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), cablePulled ? 1 : 0);
    QVERIFY2(output.contains("18 bytes, 1 reports, 5 bytes passed over"), output.constData());
}

QTEST_GUILESS_MAIN(MonitorTest)
#include "MonitorTest.moc"
