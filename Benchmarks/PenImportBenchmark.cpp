// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "RatioTable.h"
#include "support/TestHost.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QTextStream>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

// Importing one pen file of a million lines into a callback that adds up: the library against
// straightforward Qt code, and against a C function that does only this.

using namespace MavSystem;

namespace {

constexpr int lines = 1000000;
constexpr unsigned seed = 20260101;
constexpr double resolution = 10;

QString penFile; // path of the waiting file
QString importedFile;

struct Total
{
    long count = 0;
    double sum = 0;

    void add(double x, double y, int button)
    {
        ++count;
        sum += x + 3 * y + 7 * button;
    }
    double checksum() const { return sum + double(count); }
};

// What all three must decide: a line's kind, its numbers, the state that a button leads to, the
// position that ends a piece, the commands that close the file. A negative number counts as none.
struct Decisions
{
    Total total;
    int state = 1;
    int lastButton = 0;
    int coordinateButton = 0;

    static double centimetres(int value) { return (value < 0 ? 0.0 : value) / resolution / 10.0; }

    void deliver(int code, int x, int y) { total.add(centimetres(x), centimetres(y), code); }
    void button(int number)
    {
        lastButton = number;
        if (state == 4)
            deliver(4, 0, 0);
        if (number >= 1 && number <= 4)
            state = number;
    }
    void position(int x, int y)
    {
        coordinateButton = lastButton;
        deliver(state, short(x), short(y));
        if (state == 4)
            state = 1;
    }
    void endOfFile()
    {
        if (coordinateButton != 4) {
            button(4);
            position(0, 0);
        }
    }
};

Total withCFunction(const QByteArray& path)
{
    Decisions decisions;
    std::FILE* const file = std::fopen(path.constData(), "rb");
    char line[256];
    while (std::fgets(line, sizeof line, file)) {
        if (line[0] == 'A') {
            const char* const marker = std::strchr(line, '-');
            decisions.button(int(std::strtol(marker ? marker + 2 : line + 1, nullptr, 10)));
        } else if (line[0] == 'X') {
            const char* const first = std::strchr(line, ':');
            const char* const second = first ? std::strchr(first + 1, ':') : nullptr;
            decisions.position(first ? int(std::strtol(first + 1, nullptr, 10)) : 0,
                               second ? int(std::strtol(second + 1, nullptr, 10)) : 0);
        }
    }
    std::fclose(file);
    decisions.endOfFile();
    return decisions.total;
}

// As one would write it first.
Total withTwoExpressions(const QString& path)
{
    static const QRegularExpression buttonPattern(QStringLiteral("^A[^-]*-.\\s*([-+]?\\d+)"));
    static const QRegularExpression positionPattern(
        QStringLiteral("^X[^:]*:\\s*([-+]?\\d+)[^:]*:\\s*([-+]?\\d+)"));
    Decisions decisions;
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QTextStream stream(&file);
    while (!stream.atEnd()) {
        const QString line = stream.readLine();
        const QRegularExpressionMatch button = buttonPattern.match(line);
        if (button.hasMatch()) {
            decisions.button(button.captured(1).toInt());
            continue;
        }
        const QRegularExpressionMatch position = positionPattern.match(line);
        if (position.hasMatch())
            decisions.position(position.captured(1).toInt(), position.captured(2).toInt());
    }
    decisions.endOfFile();
    return decisions.total;
}

// As one would write it after measuring.
Total withOneExpression(const QString& path)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(?:A[^-]*-.\\s*(\\d+)|X[^:]*:\\s*([-+]?\\d+)[^:]*:\\s*([-+]?\\d+))"));
    Decisions decisions;
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QTextStream stream(&file);
    QString line;
    while (stream.readLineInto(&line)) {
        const QRegularExpressionMatch match = pattern.match(line);
        if (match.capturedLength(1) > 0)
            decisions.button(match.capturedRef(1).toInt());
        else if (match.hasMatch())
            decisions.position(match.capturedRef(2).toInt(), match.capturedRef(3).toInt());
    }
    decisions.endOfFile();
    return decisions.total;
}

void library(benchmark::State& state)
{
    const auto digitizer = Digitizer::instance();
    Total total;
    for (auto _ : state) {
        state.PauseTiming();
        digitizer->close();
        QFile::rename(importedFile, penFile);
        total = Total();
        DigitalReport::registerHandle([&](const DigitalReport& report) {
            const GeoPoint2D point = report.coordinate();
            total.add(point.x(), point.y(), report.m_button_number);
        });
        state.ResumeTiming();
        digitizer->open();
    }
    DigitalReport::unregisterHandle();
    digitizer->close();
    QFile::rename(importedFile, penFile);
    state.counters["checksum"] = total.checksum();
}
BENCHMARK(library)->Unit(benchmark::kMillisecond)->UseRealTime();

void cFunction(benchmark::State& state)
{
    const QByteArray path = QFile::encodeName(penFile);
    Total total;
    for (auto _ : state)
        total = withCFunction(path);
    state.counters["checksum"] = total.checksum();
}
BENCHMARK(cFunction)->Name("C: fgets, strtol")->UseRealTime();

template <Total (*import)(const QString&)>
void qtTextClasses(benchmark::State& state)
{
    Total total;
    for (auto _ : state)
        total = import(penFile);
    state.counters["checksum"] = total.checksum();
}
BENCHMARK_TEMPLATE(qtTextClasses, withTwoExpressions)
    ->Name("QTextStream, QRegularExpression")
    ->UseRealTime();
BENCHMARK_TEMPLATE(qtTextClasses, withOneExpression)
    ->Name("the same, tuned by hand")
    ->UseRealTime();

QByteArray penLines()
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> kind(0, 19);
    std::uniform_int_distribution<int> button(1, 5);
    std::uniform_int_distribution<int> coordinate(-500, 32767);
    QByteArray text;
    for (int line = 0; line < lines; ++line) {
        if (kind(random) == 0)
            text += "A pen - " + QByteArray::number(button(random)) + "\r\n";
        else
            text += "X: " + QByteArray::number(coordinate(random)) +
                    " Y: " + QByteArray::number(coordinate(random)) + "\r\n";
    }
    return text;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    TestHost host;
    host.answer = 0;
    host.writeDescription(
        QStringLiteral("pen.xml"),
        "<d name='Pen'><resolution unit='LPMM'>10</resolution><buttons count='4' length='1'>"
        "<button>1</button><button>2</button><button>3</button><button>4</button></buttons></d>");
    penFile = host.write(QStringLiteral("pen/big.dat"), penLines());
    importedFile = host.path(QStringLiteral("pen/big.txt"));
    QSettings().setValue(QStringLiteral("digitizer_file_directory"),
                         host.path(QStringLiteral("pen")));
    Digitizer::instance()->selectDevice(QStringLiteral("Pen"), QStringLiteral("File:"));
    std::printf("Importing a pen file of %d lines (seed %u)\n", lines, seed);
    return runWithRatios(argc, argv, "library");
}
