// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>

namespace MavSystem::FieldDecoding {

namespace {

constexpr int largestTabledExponent = 15;
constexpr double powersOfTen[] = {1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9, 1e-8,
                                  1e-7,  1e-6,  1e-5,  1e-4,  1e-3,  1e-2,  1e-1, 1e0,
                                  1e1,   1e2,   1e3,   1e4,   1e5,   1e6,   1e7,  1e8,
                                  1e9,   1e10,  1e11,  1e12,  1e13,  1e14,  1e15};
static_assert(std::size(powersOfTen) == 2 * largestTabledExponent + 1);

double powerOfTen(int exponent)
{
    if (exponent >= -largestTabledExponent && exponent <= largestTabledExponent)
        return powersOfTen[exponent + largestTabledExponent];
    return std::pow(10.0, exponent);
}

// Characters of one field, gathered in position order. Left uninitialised: there are 512 of them
// for a dozen that are used.
class Field
{
public:
    Field() {} // NOLINT(modernize-use-equals-default): would not keep the array uninitialised
    void append(char character) { m_characters[m_size++] = character; }
    std::string_view text() const { return {m_characters, m_size}; }

private:
    char m_characters[maximumReportCharacters];
    std::size_t m_size = 0;
};

// What the cutting of a report by its template yields.
struct Fields
{
    ButtonValue button;
    std::size_t buttonCharacters = 0;
    Field x;
    Field y;
    Field signs;
    short xIntegerDigits = 0;
    short yIntegerDigits = 0;
    bool xPointSeen = false;
    bool yPointSeen = false;

    void takeButton(char character)
    {
        if (buttonCharacters < button.m_code.size())
            button.m_code[buttonCharacters++] = character;
    }

    void takePoint()
    {
        // The first point of a report is that of x, every later one that of y.
        (xPointSeen ? yPointSeen : xPointSeen) = true;
    }
};

void take(Fields& fields, ReportFormatValues role, char character)
{
    switch (role) {
    case FORMAT_BUTTON:
        fields.takeButton(character);
        break;
    case FORMAT_X:
        fields.x.append(character);
        fields.xIntegerDigits = short(fields.xIntegerDigits + (fields.xPointSeen ? 0 : 1));
        break;
    case FORMAT_Y:
        fields.y.append(character);
        fields.yIntegerDigits = short(fields.yIntegerDigits + (fields.yPointSeen ? 0 : 1));
        break;
    case FORMAT_POINT:
        fields.takePoint();
        break;
    case FORMAT_SIGN:
        fields.signs.append(character);
        break;
    case FORMAT_UNUSED:
    case FORMAT_CR:
    case FORMAT_LINE_FEED:
        break;
    }
}

GeoPoint2D scale(const DigitizerArgument& description, double x, double y)
{
    const double resolution = description.m_resolution;
    if (description.m_resolutionUnit != LPI)
        return {x / resolution / 10.0, y / resolution / 10.0};
    // The makers' factor of the 40-line tables; it is not the quotient of the general rule.
    if (resolution == 40.0)
        return {x * 0.0025, y * 0.0025};
    // The inch of the drawing system, which existing drawings were digitized with; it is not 2.54.
    constexpr double centimetresPerInch = 2.5396825396825;
    return {x * centimetresPerInch / resolution, y * centimetresPerInch / resolution};
}

bool sameCode(const ButtonValue& left, const ButtonValue& right, std::size_t significant)
{
    return std::equal(left.m_code.begin(), left.m_code.begin() + std::ptrdiff_t(significant),
                      right.m_code.begin());
}

// A number of the "Lectra E92", read from its last character, whose weight is a hundredth, to its
// first. A blank ends it, a '-' negates what has been read so far.
double lectraNumber(const char* firstCharacter)
{
    constexpr double weights[] = {0.01, 0.1, 1, 10, 100, 1000};
    double value = 0.0;
    const char* character = firstCharacter + std::size(weights);
    for (const double weight : weights) {
        --character;
        if (*character == ' ')
            break;
        if (*character == '-')
            value = -value;
        else
            value += (static_cast<signed char>(*character) - '0') * weight;
    }
    return value;
}

} // namespace

Signs signsOf(std::string_view characters)
{
    Signs signs;
    short* sign = &signs.x;
    for (const char character : characters) {
        *sign = character == '-' ? -1 : 1;
        sign = &signs.y;
    }
    return signs;
}

double magnitudeOf(std::string_view digits, short leadingExponent)
{
    double magnitude = 0.0;
    int exponent = leadingExponent;
    for (const char digit : digits)
        magnitude += (static_cast<signed char>(digit) - '0') * powerOfTen(exponent--);
    return magnitude;
}

GeoPoint2D coordinateOf(const DigitizerArgument& description, std::string_view xDigits,
                        std::string_view yDigits, Signs signs, short xExponent, short yExponent)
{
    const double x = magnitudeOf(xDigits, xExponent) * signs.x;
    const double y = magnitudeOf(yDigits, yExponent) * signs.y;
    return scale(description, x, y);
}

short buttonNumberOf(const DigitizerArgument& description, const ButtonValue& code)
{
    const std::size_t searched =
        std::min<std::size_t>(description.m_fourButtons ? 4 : 16, description.m_buttons.size());
    const auto significant =
        std::size_t(std::min<std::uint64_t>(description.m_buttonCodeLength, code.m_code.size()));
    for (std::size_t index = 0; index < searched; ++index) {
        if (sameCode(description.m_buttons[index], code, significant))
            return short(description.m_fourButtons ? index + 1 : index);
    }
    return 0;
}

DigitalReport reportOf(const DigitizerArgument& description, const char* text, int flags)
{
    Fields fields;
    const std::size_t positions =
        std::min({std::size_t(description.m_reportLength), description.m_reportFormat.size(),
                  std::size_t(maximumReportCharacters)});
    for (std::size_t position = 0; position < positions; ++position)
        take(fields, description.m_reportFormat[position], text[position]);

    DigitalReport report;
    if (flags & decodeCoordinate) {
        report = DigitalReport(coordinateOf(
            description, fields.x.text(), fields.y.text(), signsOf(fields.signs.text()),
            short(fields.xIntegerDigits - 1), short(fields.yIntegerDigits - 1)));
    }
    if (flags & decodeButton)
        report.m_button_number = buttonNumberOf(description, fields.button);
    return report;
}

DigitalReport lectraE92ReportOf(const char* text)
{
    DigitalReport rejected(0.0, 0.0);
    rejected.m_button_number = -1;

    // The two digits 31 to 34, taken as they stand: 10 * '3' + '1' is 559.
    const int code = 10 * static_cast<unsigned char>(text[6]) + static_cast<unsigned char>(text[7]);
    if (code < 559 || code > 562 || text[9] != '0')
        return rejected;
    const double x = lectraNumber(text + 10);
    if (!(x > 0.0))
        return rejected;
    const double y = lectraNumber(text + 17);
    if (!(y > 0.0))
        return rejected;
    DigitalReport report(x, y);
    report.m_button_number = code - 557;
    return report;
}

} // namespace MavSystem::FieldDecoding
