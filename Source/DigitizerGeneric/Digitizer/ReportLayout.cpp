// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/ReportLayout.h"

#include "DigitizerGeneric/Digitizer/FieldDecoding.h"

#include <algorithm>

namespace MavSystem {

namespace {

// One axis while the template is walked.
struct Axis
{
    std::vector<int> positions;
    int integerDigits = 0;
    bool pointSeen = false;

    void takeDigit(int position)
    {
        positions.push_back(position);
        integerDigits += pointSeen ? 0 : 1;
    }

    std::vector<ReportLayout::Digit> digits() const
    {
        std::vector<ReportLayout::Digit> result;
        int exponent = integerDigits - 1;
        for (const int position : positions)
            result.push_back({position, FieldDecoding::powerOfTen(exponent--)});
        return result;
    }
};

} // namespace

ReportLayout::ReportLayout(const DigitizerArgument& description)
{
    const std::vector<ReportFormatValues>& roles = description.m_reportFormat;
    const auto count = int(std::min(
        {std::size_t(description.m_reportLength), roles.size(), std::size_t(maximumCharacters)}));
    Axis xAxis;
    Axis yAxis;
    for (int position = 0; position < count; ++position) {
        switch (roles[std::size_t(position)]) {
        case FORMAT_X:
            xAxis.takeDigit(position);
            break;
        case FORMAT_Y:
            yAxis.takeDigit(position);
            break;
        case FORMAT_POINT:
            // The first point of a report is that of x, every later one that of y.
            (xAxis.pointSeen ? yAxis : xAxis).pointSeen = true;
            break;
        case FORMAT_SIGN:
            (xSign < 0 ? xSign : ySign) = position;
            break;
        case FORMAT_BUTTON:
            if (button.size() < ButtonValue().m_code.size())
                button.push_back(position);
            break;
        case FORMAT_UNUSED:
        case FORMAT_CR:
        case FORMAT_LINE_FEED:
            break;
        }
    }
    x = xAxis.digits();
    y = yAxis.digits();
}

} // namespace MavSystem
