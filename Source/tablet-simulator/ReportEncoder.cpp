// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/ReportEncoder.h"

#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"

#include <algorithm>
#include <cmath>

namespace TabletSimulation {

using namespace MavSystem;

namespace {

// The characters that the template has for one axis.
struct AxisRoom
{
    QString name;
    int digits = 0;
    int fractionDigits = 0;
    bool hasSign = false;
};

struct Rooms
{
    AxisRoom x{QStringLiteral("x")};
    AxisRoom y{QStringLiteral("y")};
};

Rooms roomsOf(const DigitizerArgument& description)
{
    Rooms rooms;
    int points = 0;
    for (const ReportFormatValues role : description.m_reportFormat) {
        AxisRoom& axis = role == FORMAT_X ? rooms.x : rooms.y;
        if (role == FORMAT_X || role == FORMAT_Y) {
            ++axis.digits;
            axis.fractionDigits += points > (role == FORMAT_X ? 0 : 1) ? 1 : 0;
        } else if (role == FORMAT_POINT) {
            ++points;
        } else if (role == FORMAT_SIGN) {
            (rooms.x.hasSign ? rooms.y : rooms.x).hasSign = true;
        }
    }
    return rooms;
}

QString pointText(const Press& press)
{
    return QStringLiteral("the point (%1, %2)").arg(press.point.x()).arg(press.point.y());
}

struct AxisText
{
    QByteArray digits;
    char sign;
};

tl::expected<AxisText, QString> encodeAxis(double centimetres, double unitsInCentimetre,
                                           const AxisRoom& room, const Press& press)
{
    const double steps =
        std::round(std::abs(centimetres) * unitsInCentimetre * std::pow(10.0, room.fractionDigits));
    const double limit = std::pow(10.0, room.digits) - 1;
    if (!(steps <= limit)) {
        const double largest = limit / std::pow(10.0, room.fractionDigits) / unitsInCentimetre;
        return tl::unexpected(
            QStringLiteral("%1: the template has %2 digits for %3, enough for at most %4 cm")
                .arg(pointText(press))
                .arg(room.digits)
                .arg(room.name)
                .arg(largest));
    }
    const bool negative = centimetres < 0 && steps > 0;
    if (negative && !room.hasSign)
        return tl::unexpected(
            QStringLiteral("%1: the template has no sign for %2, which must not be below 0 cm")
                .arg(pointText(press), room.name));
    return AxisText{QByteArray::number(steps, 'f', 0).rightJustified(room.digits, '0'),
                    negative ? '-' : '+'};
}

// The part of \a code that fits into the template, filled with blanks.
ButtonValue sentCode(const DigitizerArgument& description, const ButtonValue& code)
{
    const std::vector<ReportFormatValues>& roles = description.m_reportFormat;
    const auto places = std::size_t(std::count(roles.begin(), roles.end(), FORMAT_BUTTON));
    ButtonValue sent;
    std::copy_n(code.m_code.begin(), std::min(places, code.m_code.size()), sent.m_code.begin());
    return sent;
}

// Returns the code that the library turns into the press's button.
tl::expected<ButtonValue, QString> codeOf(const DigitizerArgument& description, const Press& press)
{
    const int first = FieldDecoding::firstButton(description);
    const int searched = FieldDecoding::numberedButtons(description);
    const int index = press.button - first;
    if (searched == 0)
        return tl::unexpected(
            QStringLiteral("%1: the description has no buttons").arg(pointText(press)));
    if (index < 0 || index >= searched)
        return tl::unexpected(
            QStringLiteral("%1: there is no button %2; the description has buttons %3 to %4")
                .arg(pointText(press))
                .arg(press.button)
                .arg(first)
                .arg(first + searched - 1));
    const ButtonValue code = sentCode(description, description.m_buttons[size_t(index)]);
    const int arriving = FieldDecoding::buttonNumberOf(description, code);
    if (arriving == press.button)
        return code;
    return tl::unexpected(
        QStringLiteral("%1: with the codes in the description, button %2 would arrive as button %3")
            .arg(pointText(press))
            .arg(press.button)
            .arg(arriving));
}

// Returns the characters of the report, role by role.
class Characters
{
public:
    Characters(const AxisText& x, const AxisText& y, const ButtonValue& code)
        : m_x(x), m_y(y), m_code(code)
    {}

    char next(ReportFormatValues role)
    {
        switch (role) {
        case FORMAT_X:
            return m_x.digits.at(m_xTaken++);
        case FORMAT_Y:
            return m_y.digits.at(m_yTaken++);
        case FORMAT_BUTTON:
            return m_codeTaken < m_code.m_code.size() ? m_code.m_code[m_codeTaken++] : ' ';
        case FORMAT_SIGN:
            return m_signsTaken++ == 0 ? m_x.sign : m_y.sign;
        case FORMAT_POINT:
            return '.';
        case FORMAT_CR:
            return '\r';
        case FORMAT_LINE_FEED:
            return '\n';
        case FORMAT_UNUSED:
            break;
        }
        return ',';
    }

private:
    const AxisText& m_x;
    const AxisText& m_y;
    const ButtonValue& m_code;
    int m_xTaken = 0;
    int m_yTaken = 0;
    std::size_t m_codeTaken = 0;
    int m_signsTaken = 0;
};

} // namespace

tl::expected<QByteArray, QString> encodeReport(const DigitizerArgument& description,
                                               const Press& press)
{
    if (!(description.m_resolution > 0.0))
        return tl::unexpected(
            QStringLiteral("%1: the resolution in the description is %2, but must be above 0")
                .arg(pointText(press))
                .arg(description.m_resolution));
    const Rooms rooms = roomsOf(description);
    const double units =
        Resolution::countsPerCentimetre(description.m_resolution, description.m_resolutionUnit);
    const auto x = encodeAxis(press.point.x(), units, rooms.x, press);
    if (!x)
        return tl::unexpected(x.error());
    const auto y = encodeAxis(press.point.y(), units, rooms.y, press);
    if (!y)
        return tl::unexpected(y.error());
    return codeOf(description, press).map([&](const ButtonValue& code) {
        Characters characters(*x, *y, code);
        QByteArray report;
        for (const ReportFormatValues role : description.m_reportFormat)
            report += characters.next(role);
        return report;
    });
}

tl::expected<QByteArray, QString> encodeLectraE92Report(const Press& press)
{
    const AxisRoom room = {QStringLiteral("both coordinates"), 6, 2, false};
    QByteArray fields[2];
    const double coordinates[] = {press.point.x(), press.point.y()};
    for (int axis = 0; axis < 2; ++axis) {
        const auto text = encodeAxis(coordinates[axis], 1.0, room, press);
        if (!text)
            return tl::unexpected(text.error());
        const qint64 steps = text->digits.toLongLong();
        if (steps == 0)
            return tl::unexpected(
                QStringLiteral("%1: this tablet rejects coordinates that are not above 0 cm")
                    .arg(pointText(press)));
        fields[axis] = QByteArray::number(steps).rightJustified(6, ' ');
    }
    const int index = press.button - LectraE92::firstButton;
    if (index < 0 || index >= LectraE92::buttons)
        return tl::unexpected(
            QStringLiteral("%1: there is no button %2; this tablet has buttons %3 to %4")
                .arg(pointText(press))
                .arg(press.button)
                .arg(LectraE92::firstButton)
                .arg(LectraE92::firstButton + LectraE92::buttons - 1));
    return QByteArray("000000" + QByteArray::number(LectraE92::firstCode + index) + " 0" +
                      fields[0] + ' ' + fields[1] + "\r\n");
}

} // namespace TabletSimulation
