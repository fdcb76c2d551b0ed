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
    DigitizerArgument description() const
    {
        DigitizerArgument description = describedTemplate(roles);
        description.m_buttons = {{{'1', ' ', ' '}}, {{'\x07', '\xe4', ' '}}};
        return description;
    }
    bool endsInItsOnlyLineEnd() const
    {
        return roles.size() > 1 && roles.count('C') + roles.count('L') == 1 &&
               QByteArray("CL").contains(roles.right(1));
    }
    QByteArray roles;
    QByteArrayList bursts;
};

/// What came out: the reports, and every byte.
struct Outcome
{
    QByteArrayList reports;
    QByteArray bytes;
};

void takeAll(ReportStream& stream, Outcome& outcome)
{
    while (const std::optional<StreamItem> item = stream.next()) {
        require(!item->bytes.isEmpty(), "an item has bytes");
        outcome.bytes += item->bytes;
        if (item->isReport)
            outcome.reports << item->bytes;
    }
}

// The bursts with a pause behind each, so many bytes at a time.
Outcome run(const Input& input, int chunk)
{
    ReportStream stream(input.description());
    Outcome outcome;
    for (const QByteArray& burst : input.bursts) {
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

bool fits(const Input& input, const QByteArray& bytes)
{
    const ReportStream stream(input.description());
    bool all = bytes.size() == input.roles.size();
    for (int at = 0; all && at < bytes.size(); ++at)
        all = stream.allows(at, bytes.at(at));
    return all;
}

// With one line end, at the end of the template: exactly the lines that are reports.
QByteArrayList reportLines(const Input& input)
{
    const char lineEnd = input.roles.endsWith('C') ? '\r' : '\n';
    QByteArrayList reports;
    for (const QByteArray& burst : input.bursts) {
        QByteArrayList lines = burst.split(lineEnd);
        lines.removeLast(); // it has no end
        for (const QByteArray& line : lines) {
            if (fits(input, line + lineEnd))
                reports << line + lineEnd;
        }
    }
    return reports;
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
    for (const QByteArray& report : outcome.reports)
        require(fits(input, report), "what is handed over fits");
    if (input.endsInItsOnlyLineEnd())
        require(outcome.reports == reportLines(input), "each line that is a report comes out");
}
