// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "NumberedPenFile.h"

#include "NumberedReport.h"

#include <cmath>

using MavSystem::DigitalReport;

namespace NumberedPenFile {

namespace {

constexpr int columns = 30000; // a coordinate has 15 bits
constexpr int rows = 100;      // y for the points of a file

constexpr int buttons[points] = {1, 1, 1, 2, 2, 2, 4};

int xOf(int number)
{
    return 1 + number % columns;
}

int yOf(int number, int point)
{
    return 1 + number / columns * rows + point;
}

} // namespace

QByteArray contentOf(int number)
{
    QByteArray content;
    for (int point = 0; point < points; ++point) {
        if (point == 0 || buttons[point] != buttons[point - 1])
            content += "A button - " + QByteArray::number(buttons[point]) + "\r\n";
        content += "X: " + QByteArray::number(xOf(number)) +
                   " Y: " + QByteArray::number(yOf(number, point)) + "\r\n";
    }
    return content;
}

DigitalReport reportOf(int number, int point)
{
    DigitalReport report(xOf(number) / 10.0 / 10.0, yOf(number, point) / 10.0 / 10.0);
    report.m_button_number = buttons[point];
    return report;
}

int numberOf(const DigitalReport& report)
{
    const auto x = int(std::lround(report.coordinate().x() * 100));
    const auto y = int(std::lround(report.coordinate().y() * 100));
    const int number = (y - 1) / rows * columns + x - 1;
    const bool exists = x >= 1 && x <= columns && y >= 1 && number <= largest;
    return exists && NumberedReport::isSame(report, reportOf(number, 0)) ? number : -1;
}

} // namespace NumberedPenFile
