// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "RatioTable.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/TestHost.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSerialPort>

#include <benchmark/benchmark.h>

#include <cstdio>

// The time from a write at the far end of a pseudo-terminal until the host has the report, against
// a bare QSerialPort until its receiver has the same bytes.

using namespace MavSystem;
using namespace ReferenceHost;

namespace {

const char report[] = "12345,06789,4\r\n";
constexpr int reportLength = int(sizeof report) - 1;

void waitFor(const bool& arrived)
{
    while (!arrived)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void library(benchmark::State& state)
{
    PseudoTerminal tablet;
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("Benchmark"), tablet.path());
    bool arrived = false;
    DigitalReport::registerHandle([&](const DigitalReport&) { arrived = true; });
    if (!digitizer->open())
        return state.SkipWithError("the port does not open");
    digitizer->readReport();
    for (auto _ : state) {
        arrived = false;
        tablet.write(report);
        waitFor(arrived);
    }
    state.counters["checksum"] = arrived ? reportLength : 0;
    DigitalReport::unregisterHandle();
    digitizer->close();
}
BENCHMARK(library)->UseRealTime();

void bareQSerialPort(benchmark::State& state)
{
    PseudoTerminal tablet;
    QSerialPort port(tablet.path());
    if (!port.open(QIODevice::ReadWrite))
        return state.SkipWithError("the port does not open");
    QByteArray received;
    bool arrived = false;
    QObject::connect(&port, &QSerialPort::readyRead, [&] {
        received += port.readAll();
        arrived = received.size() == reportLength;
    });
    for (auto _ : state) {
        arrived = false;
        received.clear();
        tablet.write(report);
        waitFor(arrived);
    }
    state.counters["checksum"] = received.size();
}
BENCHMARK(bareQSerialPort)->Name("bare QSerialPort")->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    TestHost host;
    host.writeDescription(
        QStringLiteral("benchmark.xml"),
        "<d name='Benchmark'><ioPort><serial baudrate='9600' databit='8' parity='None' stopbit='1' "
        "flowctrl='none'/></ioPort><resolution unit='LPI'>1000</resolution>"
        "<reportFormat length='15'>XXXXXUYYYYYUBCL</reportFormat>"
        "<buttons count='4' length='1'><button>4</button></buttons></d>");
    std::printf("From a write at the far end of a pseudo-terminal to the receiver\n");
    return runWithRatios(argc, argv, "library");
}
