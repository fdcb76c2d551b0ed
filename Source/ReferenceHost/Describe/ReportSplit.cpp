// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/ReportSplit.h"

#include "ReferenceHost/CommandLine/Counted.h"

#include <algorithm>
#include <numeric>

namespace ReferenceHost {

namespace {

// No report is shorter: a digit of x, one of y and a button, with separators.
constexpr int shortestReport = 5;

bool isLineEnd(char character)
{
    return character == '\r' || character == '\n';
}

QByteArray lineEndOf(const QByteArray& bytes)
{
    int start = bytes.size();
    while (start > 0 && isLineEnd(bytes.at(start - 1)))
        --start;
    return bytes.mid(start);
}

// Each with its line end. Anything after the last line end comes last.
QVector<QByteArray> linesOf(const QByteArray& bytes, const QByteArray& lineEnd)
{
    QVector<QByteArray> lines;
    int start = 0;
    while (start < bytes.size()) {
        const int end = bytes.indexOf(lineEnd, start);
        const int next = end < 0 ? bytes.size() : end + lineEnd.size();
        lines.append(bytes.mid(start, next - start));
        start = next;
    }
    return lines;
}

QVector<QByteArray> cutAt(const QByteArray& bytes, int length)
{
    QVector<QByteArray> parts;
    for (int start = 0; start < bytes.size(); start += length)
        parts.append(bytes.mid(start, length));
    return parts;
}

// The reports of one press come from one point: at least two thirds of their characters are equal.
bool alike(const QByteArray& left, const QByteArray& right)
{
    if (left.size() != right.size())
        return false;
    const int equal = std::inner_product(left.begin(), left.end(), right.begin(), 0, std::plus<>(),
                                         [](char a, char b) { return a == b ? 1 : 0; });
    return 3 * equal >= 2 * left.size();
}

bool repeatsAfter(int length, const QVector<QByteArray>& presses)
{
    return std::all_of(presses.begin(), presses.end(), [length](const QByteArray& press) {
        const auto parts = cutAt(press, length);
        return std::all_of(parts.begin(), parts.end(),
                           [&](const QByteArray& part) { return alike(parts.first(), part); });
    });
}

// The smallest length after which every press repeats itself; 0 when there is none.
int repetitionOf(const QVector<QByteArray>& presses)
{
    const int common = std::accumulate(
        presses.begin(), presses.end(), 0,
        [](int divisor, const QByteArray& press) { return std::gcd(divisor, press.size()); });
    for (int length = shortestReport; length <= common; ++length) {
        if (common % length == 0 && repeatsAfter(length, presses))
            return length;
    }
    return 0;
}

QString lengthsText(const QVector<int>& lengths)
{
    return QStringLiteral(
               "the reports have %1 to %2 characters, but a template needs reports of fixed length")
        .arg(*std::min_element(lengths.begin(), lengths.end()))
        .arg(*std::max_element(lengths.begin(), lengths.end()));
}

// Returns the first report of each press.
tl::expected<ReportSplit, QString> splitOf(const QVector<QVector<QByteArray>>& parts)
{
    ReportSplit split;
    QVector<int> lengths;
    for (const auto& press : parts) {
        for (const QByteArray& report : press)
            lengths.append(report.size());
        split.reports.append(press.first());
        split.mostReportsInPress = std::max(split.mostReportsInPress, press.size());
    }
    const int first = lengths.first();
    if (std::any_of(lengths.begin(), lengths.end(), [first](int other) { return other != first; }))
        return tl::unexpected(lengthsText(lengths));
    if (first < shortestReport)
        return tl::unexpected(QStringLiteral("a report of %1 is too short for x, y and a button")
                                  .arg(counted(first, "character")));
    return split;
}

} // namespace

tl::expected<ReportSplit, QString> splitReports(const QVector<QByteArray>& presses)
{
    const QByteArray lineEnd = lineEndOf(presses.first());
    const bool endsLines = !lineEnd.isEmpty() && std::all_of(presses.begin(), presses.end(),
                                                             [&](const QByteArray& press) {
                                                                 return lineEndOf(press) == lineEnd;
                                                             });
    const int repetition = endsLines ? 0 : repetitionOf(presses);
    QVector<QVector<QByteArray>> parts;
    for (const QByteArray& press : presses) {
        parts.append(endsLines    ? linesOf(press, lineEnd)
                     : repetition ? cutAt(press, repetition)
                                  : QVector<QByteArray>{press});
    }
    auto split = splitOf(parts);
    if (split)
        split->evidence = endsLines                       ? ReportSplit::Evidence::LineEnd
                          : split->mostReportsInPress > 1 ? ReportSplit::Evidence::Repetition
                                                          : ReportSplit::Evidence::WholePress;
    return split;
}

} // namespace ReferenceHost
