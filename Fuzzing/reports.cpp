// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/Digitizer/ReceiveBuffer.h"
#include "Fuzzing/FuzzTarget.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"

#include <cmath>
#include <cstring>

using namespace MavSystem;

namespace {

/// An input: four bytes for resolution, unit and buttons, the template up to a line feed, the
/// report.
struct Input
{
    explicit Input(const QByteArray& bytes)
        : head(bytes.left(4).leftJustified(4, '0')),
          roles(bytes.mid(4, bytes.indexOf('\n', 4) - 4)),
          text(bytes.mid(4 + roles.size() + 1).leftJustified(receiveBufferCharacters, '\0', true))
    {
        for (char& role : roles)
            role = QByteArray("BXYU.SCL").contains(role) ? role : "BXYU.SCL"[uchar(role) % 8];
    }
    QByteArray description() const
    {
        const int lines = (uchar(head.at(0)) << 8 | uchar(head.at(1))) - 32768;
        const bool four = head.at(2) & 1;
        return DescriptionBuilder()
            .resolution(head.at(2) & 2 ? 40 : lines, head.at(2) & 4 ? "LPI" : "LPMM")
            .report(roles)
            .buttons(four ? "4" : "16", uchar(head.at(3)) % 5, {"1", "2B", "4 C", "8", "", "12"})
            .xml();
    }
    QByteArray head;
    QByteArray roles;
    QByteArray text;
};

/// The fields of a report, cut and decoded as the description files' page says, one by one.
struct Fields
{
    Fields(const DigitizerArgument& description, const char* text)
    {
        int points = 0;
        std::size_t codes = 0;
        for (int at = 0; at < int(description.m_reportLength) && at < receiveBufferCharacters;
             ++at) {
            const ReportFormatValues role = description.m_reportFormat[std::size_t(at)];
            if (role == FORMAT_X || role == FORMAT_Y)
                (role == FORMAT_X ? x : y).insert(at, text[at]);
            xExponent = short(xExponent + (role == FORMAT_X && points == 0));
            yExponent = short(yExponent + (role == FORMAT_Y && points < 2));
            points += role == FORMAT_POINT;
            if (role == FORMAT_SIGN)
                signs.insert(at, text[at]);
            if (role == FORMAT_BUTTON && codes < button.m_code.size())
                button.m_code[codes++] = text[at];
        }
        const bool xNegative = !signs.isEmpty() && signs.first() == '-';
        const bool yNegative = signs.size() > 1 && signs.last() == '-';
        axisSigns = {short(xNegative ? -1 : 1), short(yNegative ? -1 : 1)};
    }

    static double axis(const QMap<int, char>& digits, int exponent, int sign,
                       const DigitizerArgument& description)
    {
        double value = 0;
        for (const char digit : digits)
            value += (static_cast<signed char>(digit) - '0') * std::pow(10.0, exponent--);
        const double resolution = description.m_resolution;
        if (description.m_resolutionUnit != LPI)
            return value * sign / resolution / 10.0;
        return resolution == 40.0 ? value * sign * 0.0025
                                  : value * sign * 2.5396825396825 / resolution;
    }

    GeoPoint2D point(const DigitizerArgument& description) const
    {
        return {axis(x, xExponent, axisSigns.at(0), description),
                axis(y, yExponent, axisSigns.at(1), description)};
    }

    QMap<int, char> x, y, signs;
    QList<short> axisSigns;
    ButtonValue button;
    short xExponent = -1;
    short yExponent = -1;
};

bool same(double one, double other)
{
    return std::memcmp(&one, &other, sizeof one) == 0 || (std::isnan(one) && std::isnan(other));
}

void requireSame(const DigitalReport& report, GeoPoint2D point, int button, const char* what)
{
    require(same(report.coordinate().x(), point.x()) && same(report.coordinate().y(), point.y()) &&
                report.m_button_number == button,
            what);
}

void checkPlainReading(const DigitizerArgument& description, const char* text)
{
    Digitizer& digitizer = *Digitizer::instance();
    const Fields fields(description, text);
    const GeoPoint2D point = fields.point(description);
    const short button = digitizer.compareButtonNumber(fields.button);
    require(digitizer.getSign(fields.signs) == fields.axisSigns, "the signs");
    requireSame(DigitalReport(digitizer.getCoordinate(fields.x, fields.y, fields.signs,
                                                      fields.xExponent, fields.yExponent)),
                point, 0, "decoded field by field");
    requireSame(FieldDecoding::reportOf(description, ReportLayout(description), text, 3), point,
                button, "decoded at once");
    std::memcpy(receiveBuffer(), text, receiveBufferCharacters);
    requireSame(digitizer.parseReportText(3), point, button, "decoded by the driver");
    requireSame(digitizer.parseReportText(1), {0, 0}, button, "the button alone");
}

} // namespace

// A template and a report: the decoding that is made for speed gives what the fields give one by
// one.
void fuzz(const QByteArray& input)
{
    static TestHost host;
    const Input read(input);
    host.writeDescription(QStringLiteral("a"), read.description());
    const QString driver = QStringLiteral("A");
    Digitizer::instance()->selectDevice(driver, QString());
    const std::unique_ptr<DigitizerArgument> description(
        DigitizerArgument::digitizerArgument(driver));
    checkPlainReading(*description, read.text.constData());
}
