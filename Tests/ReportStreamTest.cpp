// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/ReportStream.h"

#include <QtTest>

#include <algorithm>
#include <cstring>
#include <random>

using namespace MavSystem;

namespace {

const char pauseMark = '|';

DigitizerArgument describe(const QByteArray& letters)
{
    DigitizerArgument description;
    for (const char letter : letters)
        description.m_reportFormat.push_back(
            ReportFormatValues(QByteArray("?BXYU.SCL").indexOf(letter)));
    description.m_reportLength = std::uint64_t(letters.size());
    description.m_buttons = {{{'1', ' ', ' '}}, {{'\x07', '\xe4', ' '}}};
    return description;
}

QByteArray textOf(const StreamItem& item)
{
    return item.isReport ? '[' + item.bytes + ']' : item.bytes;
}

QByteArray itemsOf(ReportStream& stream)
{
    QByteArray items;
    while (const std::optional<StreamItem> item = stream.next())
        items += textOf(*item);
    return items;
}

struct Row
{
    const char* name;
    const char* letters;
    QByteArrayList chunks; ///< each ends in "|" when a pause comes after it
    QByteArray items;      ///< a report in brackets, other bytes without; "|" where a pause came
};

const QByteArray zero(1, '\0');

const Row rows[] = {
    {"whole", "XXUYYUBCL", {"12,34,1\r\n"}, "[12,34,1\r\n]"},
    {"in parts", "XXUYYUBCL", {"12,3", "4,1\r", "\n"}, "[12,34,1\r\n]"},
    {"merged", "XXUYYUBCL", {"12,34,1\r\n56,78,2\r\n5"}, "[12,34,1\r\n][56,78,2\r\n]"},
    {"garbage in front",
     "XXUYYUBCL",
     {"\xff#12,34,1\r\n56,78,2\r\n"},
     "\xff#12,34,1\r\n[56,78,2\r\n]"},
    {"garbage, then a pause", "XXUYYUBCL", {"\xff#1|", "12,34,1\r\n"}, "\xff#1|[12,34,1\r\n]"},
    {"line end in front", "XXUYYUBCL", {"\r\n12,34,1\r\n"}, "\r\n[12,34,1\r\n]"},
    {"truncated", "XXUYYUBCL", {"12,34\r\n56,78,2\r\n"}, "12,34\r\n[56,78,2\r\n]"},
    {"truncated, then a pause", "XXUYYUBCL", {"12,3|", "56,78,2\r\n"}, "12,3|[56,78,2\r\n]"},
    {"line end truncated",
     "XXUYYUBCL",
     {"12,34,156,78,2\r\n12,34,1\r\n"},
     "12,34,156,78,2\r\n[12,34,1\r\n]"},
    {"carriage return lost", "XXUYYUBCL", {"12,34,1\n56,78,2\r\n"}, "12,34,1\n[56,78,2\r\n]"},
    {"line feed lost",
     "XXUYYUBCL",
     {"12,34,1\r56,78,2\r\n12,34,1\r\n"},
     "12,34,1\r56,78,2\r\n[12,34,1\r\n]"},
    {"byte too many", "XXUYYUBCL", {"12,345,1\r\n56,78,2\r\n"}, "12,345,1\r\n[56,78,2\r\n]"},
    {"nothing from a longer line", "XXUYYUBCL", {"912,34,1\r\n"}, "912,34,1\r\n"},
    {"damaged digit", "XXUYYUBCL", {"1\xb2,34,1\r\n12,34,1\r\n"}, "1\xb2,34,1\r\n[12,34,1\r\n]"},
    {"blank for a digit", "XXUYYUBCL", {" 2,34,1\r\n"}, " 2,34,1\r\n"},
    {"unused may be anything",
     "XXUYYUBCL",
     {"12" + zero +
      "34\xff"
      "1\r\n"},
     "[12" + zero +
         "34\xff"
         "1\r\n]"},
    {"but no line end", "XXUYYUBCL", {"12\n34,1\r\n"}, "12\n34,1\r\n"},
    {"unless the template has none of it",
     "XXYYBUL",
     {"12341\r\n12341\r\n"},
     "[12341\r\n][12341\r\n]"},
    {"any printable button",
     "XXYYBC",
     {"1234~\r1234 \r1234\x7f\r"},
     "[1234~\r][1234 \r]1234\x7f\r"},
    {"a code's characters",
     "XXYYBBC",
     {"1234\x07\xe4\r1234\xe4\x07\r"},
     "[1234\x07\xe4\r]1234\xe4\x07\r"},
    {"a code's character in its place",
     "XXYYBBC",
     {"1234\xe4"
      "1\r"},
     "1234\xe4"
     "1\r"},
    {"signs", "SXSYBC", {"+1-21\r 1 21\r*1-21\r"}, "[+1-21\r][ 1 21\r]*1-21\r"},
    {"points", "X.XYBC", {"1.231\r1,231\r"}, "[1.231\r]1,231\r"},
    {"another line end follows",
     "XXYYBC",
     {"12341\r\n|", "56782\r\n|"},
     "[12341\r]\n|[56782\r]\n|"},
    {"line ends inside too",
     "XXBCYYBC",
     {"121\r341\r", "561\r78?\r.|", "121\r341\r"},
     "[121\r341\r][561\r78?\r].|[121\r341\r]"},
    {"halves are no place to begin",
     "XXBCYYBC",
     {"1?1\r341\r121\r341\r121\r341\r|", "121\r341\r"},
     "1?1\r341\r121\r341\r121\r341\r|[121\r341\r]"},
    {"unless only one of them fits",
     "XXBCY.YBC",
     {"1?1\r3.41\r121\r3.41\r"},
     "1?1\r3.41\r[121\r3.41\r]"},
    {"line end inside only", "XXCYYB", {"12\r341x12\r341|"}, "[12\r341]x12\r341|"},
    {"line feed first",
     "LXXYYB",
     {"\n12341\n56782", "x\n12341|", "\n12341"},
     "[\n12341][\n56782]x[\n12341]|[\n12341]"},
    {"no line end", "XXUYYUB", {"12,34,1|"}, "[12,34,1]|"},
    {"no line end, what may overlap waits", "XXYYB", {"12341"}, ""},
    {"no line end, whole reports in a burst", "XXYYB", {"123415", "6782|", "1"}, "[12341][56782]|"},
    {"no line end, one digit too many", "XXYYB", {"912341|", "12341|"}, "912341|[12341]|"},
    {"no line end, truncated", "XXYYB", {"1234112|", "12341|"}, "1234112|[12341]|"},
    {"no line end, the end decides the place", "XXYYB", {"?12341|"}, "?[12341]|"},
    {"no line end, the next byte decides", "XXYYB", {"12341\x01"}, "[12341]\x01"},
    {"no line end, lost and two would fit", "XXYYB", {"?123412|"}, "?123412|"},
    {"no line end, lost and whole reports", "XXYYB", {"?1234156782|"}, "?1234156782|"},
    {"no line end, points keep the place",
     "XX.XYYB",
     {"12.34511", "2.34511|"},
     "[12.3451][12.3451]1|"},
    {"no line end, signs find it again",
     "SXXSYYB",
     {"*+12-341+1", "2-341|"},
     "*[+12-341][+12-341]|"},
    {"no template", "", {"12", "34"}, "1234"},
};

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
    QTest::addColumn<int>("index");
    for (int index = 0; index < int(std::size(rows)); ++index)
        QTest::newRow(rows[index].name) << index;
}

