// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QRegularExpression>

#include <cmath>
#include <optional>
#include <random>

/// Reports that contain their number, so that each delivered report shows which one it is.
namespace NumberedReport {

using MavSystem::DigitalReport;

inline constexpr int largest = 9999999;

/// The description of the tablet that sends them, also used for the pen files: a count is 0.1 mm.
inline constexpr char description[] =
    "<d name='Soak'><ioPort><serial baudrate='19200' databit='8' parity='None' stopbit='1' "
    "flowctrl='none'/></ioPort><resolution unit='LPMM'>10</resolution>"
    "<reportFormat length='19'>XXXXXXXUYYYYYYYUBCL</reportFormat><buttons count='4' length='1'>"
    "<button>1</button><button>2</button><button>3</button><button>4</button></buttons></d>";

inline DigitalReport reportOf(int x, int y, int button)
{
    DigitalReport report(x / 10.0 / 10.0, y / 10.0 / 10.0);
    report.m_button_number = button;
    return report;
}

/// Returns whether both have exactly the same point and the same button.
inline bool isSame(const DigitalReport& one, const DigitalReport& other)
{
    return one.coordinate().x() == other.coordinate().x() &&
           one.coordinate().y() == other.coordinate().y() &&
           one.m_button_number == other.m_button_number;
}

/// Returns the bytes of report \a number, which is 0 to largest. y and the button follow from x, so
/// that a single damage cannot turn one number into another.
inline QByteArray bytesOf(int number)
{
    const auto digits = [](qint64 value) {
        return QByteArray::number(value).rightJustified(7, '0');
    };
    return digits(number) + ',' + digits((qint64(number) * 7919 + 13) % (largest + 1)) + ',' +
           char('1' + number % 4) + "\r\n";
}

/// Returns the report that the host must get for \a bytes, or nothing if they do not fit the
/// template.
inline std::optional<DigitalReport> decoded(const QByteArray& bytes)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A([0-9]{7})[^\\r\\n]([0-9]{7})[^\\r\\n]([ -~])\\r\\n\\z"));
    const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(bytes));
    if (!match.hasMatch())
        return std::nullopt;
    const int button = match.captured(3).at(0).unicode() - '0';
    return reportOf(match.captured(1).toInt(), match.captured(2).toInt(),
                    button >= 1 && button <= 4 ? button : 0);
}

/// Returns the number of \a report, or -1 if it is not one of these.
inline int numberOf(const DigitalReport& report)
{
    const double x = std::round(report.coordinate().x() * 100);
    const int number = x >= 0 && x <= largest ? int(x) : 0;
    return isSame(report, *decoded(bytesOf(number))) ? number : -1;
}

/// Returns \a bytes with one byte changed, lost or inserted anywhere.
inline QByteArray damaged(QByteArray bytes, std::mt19937& random)
{
    const auto place = int(random() % unsigned(bytes.size()));
    const auto other = char(bytes.at(place) + 1 + int(random() % 255));
    switch (random() % 3) {
    case 0:
        bytes[place] = other;
        return bytes;
    case 1:
        return bytes.remove(place, 1);
    default:
        return bytes.insert(int(random() % unsigned(bytes.size() + 1)), other);
    }
}

} // namespace NumberedReport
