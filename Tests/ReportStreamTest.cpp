// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/ReportStream.h"
#include "Fuzzing/FuzzTarget.h"
#include "support/DescribedTemplate.h"
#include "support/TextRows.h"

#include <cstring>
#include <random>
#include <utility>

using namespace MavSystem;

namespace {
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

using Random = std::mt19937;

// A template with a line end behind it, and inside it too if \a inside.
QByteArray randomTemplate(Random& random, const QByteArray& lineEnd, bool inside)
{
    QByteArray letters;
    for (int fields = 3 + int(random() % 10); fields > 0; --fields)
        letters += "XXYYBUS."[random() % 8];
    if (inside)
        letters.insert(1 + int(random() % unsigned(letters.size() - 1)), lineEnd);
    return letters + lineEnd;
}

QByteArray randomReport(Random& random, const QByteArray& letters)
{
    static const std::map<char, const char*> choices = {
        {'X', "0123456789"}, {'Y', "0123456789"}, {'B', "1234"}, {'U', ", 0\xff"},
        {'S', "+-"},         {'.', "."},          {'C', "\r"},   {'L', "\n"}};
    QByteArray report;
    for (const char letter : letters)
        report += choices.at(letter)[random() % std::strlen(choices.at(letter))];
    return report;
}

// Up to all bytes lost from any place on, and often another one there instead.
QByteArray damaged(Random& random, QByteArray report)
{
    const auto size = unsigned(report.size());
    const int lost = random() % 2 ? int(random() % 2) : int(random() % size);
    const QByteArray byte(int(random() % 2), "0123456789.+-\r\n?\xff"[random() % 17]);
    return report.replace(int(random() % size), lost, byte);
}

} // namespace

/// How reports are found in a stream of bytes.
class ReportStreamTest : public QObject
{
    Q_OBJECT

private slots:
    void itemsComeOut_data() { addTextRows("streams.txt", 3); }

    void itemsComeOut()
    {
        QFETCH(TextRow, row);
        ReportStream stream(describedTemplate(row.fields.at(0)));
        QCOMPARE(outcomeOf(stream, expanded(row.fields.at(1))), expanded(row.fields.at(2)));
        QVERIFY(!row.fields.at(1).endsWith('|') || !stream.needsPause());
    }

    // What must come out of bursts of reports, some of them damaged, is what the fuzz target
    // requires.
    void undamagedReportsComeOutOnce()
    {
        constexpr unsigned seed = 20261123;
        qInfo("seed %u", seed);
        Random random(seed);
        const std::pair<const char*, bool> kinds[] = {
            {"C", false}, {"L", false}, {"C", true}, {"", false}};
        for (int round = 0; round < 12000; ++round) {
            const auto [lineEnd, inside] = kinds[round % 4];
            const QByteArray letters = randomTemplate(random, lineEnd, inside);
            QByteArray input = letters + '\n';
            for (int reports = int(random() % 24); reports > 0; --reports) {
                const QByteArray report = randomReport(random, letters);
                input += random() % 8 == 0 ? "|" : "";
                input += random() % 5 == 0 ? damaged(random, report) : report;
            }
            fuzz(input);
        }
    }
};

QTEST_APPLESS_MAIN(ReportStreamTest)
#include "ReportStreamTest.moc"
