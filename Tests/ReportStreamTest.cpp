// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/ReportStream.h"
#include "support/DescribedTemplate.h"

#include <QtTest>

#include <algorithm>
#include <cstring>
#include <random>
#include <utility>

using namespace MavSystem;

namespace {

DigitizerArgument describe(const QByteArray& letters)
{
    DigitizerArgument description = describedTemplate(letters);
    description.m_buttons = {{{'1', ' ', ' '}}, {{'\x07', '\xe4', ' '}}};
    return description;
}

QByteArray unescaped(QByteArray text)
{
    for (int at = 0; (at = text.indexOf('\\', at)) >= 0; ++at) {
        if (text.at(at + 1) == 'x')
            text.replace(at, 4, QByteArray::fromHex(text.mid(at + 2, 2)));
        else
            text.replace(at, 2, text.at(at + 1) == 'r' ? "\r" : "\n");
    }
    return text;
}

// A report in brackets, other bytes in angles.
QByteArray itemsOf(ReportStream& stream)
{
    QByteArray items;
    while (const std::optional<StreamItem> item = stream.next())
        items += item->isReport ? '[' + item->bytes + ']' : '<' + item->bytes + '>';
    return items;
}

// What comes out of \a stream for what arrives, in the words of the rows.
QByteArray outcomeOf(ReportStream& stream, const QByteArray& arriving)
{
    QByteArray outcome;
    QByteArray chunk;
    for (const char byte : arriving + '/') {
        if (byte != '/' && byte != '|') {
            chunk += byte;
            continue;
        }
        stream.append(std::exchange(chunk, {}));
        outcome += itemsOf(stream);
        if (byte == '/')
            continue;
        stream.pause();
        outcome += itemsOf(stream) + '|';
    }
    return outcome;
}

} // namespace

/// How reports are found in a stream of bytes.
class ReportStreamTest : public QObject
{
    Q_OBJECT

private slots:
    void itemsComeOut_data();
    void itemsComeOut();
    void undamagedReportsComeOutOnce_data();
    void undamagedReportsComeOutOnce();
};

void ReportStreamTest::itemsComeOut_data()
{
    QTest::addColumn<QByteArray>("letters");
    QTest::addColumn<QByteArray>("arriving");
    QTest::addColumn<QByteArray>("outcome");
    QFile rows(QStringLiteral(SOURCE_DIRECTORY "/Tests/Streams/rows.txt"));
    QVERIFY(rows.open(QIODevice::ReadOnly));
    for (QByteArray line = rows.readLine(); !line.isEmpty(); line = rows.readLine()) {
        const QByteArrayList columns = line.split(';');
        if (line.startsWith('#'))
            continue;
        QCOMPARE(columns.size(), 4);
        QTest::newRow(columns.at(0).trimmed())
            << columns.at(1).trimmed() << unescaped(columns.at(2).trimmed())
            << unescaped(columns.at(3).trimmed());
    }
}

void ReportStreamTest::itemsComeOut()
{
    QFETCH(QByteArray, letters);
    QFETCH(QByteArray, arriving);
    ReportStream stream(describe(letters));
    QTEST(outcomeOf(stream, arriving), "outcome");
    QVERIFY(!arriving.endsWith('|') || !stream.needsPause());
}

