// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/LectraE92.h"

#include "DigitizerGeneric/Digitizer/FieldDecoding.h"

#include <iterator>

namespace MavSystem::LectraE92 {

namespace {

// Read from its last character, whose weight is a hundredth, to its
// first. A blank ends it, a '-' negates what has been read so far.
double number(const char* firstCharacter)
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
            value += FieldDecoding::digitOf(*character) * weight;
    }
    return value;
}

} // namespace

bool isName(const QString& driver)
{
    const QLatin1String name("Lectra E92");
    // The size first: this is asked for every report, and the comparison folds case.
    return driver.size() == name.size() && driver.compare(name, Qt::CaseInsensitive) == 0;
}

DigitalReport reportOf(const char* text)
{
    DigitalReport rejected(0.0, 0.0);
    rejected.m_button_number = -1;

    // Taken as they stand: a letter in place of the second digit may make a code as well.
    const int code =
        10 * static_cast<unsigned char>(text[6]) + static_cast<unsigned char>(text[7]) - 11 * '0';
    const int button = code - firstCode + firstButton;
    if (button < firstButton || button >= firstButton + buttons || text[9] != '0')
        return rejected;
    const double x = number(text + 10);
    if (!(x > 0.0))
        return rejected;
    const double y = number(text + 17);
    if (!(y > 0.0))
        return rejected;
    DigitalReport report(x, y);
    report.m_button_number = button;
    return report;
}

} // namespace MavSystem::LectraE92
