// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/LineMonitor.h"

#include "ReferenceHost/DescriptionTexts.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace MavSystem;

namespace {

constexpr int bytesInRow = 20;
constexpr int markWidth = 3; // of a byte in hexadecimal, and of the mark beneath it
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

// Control characters and what is above ASCII as a dot, so that a line stays a line.
QString plainText(QByteArray bytes)
{
    for (char& byte : bytes)
        byte = byte >= ' ' && byte <= '~' ? byte : '.';
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
    return count == 1 ? QStringLiteral("a stray byte")
                      : QStringLiteral("%1 stray bytes").arg(count);
}

} // namespace

LineMonitor::LineMonitor() : LineMonitor(DigitizerArgument(), {}) {}

LineMonitor::LineMonitor(const DigitizerArgument& description, Decoder decoder)
    : m_roles(description.m_reportFormat),
      m_letters(layoutText(description)),
      m_decoder(std::move(decoder)),
      m_cutter(m_roles),
      m_largestX(-std::numeric_limits<double>::infinity()),
      m_largestY(m_largestX)
{}

QString LineMonitor::take(qint64 milliseconds, const QByteArray& bytes)
{
    m_bytes += bytes.size();
    QString lines;
    for (const LinePiece& piece : m_cutter.take(bytes))
        lines += pieceLines(milliseconds, piece);
    return lines;
}

QString LineMonitor::flush(qint64 milliseconds)
{
    const auto piece = m_cutter.flush();
    return piece ? pieceLines(milliseconds, *piece) : QString();
}

// The bytes in rows of equal length, beneath each row its marks, and beside the last marks what
// the piece means.
QString LineMonitor::pieceLines(qint64 milliseconds, const LinePiece& piece)
{
    const QString meaning = meaningOf(milliseconds, piece);
    const QString marks = marksOf(piece);
    const QString margin(timeWidth + 2, QLatin1Char(' '));
    QString lines;
    for (int start = 0; start < piece.bytes.size(); start += bytesInRow) {
        const QByteArray row = piece.bytes.mid(start, bytesInRow);
        const bool isLast = start + bytesInRow >= piece.bytes.size();
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

// The letter of each role beneath its byte, with an exclamation mark before one that does not fit;
// a question mark for a stray byte.
QString LineMonitor::marksOf(const LinePiece& piece) const
{
    if (isReport(piece) && m_roles.empty())
        return {};
    if (!piece.isReport)
        return QStringLiteral(" ? ").repeated(piece.bytes.size());
    QString marks;
    for (int i = 0; i < piece.bytes.size(); ++i) {
        const bool fits = ReportCutter::fits(m_roles[std::size_t(i)], piece.bytes.at(i));
        marks += QLatin1Char(fits ? ' ' : '!');
        marks += m_letters.at(i);
        marks += QLatin1Char(' ');
    }
    return marks;
}

bool LineMonitor::isReport(const LinePiece& piece) const
{
    return piece.isReport || (m_decoder && m_roles.empty());
}

QString LineMonitor::meaningOf(qint64 milliseconds, const LinePiece& piece)
{
    if (isReport(piece))
        return reportText(milliseconds, piece.bytes);
    if (!m_decoder)
        return {};
    m_strayBytes += piece.bytes.size();
    return strayText(piece.bytes.size());
}

QString LineMonitor::reportText(qint64 milliseconds, const QByteArray& bytes)
{
    const int unexpected = misfits(bytes);
    m_misfits += unexpected;
    if (m_reports++ == 0)
        m_firstReport = milliseconds;
    m_lastReport = milliseconds;
    const auto report = m_decoder(bytes);
    if (!report)
        return QStringLiteral("not decoded: the driver reads up to a zero byte only");
    const double x = report->coordinate().x();
    const double y = report->coordinate().y();
    QString text = QStringLiteral("button %1 at %2, %3 cm")
                       .arg(report->m_button_number)
                       .arg(coordinateText(x), coordinateText(y));
    if (unexpected > 0)
        return text + QStringLiteral(", %1 unexpected").arg(unexpected);
    m_largestX = std::max(m_largestX, x);
    m_largestY = std::max(m_largestY, y);
    return text;
}

int LineMonitor::misfits(const QByteArray& bytes) const
{
    int count = 0;
    for (std::size_t i = 0; i < m_roles.size(); ++i)
        count += ReportCutter::fits(m_roles[i], bytes.at(int(i))) ? 0 : 1;
    return count;
}

QString LineMonitor::summary() const
{
    QString text = QStringLiteral("%1 bytes").arg(m_bytes);
    if (!m_decoder)
        return text + QLatin1Char('\n');
    text += QStringLiteral(", %1 reports").arg(m_reports);
    if (m_lastReport > m_firstReport) {
        const double seconds = double(m_lastReport - m_firstReport) / 1000;
        text += QStringLiteral(" (%1 a second)").arg((m_reports - 1) / seconds, 0, 'f', 1);
    }
    text += QStringLiteral(", %1 stray bytes, %2 unexpected characters")
                .arg(m_strayBytes)
                .arg(m_misfits);
    if (std::isfinite(m_largestX) && std::isfinite(m_largestY))
        text += QStringLiteral("; largest x %1 cm, largest y %2 cm")
                    .arg(coordinateText(m_largestX), coordinateText(m_largestY));
    return text + QLatin1Char('\n');
}
