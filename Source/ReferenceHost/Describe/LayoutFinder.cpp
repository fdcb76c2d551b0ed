// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/LayoutFinder.h"

#include "ReferenceHost/Describe/PressProtocol.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>

namespace ReferenceHost {

using namespace PressProtocol;

namespace {

constexpr int maximumCodeCharacters = 3;

// A coordinate moves at least this many times farther along its own axis than along the other.
constexpr double clearMovement = 4.0;

// The bytes of all reports at one position, one for each press.
using Column = QByteArray;

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isDigits(const Column& column)
{
    return std::all_of(column.begin(), column.end(), isDigit);
}

bool isConstant(const Column& column)
{
    return column.count(column.at(0)) == column.size();
}

bool isAlways(const Column& column, char character)
{
    return column.count(character) == column.size();
}

// Changes with the button and with nothing else: the same wherever button 1 is pressed.
bool followsButton(const Column& column)
{
    return isConstant(column.left(placeCount)) && !isConstant(column);
}

bool isSign(const Column& column)
{
    return column.count('+') + column.count('-') > 0 &&
           column.count('+') + column.count('-') + column.count(' ') == column.size();
}

// Positions of a number: digits, possibly with a point among them or a sign in front.
struct Number
{
    int start = 0;
    int end = 0; // one past the last
    int sign = -1;
    int point = -1;

    bool contains(int position) const
    {
        return (position >= start && position < end) || position == sign;
    }
};

// A button code at an end of a number, without a separator.
struct PackedButton
{
    int codes; // that differ
    int width;
    int start;
    int number; // index

    bool operator<(const PackedButton& other) const
    {
        return std::make_tuple(codes, -width, start) <
               std::make_tuple(other.codes, -other.width, other.start);
    }
};

class LayoutSearch
{
public:
    explicit LayoutSearch(const QVector<QByteArray>& reports);
    FoundLayout result();

private:
    bool isTextOfDigits();
    bool isInNumber(int position) const;
    void findButtons();
    void findPackedButton();
    QVector<PackedButton> packedButtons() const;
    int codesAt(int start, int width) const;
    void findNumbers();
    bool findAxes();
    bool findPackedAxes();
    bool isExpressible();
    void assignRoles();
    void assignSigns();
    void assignNumber(const Number& number, char role);
    void readCodes();
    void noteDirections();
    void noteUnusedDigits();

    bool moves(const Number& number) const;
    Number numberAt(int start, int end) const;
    double valueOf(const Number& number, int press) const;
    double movement(const Number& number, Place place) const;
    bool follows(const Number& number, Place own, Place other) const;
    bool isPointBetweenDigits(int position) const;
    bool fail(const QString& error);
    void doubt(Doubt::About about, const QString& text) { m_layout.doubts.append({about, text}); }

