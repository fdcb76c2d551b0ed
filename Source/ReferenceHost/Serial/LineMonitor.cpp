// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/LineMonitor.h"

#include "DigitizerGeneric/Digitizer/PrintableCharacter.h"
#include "ReferenceHost/CommandLine/Counted.h"
#include "ReferenceHost/Descriptions/DescriptionTexts.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

constexpr int bytesInRow = 20;
constexpr int markWidth = 3; // of a byte in hexadecimal, and of the mark below it
constexpr int timeWidth = 10;

QString timeText(qint64 milliseconds)
{
    return QString::number(double(milliseconds) / 1000, 'f', 3).rightJustified(timeWidth) +
           QLatin1String("  ");
}

QString hexText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' ')).leftJustified(markWidth * bytesInRow);
}

// Control characters and everything above ASCII become a dot, so that a line stays a line.
QString plainText(QByteArray bytes)
{
    for (char& byte : bytes)
        byte = isPrintable(byte) ? byte : '.';
    return QLatin1Char('|') + QString::fromLatin1(bytes) + QLatin1Char('|');
}

QString coordinateText(double centimetres)
{
    return QString::number(centimetres, 'f', 4);
}

QString line(const QString& text)
{
    int size = text.size();
    while (size > 0 && text.at(size - 1) == QLatin1Char(' '))
        --size;
    return text.left(size) + QLatin1Char('\n');
}

QString strayText(int count)
{
    return count == 1
               ? QStringLiteral("1 byte passed over: not the length of a report")
               : QStringLiteral("%1 bytes passed over: not the length of a report").arg(count);
}

} // namespace

LineMonitor::LineMonitor() : LineMonitor(DigitizerArgument(), {})
{
    m_pauseMilliseconds = 500; // longer than the time of a character at 150 baud
}

LineMonitor::LineMonitor(const DigitizerArgument& description, Decoder decoder)
    : m_letters(layoutText(description.m_reportFormat)),
      m_decoder(std::move(decoder)),
      m_stream(description),
      m_pauseMilliseconds(ReportStream::pauseMilliseconds(description.m_portSettings)),
      m_largestX(-std::numeric_limits<double>::infinity()),
      m_largestY(m_largestX)
{}

QString LineMonitor::take(qint64 milliseconds, const QByteArray& bytes)
{
    m_bytes += bytes.size();
    m_stream.append(bytes);
    return waitingLines(milliseconds);
}

QString LineMonitor::pause(qint64 milliseconds)
{
    m_stream.pause();
    return waitingLines(milliseconds);
}

QString LineMonitor::waitingLines(qint64 milliseconds)
{
    QString lines;
    while (const std::optional<StreamItem> item = m_stream.next())
        lines += itemLines(milliseconds, *item);
    return lines;
}

// The bytes in rows of equal length, with the marks below each row and the meaning of the item next
// to the last marks.
QString LineMonitor::itemLines(qint64 milliseconds, const StreamItem& item)
{
    const QString meaning = meaningOf(milliseconds, item);
    const QString marks = marksOf(item.bytes);
    const QString margin(timeWidth + 2, QLatin1Char(' '));
    QString lines;
    for (int start = 0; start < item.bytes.size(); start += bytesInRow) {
        const QByteArray row = item.bytes.mid(start, bytesInRow);
        const bool isLast = start + bytesInRow >= item.bytes.size();
        lines +=
            line((start == 0 ? timeText(milliseconds) : margin) + hexText(row) + plainText(row));
        if (m_decoder)
            lines += line(margin +
                          marks.mid(markWidth * start, markWidth * bytesInRow)
                              .leftJustified(markWidth * bytesInRow) +
                          (isLast ? meaning : QString()));
    }
    return lines;
}

// The letter of each role below its byte, after an exclamation mark if the byte does not fit. A
// question mark for each byte if the number of bytes alone shows that this is not a report.
QString LineMonitor::marksOf(const QByteArray& bytes) const
{
    if (m_letters.isEmpty())
        return {};
    if (bytes.size() != m_letters.size())
        return QStringLiteral(" ? ").repeated(bytes.size());
    QString marks;
    for (int i = 0; i < bytes.size(); ++i) {
        marks += QLatin1Char(m_stream.allows(i, bytes.at(i)) ? ' ' : '!');
        marks += m_letters.at(i);
        marks += QLatin1Char(' ');
    }
    return marks;
}

QString LineMonitor::meaningOf(qint64 milliseconds, const StreamItem& item)
{
    if (item.isReport || (m_decoder && m_letters.isEmpty()))
        return reportText(milliseconds, item.bytes);
    m_strayBytes += item.bytes.size();
    return item.bytes.size() == m_letters.size() ? misfitText(item.bytes)
                                                 : strayText(item.bytes.size());
}

QString LineMonitor::misfitText(const QByteArray& bytes) const
{
    int misfits = 0;
    for (int i = 0; i < bytes.size(); ++i)
        misfits += m_stream.allows(i, bytes.at(i)) ? 0 : 1;
    if (misfits == 0)
        return QStringLiteral("passed over: the start of the report is uncertain");
    return QStringLiteral("passed over: %1")
        .arg(counted(misfits, "character does not fit", "characters do not fit"));
}

QString LineMonitor::reportText(qint64 milliseconds, const QByteArray& bytes)
{
    if (m_reports++ == 0)
        m_firstReport = milliseconds;
    m_lastReport = milliseconds;
    const auto report = m_decoder(bytes);
    if (!report)
        return QStringLiteral("not decoded: a report ends at its first zero byte");
    const double x = report->coordinate().x();
    const double y = report->coordinate().y();
    m_largestX = std::max(m_largestX, x);
    m_largestY = std::max(m_largestY, y);
    return QStringLiteral("button %1 at %2, %3 cm")
        .arg(report->m_button_number)
        .arg(coordinateText(x), coordinateText(y));
}

QString LineMonitor::summary() const
{
    QString text = counted(m_bytes, "byte");
    if (!m_decoder)
        return text + QLatin1Char('\n');
    text += QStringLiteral(", ") + counted(m_reports, "report");
    if (m_lastReport > m_firstReport) {
        const double seconds = double(m_lastReport - m_firstReport) / 1000;
        text += QStringLiteral(" (%1 a second)").arg((m_reports - 1) / seconds, 0, 'f', 1);
    }
    text += QStringLiteral(", %1 passed over").arg(counted(m_strayBytes, "byte"));
    if (std::isfinite(m_largestX) && std::isfinite(m_largestY))
        text += QStringLiteral("; largest x %1 cm, largest y %2 cm")
                    .arg(coordinateText(m_largestX), coordinateText(m_largestY));
    return text + QLatin1Char('\n');
}

} // namespace ReferenceHost
