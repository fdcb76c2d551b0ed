// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"
#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "DigitizerGeneric/Digitizer/ReportLayout.h"
#include "MavGeo/GeoPoint2D.h"

#include <string_view>

/// The decoding of tablet reports and pen commands: values in, values out.
///
/// A field holds its characters in the order of their positions.
namespace MavSystem::FieldDecoding {

/// Flags of reportOf() that say what to decode; the rest of the report stays 0.
inline constexpr int decodeButton = 1;
inline constexpr int decodeCoordinate = 2;

/// +1 or -1 for each axis.
struct Signs
{
    short x = 1;
    short y = 1;
};

/// Returns the value of a digit. Characters that are none are not noticed.
double digitOf(char character);

/// Returns 10 to the power of \a exponent.
double powerOfTen(int exponent);

/// Returns the signs of x (first character) and y (every later one): -1 for '-', +1 otherwise.
Signs signsOf(std::string_view characters);

/// Returns the sum of each digit times its power of ten. \a leadingExponent is that of the first
/// digit. Characters are not checked. Returns 0 for an empty field.
double magnitudeOf(std::string_view digits, short leadingExponent);

/// Returns the point in centimetres, scaled by the resolution of \a description.
GeoPoint2D coordinateOf(const DigitizerArgument& description, std::string_view xDigits,
                        std::string_view yDigits, Signs signs, short xExponent, short yExponent);

/// Returns the number of the first button: 1 with four buttons, 0 otherwise.
int firstButton(const DigitizerArgument& description);

/// Returns how many codes of \a description have a number.
int numberedButtons(const DigitizerArgument& description);

/// Returns the number of the button with \a code, 1 to 4 or 0 to 15, or 0 if there is none.
short buttonNumberOf(const DigitizerArgument& description, const ButtonValue& code);

/// Returns the report decoded from \a text. \a layout is that of \a description; \a text holds at
/// least as many characters as its template, or ReportLayout::maximumCharacters.
DigitalReport reportOf(const DigitizerArgument& description, const ReportLayout& layout,
                       const char* text, int flags);

} // namespace MavSystem::FieldDecoding