void ReportStreamTest::itemsComeOut()
{
    QFETCH(int, index);
    const Row* const row = &rows[index];
    ReportStream stream(describe(row->letters));
    QByteArray items;
    for (QByteArray chunk : row->chunks) {
        const bool paused = chunk.endsWith(pauseMark);
        stream.append(chunk.left(chunk.size() - paused));
        items += itemsOf(stream);
        if (!paused)
            continue;
        stream.pause();
        items += itemsOf(stream) + pauseMark;
        QVERIFY(!stream.needsPause());
    }
    QCOMPARE(items, row->items);
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
QByteArrayList handedOver(ReportStream& stream, const QByteArray& burst, Random& random,
                          char lineEnd, int& strayLines)
{
    QByteArrayList reports;
    const auto take = [&] {
        while (const std::optional<StreamItem> item = stream.next()) {
            if (item->isReport)
                reports << item->bytes;
            else
                strayLines = std::max(strayLines, item->bytes.count(lineEnd));
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
    const char end = lineEnd == "C" ? '\r' : '\n';
    int strayLines = 0; // in one item
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
            const QByteArrayList reports = handedOver(stream, burst, random, end, strayLines);
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
    QVERIFY2(strayLines <= 1 || !byLines, "damaged lines come out one by one");
    qInfo("seed %u: %d handed over, %d were due", seed, handed, undamaged);
}

QTEST_APPLESS_MAIN(ReportStreamTest)
#include "ReportStreamTest.moc"