    const QVector<QByteArray>& m_reports;
    QVector<Column> m_columns;
    QVector<int> m_buttonPositions;
    QVector<Number> m_numbers;
    Number m_x;
    Number m_y;
    FoundLayout m_layout;
};

LayoutSearch::LayoutSearch(const QVector<QByteArray>& reports) : m_reports(reports)
{
    for (int position = 0; position < reports.first().size(); ++position) {
        Column column;
        for (const QByteArray& report : reports)
            column += report.at(position);
        m_columns.append(column);
    }
}

FoundLayout LayoutSearch::result()
{
    if (!isTextOfDigits())
        return m_layout;
    findNumbers();
    findButtons();
    if (m_buttonPositions.isEmpty()) {
        fail(QStringLiteral(
            "no character tells the buttons apart; each button must send a different code"));
        return m_layout;
    }
    if (!findAxes() || !isExpressible())
        return m_layout;
    assignRoles();
    readCodes();
    noteDirections();
    noteUnusedDigits();
    return m_layout;
}

bool LayoutSearch::fail(const QString& error)
{
    m_layout.error = error;
    return false;
}

// Fails for what a template cannot express, as far as a single position shows it.
bool LayoutSearch::isTextOfDigits()
{
    for (int position = 0; position < m_columns.size(); ++position) {
        const Column& column = m_columns.at(position);
        if (isConstant(column))
            continue;
        const bool isText = std::all_of(column.begin(), column.end(),
                                        [](char byte) { return byte >= ' ' && byte <= '~'; });
        if (!isText)
            return fail(QStringLiteral("position %1 changes and is not text; the report is binary, "
                                       "or the serial settings are wrong")
                            .arg(position));
        const bool hasDigits = std::any_of(column.begin(), column.end(), isDigit);
        if (hasDigits && column.contains(' ') && !followsButton(column))
            return fail(
                QStringLiteral("position %1 holds a digit in some reports and a blank in others; a "
                               "template cannot express numbers padded with blanks")
                    .arg(position));
    }
    return true;
}

bool LayoutSearch::isPointBetweenDigits(int position) const
{
    return position > 0 && position + 1 < m_columns.size() &&
           isAlways(m_columns.at(position), '.') && isDigits(m_columns.at(position - 1)) &&
           isDigits(m_columns.at(position + 1));
}

bool LayoutSearch::moves(const Number& number) const
{
    return std::any_of(m_columns.begin() + number.start, m_columns.begin() + number.end,
                       [](const Column& column) { return !isConstant(column.left(placeCount)); });
}

// The number in a range of digits and points, with its sign. Points at the ends are not part of it.
Number LayoutSearch::numberAt(int start, int end) const
{
    while (start < end && !isDigits(m_columns.at(start)))
        ++start;
    while (end > start && !isDigits(m_columns.at(end - 1)))
        --end;
    Number number;
    number.start = start;
    number.end = end;
    if (start > 0 && isSign(m_columns.at(start - 1)))
        number.sign = start - 1;
    for (int position = start; position < end && number.point < 0; ++position) {
        if (!isDigits(m_columns.at(position)))
            number.point = position;
    }
    return number;
}

// Finds the runs of digits that change with the place.
void LayoutSearch::findNumbers()
{
    int position = 0;
    while (position < m_columns.size()) {
        const int start = position;
        while (position < m_columns.size() &&
               (isDigits(m_columns.at(position)) || isPointBetweenDigits(position)))
            ++position;
        const Number number = numberAt(start, position);
        if (position > start && moves(number))
            m_numbers.append(number);
        else if (position == start)
            ++position;
    }
}

bool LayoutSearch::isInNumber(int position) const
{
    return std::any_of(m_numbers.begin(), m_numbers.end(),
                       [=](const Number& number) { return number.contains(position); });
}

// Finds the positions outside the numbers that change with the button. If there are none, the
// button may be at an end of a number.
void LayoutSearch::findButtons()
{
    for (int position = 0; position < m_columns.size(); ++position) {
        if (followsButton(m_columns.at(position)) && !isInNumber(position))
            m_buttonPositions.append(position);
    }
    if (m_buttonPositions.isEmpty()) {
        findPackedButton();
        return;
    }
    // The leading zero of codes such as 01 to 09.
    int before = m_buttonPositions.first() - 1;
    while (before >= 0 && m_buttonPositions.size() < maximumCodeCharacters &&
           isDigits(m_columns.at(before)) && isConstant(m_columns.at(before)) &&
           !isInNumber(before))
        m_buttonPositions.prepend(before--);
}

// How many different codes the buttons would have.
int LayoutSearch::codesAt(int start, int width) const
{
    QSet<QByteArray> codes;
    for (const QByteArray& report : m_reports)
        codes.insert(report.mid(start, width));
    return codes.size();
}

QVector<PackedButton> LayoutSearch::packedButtons() const
{
    QVector<PackedButton> found;
    for (int index = 0; index < m_numbers.size(); ++index) {
        const Number& number = m_numbers.at(index);
        const int widest = std::min(maximumCodeCharacters, number.end - number.start - 1);
        for (int width = 1; width <= widest; ++width) {
            for (const int start : {number.start, number.end - width}) {
                const auto first = m_columns.begin() + start;
                if (std::all_of(first, first + width, followsButton))
                    found.append({codesAt(start, width), width, start, index});
            }
        }
    }
    return found;
}

// Takes the button from an end of a number. Of the possible ends, this is the one that tells most
// buttons apart with the fewest characters, and the last of these: a digit may follow the button by
// chance.
void LayoutSearch::findPackedButton()
{
    const QVector<PackedButton> found = packedButtons();
    if (found.isEmpty())
        return;
    const PackedButton best = *std::max_element(found.begin(), found.end());
    for (int position = best.start; position < best.start + best.width; ++position)
        m_buttonPositions.append(position);
    Number& number = m_numbers[best.number];
    number = best.start == number.start ? numberAt(best.start + best.width, number.end)
                                        : numberAt(number.start, best.start);
}

double LayoutSearch::valueOf(const Number& number, int press) const
{
    const QByteArray& report = m_reports.at(press);
    const double magnitude = report.mid(number.start, number.end - number.start).toDouble();
    return number.sign >= 0 && report.at(number.sign) == '-' ? -magnitude : magnitude;
}

double LayoutSearch::movement(const Number& number, Place place) const
{
    return valueOf(number, place) - valueOf(number, LowerLeft);
}

bool LayoutSearch::follows(const Number& number, Place own, Place other) const
{
    const double along = std::abs(movement(number, own));
    return along > 0 && along >= clearMovement * std::abs(movement(number, other));
}

bool LayoutSearch::findAxes()
{
    if (m_numbers.size() == 1)
        return findPackedAxes();
    std::optional<Number> x;
    std::optional<Number> y;
    for (const Number& number : qAsConst(m_numbers)) {
        if (!x && follows(number, Right, Above))
            x = number;
        else if (!y && follows(number, Above, Right))
            y = number;
        else
            doubt(Doubt::About::Template,
                  QStringLiteral("positions %1 to %2 also change, but follow neither x nor y; they "
                                 "are marked as unused.")
                      .arg(number.start)
                      .arg(number.end - 1));
    }
    if (!x || !y)
        return fail(QStringLiteral("no number follows %1; press each point as asked, with the "
                                   "tablet in an absolute mode")
                        .arg(x ? QStringLiteral("y") : QStringLiteral("x")));
    m_x = *x;
    m_y = *y;
    return true;
}

// For x and y without a separator: of the ways to split the digits that agree with the movements,
// the one nearest to the middle.
bool LayoutSearch::findPackedAxes()
{
    const Number whole = m_numbers.first();
    int best = 0;
    for (int middle = whole.start + 1; middle < whole.end; ++middle) {
        const Number left = numberAt(whole.start, middle);
        const Number right = numberAt(middle, whole.end);
        if (left.start == left.end || right.start == right.end)
            continue;
        const bool xFirst = follows(left, Right, Above) && follows(right, Above, Right);
        const bool yFirst = follows(left, Above, Right) && follows(right, Right, Above);
        const int unevenness = std::abs(2 * middle - whole.start - whole.end);
        if ((xFirst || yFirst) &&
            (best == 0 || unevenness < std::abs(2 * best - whole.start - whole.end))) {
            best = middle;
            m_x = xFirst ? left : right;
            m_y = xFirst ? right : left;
        }
    }
    if (best == 0)
        return fail(QStringLiteral("the digits cannot be split into an x that grows to the right "
                                   "and a y that grows upwards"));
    doubt(Doubt::About::Template,
          QStringLiteral("nothing separates x and y; the digits were split at position %1.")
              .arg(best));
    return true;
}

// The driver assigns the first point of a report to x.
bool LayoutSearch::isExpressible()
{
    if (m_y.point >= 0 && (m_x.point < 0 || m_y.start < m_x.start))
        return fail(QStringLiteral(
            "a template cannot express a decimal point in y unless x has one too and comes first"));
    if (m_x.point >= 0 && m_y.start < m_x.start)
        return fail(QStringLiteral(
            "a template cannot express a decimal point in x unless x comes before y"));
    return true;
}

void LayoutSearch::assignNumber(const Number& number, char role)
{
    std::fill(m_layout.roles.begin() + number.start, m_layout.roles.begin() + number.end, role);
    if (number.point >= 0)
        m_layout.roles[number.point] = '.';
}

// The driver assigns the first sign of a report to x.
void LayoutSearch::assignSigns()
{
    if (m_x.sign < 0 && m_y.sign < 0)
        return;
    if (m_x.sign < 0 || (m_y.sign >= 0 && m_y.sign < m_x.sign)) {
        doubt(Doubt::About::Template,
              QStringLiteral("a template cannot express a sign of y unless x has one too and comes "
                             "first. The signs are marked as unused, so negative coordinates "
                             "become positive. Keep the origin at the lower left."));
        return;
    }
    m_layout.roles[m_x.sign] = 'S';
    if (m_y.sign >= 0)
        m_layout.roles[m_y.sign] = 'S';
    for (const int position : {m_x.sign, m_y.sign}) {
        if (position >= 0 && !m_columns.at(position).contains('-'))
            doubt(Doubt::About::Template,
                  QStringLiteral("position %1 was never a minus, but is taken for a sign.")
                      .arg(position));
    }
}

void LayoutSearch::assignRoles()
{
    m_layout.roles.fill('U', m_columns.size());
    for (int position = 0; position < m_columns.size(); ++position) {
        if (isAlways(m_columns.at(position), '\r'))
            m_layout.roles[position] = 'C';
        else if (isAlways(m_columns.at(position), '\n'))
            m_layout.roles[position] = 'L';
    }
    assignNumber(m_x, 'X');
    assignNumber(m_y, 'Y');
    assignSigns();
    if (m_buttonPositions.size() > maximumCodeCharacters) {
        m_buttonPositions.resize(maximumCodeCharacters);
        doubt(Doubt::About::Buttons,
              QStringLiteral(
                  "more than three characters change with the button; the first three are used."));
    }
    for (const int position : qAsConst(m_buttonPositions))
        m_layout.roles[position] = 'B';
}

void LayoutSearch::readCodes()
{
    for (int press = Middle; press < m_reports.size(); ++press) {
        QByteArray code;
        for (const int position : qAsConst(m_buttonPositions))
            code += m_reports.at(press).at(position);
        const int same = m_layout.codes.indexOf(code);
        if (same >= 0)
            doubt(Doubt::About::Buttons,
                  QStringLiteral(
                      "buttons %1 and %2 send the same code; press them again, one at a time.")
                      .arg(same + 1)
                      .arg(buttonOf(press)));
        m_layout.codes.append(code);
    }
}

void LayoutSearch::noteDirections()
{
    m_layout.xCounts = movement(m_x, Right);
    m_layout.yCounts = movement(m_y, Above);
    if (m_layout.xCounts < 0 || m_layout.yCounts < 0)
        doubt(Doubt::About::Template,
              QStringLiteral("%1 decreases where it should increase, and a template cannot reverse "
                             "an axis. Turn the tablet or change its origin.")
                  .arg(m_layout.xCounts < 0 ? QStringLiteral("x") : QStringLiteral("y")));
}

void LayoutSearch::noteUnusedDigits()
{
    for (int position = 0; position < m_columns.size(); ++position) {
        const Column& column = m_columns.at(position);
        const char role = m_layout.roles.at(position);
        if (role == 'U' && isDigits(column) && isConstant(column))
            doubt(Doubt::About::Template,
                  QStringLiteral("position %1 was %2 in every report and is marked as unused.")
                      .arg(position)
                      .arg(QLatin1Char(column.at(0))));
        if ((role == 'X' || role == 'Y') && isConstant(column))
            doubt(
                Doubt::About::Template,
                QStringLiteral("position %1 was %2 in every report; it is taken for a digit of %3.")
                    .arg(position)
                    .arg(QLatin1Char(column.at(0)))
                    .arg(QLatin1Char(role == 'X' ? 'x' : 'y')));
    }
}

} // namespace

FoundLayout findLayout(const QVector<QByteArray>& reports)
{
    return LayoutSearch(reports).result();
}

} // namespace ReferenceHost
