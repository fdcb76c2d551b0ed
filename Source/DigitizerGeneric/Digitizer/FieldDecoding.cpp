// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"

#include "DigitizerGeneric/Digitizer/Resolution.h"

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

GeoPoint2D scale(const DigitizerArgument& description, double x, double y)
{
    const double lines = description.m_resolution;
    const ResolutionUnit unit = description.m_resolutionUnit;
    return {Resolution::centimetres(x, lines, unit), Resolution::centimetres(y, lines, unit)};
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

} // namespace

double digitOf(char character)
{
    return static_cast<signed char>(character) - '0';
}

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

int firstButton(const DigitizerArgument& description)
{
    return description.m_fourButtons ? 1 : 0;
}

int numberedButtons(const DigitizerArgument& description)
{
    return std::min(description.m_fourButtons ? 4 : 16, int(description.m_buttons.size()));
}

short buttonNumberOf(const DigitizerArgument& description, const ButtonValue& code)
{
    const auto searched = std::size_t(numberedButtons(description));
    const auto significant =
        std::size_t(std::min<std::uint64_t>(description.m_buttonCodeLength, code.m_code.size()));
    for (std::size_t index = 0; index < searched; ++index) {
        if (sameCode(description.m_buttons[index], code, significant))
            return short(firstButton(description) + int(index));
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

} // namespace MavSystem::FieldDecoding
