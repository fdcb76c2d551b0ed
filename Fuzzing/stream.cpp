// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/ReportStream.h"
#include "Fuzzing/FuzzTarget.h"
#include "support/DescribedTemplate.h"

#include <QByteArrayList>

using namespace MavSystem;

namespace {

constexpr char pauseMark = '|';

/// An input: the template up to a line feed, where C and L make line ends, and what arrives, where
/// "|" is a pause.
struct Input
{
    explicit Input(const QByteArray& bytes)
        : roles(bytes.left(bytes.indexOf('\n')).left(40)),
          bursts(bytes.mid(bytes.indexOf('\n') + 1).split(pauseMark))
    {
        for (char& role : roles)
            role = QByteArray("BXYU.SCL").contains(role) ? role : "BXYU.SCL"[uchar(role) % 8];
    }
    int lineEnds() const { return roles.count('C') + roles.count('L'); }
    bool hasLines() const
    {
        return roles.size() > 1 && lineEnds() == 1 && QByteArray("CL").contains(roles.right(1));
    }
    QByteArray roles;
    QByteArrayList bursts;
};

/// What came out: the reports of each burst, and every byte.
struct Outcome
{
    QVector<QByteArrayList> reports;
    QByteArray bytes;
};

void takeAll(ReportStream& stream, Outcome& outcome)
{
    while (const std::optional<StreamItem> item = stream.next()) {
        require(!item->bytes.isEmpty(), "an item has bytes");
        outcome.bytes += item->bytes;
        if (item->isReport)
            outcome.reports.last() << item->bytes;
    }
}

// The bursts with a pause behind each, so many bytes at a time.
Outcome run(const Input& input, int chunk)
{
    ReportStream stream(describedTemplate(input.roles));
    Outcome outcome;
    for (const QByteArray& burst : input.bursts) {
        outcome.reports.append(QByteArrayList());
        for (int at = 0; at < burst.size(); at += chunk) {
            stream.append(burst.mid(at, chunk));
            takeAll(stream, outcome);
        }
        stream.pause();
        takeAll(stream, outcome);
        require(!stream.needsPause(), "a pause decides everything");
    }
    return outcome;
}

bool fits(const ReportStream& stream, const QByteArray& bytes)
{
    bool all = bytes.size() == stream.reportSize();
    for (int at = 0; all && at < bytes.size(); ++at)
        all = stream.allows(at, bytes.at(at));
    return all;
}

// With one line end, at the end of the template: exactly the lines that are reports.
QByteArrayList reportLines(const ReportStream& stream, const QByteArray& burst, char lineEnd)
{
    QByteArrayList reports;
    QByteArrayList lines = burst.split(lineEnd);
    lines.removeLast(); // it has no end
    for (const QByteArray& line : lines) {
        if (fits(stream, line + lineEnd))
            reports << line + lineEnd;
    }
    return reports;
}

// What is certain of other templates: reports from the first byte on, without line ends up to the
// last one.
QByteArrayList leadingReports(const ReportStream& stream, const QByteArray& burst, bool toTheEnd)
{
    QByteArrayList reports;
    int at = 0;
    for (; fits(stream, burst.mid(at, stream.reportSize())); at += stream.reportSize())
        reports << burst.mid(at, stream.reportSize());
    return toTheEnd && at < burst.size() ? QByteArrayList() : reports;
}

void requireReports(const Input& input, const QByteArray& burst, const QByteArrayList& reports)
{
    const ReportStream stream(describedTemplate(input.roles));
    for (const QByteArray& report : reports)
        require(fits(stream, report), "what is handed over fits");
    if (input.hasLines()) {
        const char lineEnd = input.roles.endsWith('C') ? '\r' : '\n';
        require(reports == reportLines(stream, burst, lineEnd),
                "each line that is a report comes out");
    } else if (stream.reportSize() > 0) {
        const auto certain = leadingReports(stream, burst, input.lineEnds() == 0);
        require(reports.mid(0, certain.size()) == certain, "undamaged reports come out");
    }
}

} // namespace

// A template and what arrives: whatever comes together, the same reports come out, and every byte
// comes out once.
void fuzz(const QByteArray& bytes)
{
    const Input input(bytes);
    const Outcome outcome = run(input, 1);
    require(outcome.bytes == input.bursts.join(), "every byte comes out once, in order");
    for (const int chunk : {2, 7, 4096})
        require(run(input, chunk).reports == outcome.reports, "chunks change nothing");
    for (int burst = 0; burst < input.bursts.size(); ++burst)
        requireReports(input, input.bursts.at(burst), outcome.reports.at(burst));
}
