// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "NumberedReport.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using MavSystem::DigitalReport;

namespace NumberedReport {

namespace {

QByteArray sevenDigits(qint64 number)
{
    return QByteArray::number(number).rightJustified(7, '0');
}

double centimetres(const QString& digits)
{
    return digits.toDouble() / 10.0 / 10.0;
}

int randomBelow(int limit, std::mt19937& random)
{
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
}

} // namespace

QByteArray bytesOf(int number)
{
    // y and the button follow from x, so that no single damage makes one number another.
    return sevenDigits(number) + ',' + sevenDigits((qint64(number) * 7919 + 13) % (largest + 1)) +
           ',' + char('1' + number % 4) + "\r\n";
}

std::optional<DigitalReport> decoded(const QByteArray& bytes)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A([0-9]{7})[^\\r\\n]([0-9]{7})[^\\r\\n]([ -~])\\r\\n\\z"));
    const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(bytes));
    if (!match.hasMatch())
        return std::nullopt;
    DigitalReport report(centimetres(match.captured(1)), centimetres(match.captured(2)));
    const int button = match.captured(3).at(0).unicode() - '0';
    report.m_button_number = button >= 1 && button <= 4 ? button : 0;
    return report;
}

int numberOf(const DigitalReport& report)
{
    const double number = std::round(report.coordinate().x() * 100);
    if (!(number >= 0 && number <= largest))
        return -1;
    return isSame(*decoded(bytesOf(int(number))), report) ? int(number) : -1;
}

bool isSame(const DigitalReport& one, const DigitalReport& other)
{
    return one.coordinate().x() == other.coordinate().x() &&
           one.coordinate().y() == other.coordinate().y() &&
           one.m_button_number == other.m_button_number;
}

QByteArray damaged(QByteArray bytes, std::mt19937& random)
{
    const char byte = char(randomBelow(256, random));
    const int place = randomBelow(bytes.size(), random);
    switch (randomBelow(3, random)) {
    case 0:
        bytes[place] = bytes.at(place) == byte ? char(~byte) : byte;
        return bytes;
    case 1:
        return bytes.remove(place, 1);
    default:
        return bytes.insert(randomBelow(bytes.size() + 1, random), byte);
    }
}

const char* damageKind(int number, const QByteArray& damagedBytes)
{
    const QByteArray sent = bytesOf(number);
    if (sent.size() != damagedBytes.size())
        return "a byte more beside the report";
    const auto place =
        std::mismatch(sent.begin(), sent.end(), damagedBytes.begin()).first - sent.begin();
    if (place == 16)
        return "another character as button";
    return place == 7 || place == 15 ? "an unused character, which changes no value"
                                     : "another digit in a coordinate";
}

} // namespace NumberedReport
