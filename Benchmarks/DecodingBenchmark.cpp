// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "RatioTable.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/TestHost.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QRegularExpression>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <regex>

// Decoding one report of 15 characters (twice five digits and a button) into a point and a button
// number: the library, which uses the description's template, against decoders that are written for
// this layout only.

using namespace MavSystem;
using namespace ReferenceHost;

namespace {

const char report[] = "12345,06789,4\r\n";
constexpr std::array<char, 16> buttonCodes = {'1', '2', '3', '4', '5', '6', '7', '8',
                                              '9', 'A', 'B', 'C', 'D', 'E', 'F', 'G'};
constexpr double centimetresPerInch = 2.5396825396825;
constexpr double resolution = 1000;

struct Decoded
{
    double x;
    double y;
    int button;
};

Decoded decoded(double x, double y, char button)
{
    const auto* const found = std::find(buttonCodes.begin(), buttonCodes.end(), button);
    return {x * centimetresPerInch / resolution, y * centimetresPerInch / resolution,
            found == buttonCodes.end() ? 0 : int(found - buttonCodes.begin())};
}

Decoded byHand(const char* text)
{
    int x = 0;
    int y = 0;
    for (int i = 0; i < 5; ++i)
        x = x * 10 + (text[i] - '0');
    for (int i = 6; i < 11; ++i)
        y = y * 10 + (text[i] - '0');
    return decoded(x, y, text[12]);
}

Decoded byScanf(const char* text)
{
    int x = 0;
    int y = 0;
    char button = 0;
    std::sscanf(text, "%5d,%5d,%c", &x, &y, &button); // NOLINT: a rival as it is written everywhere
    return decoded(x, y, button);
}

Decoded byStdRegex(const char* text)
{
    static const std::regex pattern("(\\d{5}),(\\d{5}),(.)\r\n");
    std::cmatch match;
    std::regex_match(text, match, pattern);
    return decoded(std::stoi(match[1]), std::stoi(match[2]), *match[3].first);
}

Decoded byQRegularExpression(const char* text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{5}),(\\d{5}),(.)\\r\\n"));
    const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(text));
    return decoded(match.capturedRef(1).toInt(), match.capturedRef(2).toInt(),
                   match.capturedRef(3).at(0).toLatin1());
}

double checksum(double x, double y, int button)
{
    return x + 1000 * y + 1e6 * button;
}

void library(benchmark::State& state)
{
    const auto digitizer = Digitizer::instance();
    double sum = 0;
    for (auto _ : state) {
        const DigitalReport result = digitizer->parseReportText(0x7f);
        sum = checksum(result.coordinate().x(), result.coordinate().y(), result.m_button_number);
        benchmark::DoNotOptimize(sum);
        benchmark::ClobberMemory();
    }
    state.counters["checksum"] = sum;
}
BENCHMARK(library);

template <Decoded (*decode)(const char*)>
void rival(benchmark::State& state)
{
    char text[sizeof report];
    std::copy(std::begin(report), std::end(report), text);
    double sum = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(text);
        const Decoded result = decode(text);
        sum = checksum(result.x, result.y, result.button);
        benchmark::DoNotOptimize(sum);
        benchmark::ClobberMemory();
    }
    state.counters["checksum"] = sum;
}
BENCHMARK_TEMPLATE(rival, byHand)->Name("loop written by hand");
BENCHMARK_TEMPLATE(rival, byScanf)->Name("sscanf");
BENCHMARK_TEMPLATE(rival, byStdRegex)->Name("std::regex");
BENCHMARK_TEMPLATE(rival, byQRegularExpression)->Name("QRegularExpression");

QByteArray description()
{
    QByteArray buttons;
    for (const char code : buttonCodes)
        buttons += QByteArrayLiteral("<button>") + code + QByteArrayLiteral("</button>");
    return QByteArrayLiteral(
               "<d name='Benchmark'><ioPort><serial baudrate='9600' databit='8' parity='None' "
               "stopbit='1' flowctrl='none'/></ioPort><resolution unit='LPI'>1000</resolution>"
               "<reportFormat length='15'>XXXXXUYYYYYUBCL</reportFormat>"
               "<buttons count='16' length='1'>") +
           buttons + QByteArrayLiteral("</buttons></d>");
}

// The library decodes the last chunk that it read, so one report is sent first.
bool receiveOneReport(PseudoTerminal& tablet)
{
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("Benchmark"), tablet.path());
    bool arrived = false;
    DigitalReport::registerHandle([&](const DigitalReport&) { arrived = true; });
    if (!digitizer->open())
        return false;
    digitizer->readReport();
    tablet.write(report);
    for (int round = 0; round < 1000 && !arrived; ++round)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    DigitalReport::unregisterHandle();
    return arrived;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    TestHost host;
    host.writeDescription(QStringLiteral("benchmark.xml"), description());
    PseudoTerminal tablet;
    if (!receiveOneReport(tablet)) {
        std::fprintf(stderr, "no report arrived through the pseudo-terminal\n");
        return 1;
    }
    std::printf("Decoding one report of 15 characters\n");
    return runWithRatios(argc, argv, "library");
}
