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

short signOf(char character)
{
    return character == '-' ? -1 : 1;
}

double digitOf(char character)
{
    return static_cast<signed char>(character) - '0';
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
    // Not std::equal: for three characters the call of memcmp costs more than the comparison.
    for (std::size_t index = 0; index < significant; ++index) {
        if (left.m_code[index] != right.m_code[index])
            return false;
    }
    return true;
}

double magnitudeAt(const std::vector<ReportLayout::Digit>& digits, const char* text)
{
    double magnitude = 0.0;
    for (const ReportLayout::Digit& digit : digits)
        magnitude += digitOf(text[digit.position]) * digit.worth;
    return magnitude;
}

short signAt(int position, const char* text)
{
    return position < 0 ? short(1) : signOf(text[position]);
}

ButtonValue buttonAt(const std::vector<int>& positions, const char* text)
{
    ButtonValue code;
    for (std::size_t index = 0; index < positions.size(); ++index)
        code.m_code[index] = text[positions[index]];
    return code;
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
            value += digitOf(*character) * weight;
    }
    return value;
}

} // namespace

double powerOfTen(int exponent)
{
    if (exponent >= -largestTabledExponent && exponent <= largestTabledExponent)
        return powersOfTen[exponent + largestTabledExponent];
    return std::pow(10.0, exponent);
}

Signs signsOf(std::string_view characters)
{
    Signs signs;
    short* sign = &signs.x;
    for (const char character : characters) {
        *sign = signOf(character);
        sign = &signs.y;
    }
    return signs;
}

double magnitudeOf(std::string_view digits, short leadingExponent)
{
    double magnitude = 0.0;
    int exponent = leadingExponent;
    for (const char digit : digits)
        magnitude += digitOf(digit) * powerOfTen(exponent--);
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

DigitalReport reportOf(const DigitizerArgument& description, const ReportLayout& layout,
                       const char* text, int flags)
{
    GeoPoint2D point;
    if (flags & decodeCoordinate) {
        point = scale(description, magnitudeAt(layout.x, text) * signAt(layout.xSign, text),
                      magnitudeAt(layout.y, text) * signAt(layout.ySign, text));
    }
    DigitalReport report(point);
    if (flags & decodeButton)
        report.m_button_number = buttonNumberOf(description, buttonAt(layout.button, text));
    return report;
}

bool isLectraE92(const QString& driver)
{
    const QLatin1String lectraE92("Lectra E92");
    // The size first: this is asked for every report, and the comparison folds case.
    return driver.size() == lectraE92.size() && driver.compare(lectraE92, Qt::CaseInsensitive) == 0;
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
