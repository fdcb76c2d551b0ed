// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "support/TestHost.h"
#include "tablet-simulator/PseudoTerminal.h"

#include <QtTest>

using namespace MavSystem;

/// The serial road from the line to the handler, through a real pseudo-terminal.
class SerialRoadTest : public QObject
{
    Q_OBJECT

private slots:
    void reportsTravelFromTheLineToTheHandler();
};

void SerialRoadTest::reportsTravelFromTheLineToTheHandler()
{
    TestHost host;
    host.writeDescription(QStringLiteral("a.xml"),
                          R"(<d name="A"><ioPort><serial baudrate="9600" databit="8"
        parity="None" stopbit="1" flowctrl="none"/></ioPort><resolution unit="LPMM">10</resolution>
        <reportFormat length="9">XXXXYYYYB</reportFormat>
        <buttons count="4" length="1"><button>1</button><button>2</button></buttons></d>)");
    PseudoTerminal tablet;
    QVERIFY2(tablet.isOpen(), qPrintable(tablet.errorString()));
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("A"), tablet.path());
    QList<DigitalReport> reports;
    DigitalReport::registerHandle([&](const DigitalReport& report) { reports << report; });
    QVERIFY(digitizer->open());
    digitizer->readReport();

    QVERIFY(tablet.write("123456782"));
    QTRY_COMPARE(reports.size(), 1);
    QCOMPARE(reports.at(0).coordinate().x(), 12.34);
    QCOMPARE(reports.at(0).coordinate().y(), 56.78);
    QCOMPARE(reports.at(0).m_button_number, 2);

    QVERIFY(digitizer->close());
    QCOMPARE(reports.size(), 2);
    QCOMPARE(reports.at(1).m_button_number, 5);
    DigitalReport::unregisterHandle();
}

QTEST_GUILESS_MAIN(SerialRoadTest)
#include "SerialRoadTest.moc"