namespace {

using Random = std::mt19937;

QByteArray randomTemplate(Random& random, const QByteArray& lineEnd, bool endInside)
{
    QByteArray letters;
    for (int fields = 3 + int(random() % 10); fields > 0; --fields)
        letters += "XXYYBUS."[random() % 8];
    if (endInside)
        letters.insert(1 + int(random() % unsigned(letters.size() - 1)), lineEnd);
    return letters + lineEnd;
}

QByteArray randomReport(Random& random, const QByteArray& letters)
{
    QByteArray report;
    for (const char letter : letters) {
        const char* const choice = letter == 'B'   ? "1234"
                                   : letter == 'U' ? ", 0\xff"
                                   : letter == 'S' ? "+-"
                                   : letter == '.' ? "."
                                   : letter == 'C' ? "\r"
                                   : letter == 'L' ? "\n"
                                                   : "0123456789";
        report += choice[random() % std::strlen(choice)];
    }
    return report;
}

// A byte lost, changed or added, the end or the beginning missing.
QByteArray damaged(Random& random, QByteArray report)
{
    const int at = int(random() % unsigned(report.size()));
    const char byte = "0123456789.+-\r\n?\xff"[random() % 17];
    switch (random() % 5) {
    case 0:
        return report.remove(at, 1);
    case 1:
        report[at] = byte;
        return report;
    case 2:
        return report.insert(at, byte);
    case 3:
        return report.left(at);
    default:
        return report.mid(at);
    }
}

bool fits(const ReportStream& stream, const QByteArray& bytes)
{
    bool all = bytes.size() == stream.reportSize();
    for (int i = 0; all && i < bytes.size(); ++i)
        all = stream.allows(i, bytes.at(i));
    return all;
}

// What one burst between two pauses holds, from the bytes alone. Where lines do not tell it, only
// what is certain: reports from its first byte on, and without line ends to its last one.
QByteArrayList reportsOf(const ReportStream& stream, const QByteArray& burst,
                         const QByteArray& letters)
{
    const int lineEnds = letters.count('C') + letters.count('L');
    const bool byLines = lineEnds == 1 && (letters.endsWith('C') || letters.endsWith('L'));
    QByteArrayList pieces;
    int begin = 0;
    for (int i = 1; i <= burst.size(); ++i) {
        const char lineEnd = letters.endsWith('C') ? '\r' : '\n';
        if (byLines ? burst.at(i - 1) == lineEnd : i - begin == letters.size()) {
            pieces << burst.mid(begin, i - begin);
            begin = i;
        }
    }
    const auto misfit = std::find_if(pieces.begin(), pieces.end(),
                                     [&](const QByteArray& bytes) { return !fits(stream, bytes); });
    if (lineEnds == 0)
        return misfit == pieces.end() && begin == burst.size() ? pieces : QByteArrayList();
    if (!byLines)
        return pieces.mid(0, int(misfit - pieces.begin()));
    pieces.erase(std::remove_if(misfit, pieces.end(),
                                [&](const QByteArray& bytes) { return !fits(stream, bytes); }),
                 pieces.end());
    return pieces;
}

// Appends the burst in random chunks, with a pause at its end, and returns what is handed over.
QByteArrayList handedOver(ReportStream& stream, const QByteArray& burst, Random& random)
{
    QByteArrayList reports;
    const auto take = [&] {
        while (const std::optional<StreamItem> item = stream.next()) {
            if (item->isReport)
                reports << item->bytes;
        }
    };
    for (int begin = 0; begin < burst.size();) {
        const int size = 1 + int(random() % 40);
        stream.append(burst.mid(begin, size));
        begin += size;
        take();
    }
    stream.pause();
    take();
    return reports;
}

} // namespace

void ReportStreamTest::undamagedReportsComeOutOnce_data()
{
    QTest::addColumn<QByteArray>("lineEnd");
    QTest::addColumn<bool>("inside");
    QTest::newRow("carriage return") << QByteArray("C") << false;
    QTest::newRow("line feed") << QByteArray("L") << false;
    QTest::newRow("line ends inside") << QByteArray("C") << true;
    QTest::newRow("no line end") << QByteArray() << false;
}

void ReportStreamTest::undamagedReportsComeOutOnce()
{
    QFETCH(QByteArray, lineEnd);
    QFETCH(bool, inside);
    const bool byLines = !inside && !lineEnd.isEmpty();
    const unsigned seed = 20261123;
    Random random(seed);
    int handed = 0;
    int undamaged = 0;
    for (int round = 0; round < 3000; ++round) {
        const QByteArray letters = randomTemplate(random, lineEnd, inside);
        ReportStream stream(describe(letters));
        for (int bursts = 3; bursts > 0; --bursts) {
            QByteArray burst;
            QByteArrayList due; // undamaged behind an undamaged one or a pause
            bool behindUndamaged = true;
            for (int reports = int(random() % 8); reports > 0; --reports) {
                const QByteArray report = randomReport(random, letters);
                const bool whole = random() % 5 != 0;
                if (whole && behindUndamaged)
                    due << report;
                behindUndamaged = whole;
                burst += whole ? report : damaged(random, report);
            }
            const QByteArrayList expected = reportsOf(stream, burst, letters);
            const QByteArrayList reports = handedOver(stream, burst, random);
            const QByteArray context = "seed " + QByteArray::number(seed) + ", template " +
                                       letters + ", burst " + burst.toPercentEncoding() +
                                       ", handed over " + reports.join('|').toPercentEncoding();
            handed += reports.size();
            undamaged += due.size();
            if (byLines)
                QVERIFY2(reports == expected, context);
            QVERIFY2(reports.mid(0, expected.size()) == expected, context);
            auto next = reports.begin();
            for (const QByteArray& report : byLines ? due : QByteArrayList()) {
                next = std::find(next, reports.end(), report);
                QVERIFY2(next++ != reports.end(), context);
            }
        }
    }
    qInfo("seed %u: %d handed over, %d were due", seed, handed, undamaged);
}

QTEST_APPLESS_MAIN(ReportStreamTest)
#include "ReportStreamTest.moc"
