// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/ReportFields.h"

#include "DigitizerGeneric/Digitizer/ReportLayout.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>

namespace ReferenceHost {

using namespace PressProtocol;
using MavSystem::ReportLayout;

namespace {

// A coordinate moves at least this many times farther along its own axis than along the other.
constexpr double clearMovement = 4.0;

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

class FieldSearch
{
public:
    explicit FieldSearch(const ReportColumns& columns)
        : m_columns(columns), m_numbers(columns.numbers())
    {}

    tl::expected<ReportFields, QString> result();

private:
    bool isInNumber(int position) const;
    void findButtons();
    void findPackedButton();
    void limitButtons();
    QVector<PackedButton> packedButtons() const;
    tl::expected<void, QString> findAxes();
    tl::expected<void, QString> findPackedAxes();
    bool follows(const ReportNumber& number, Place own, Place other) const;
    void doubt(Doubt::About about, const QString& text) { m_fields.doubts.append({about, text}); }

    const ReportColumns& m_columns;
    QVector<ReportNumber> m_numbers;
    ReportFields m_fields;
};

tl::expected<ReportFields, QString> FieldSearch::result()
{
    findButtons();
    if (m_fields.button.isEmpty())
        return tl::unexpected(QStringLiteral(
            "no character tells the buttons apart; each button must send a different code"));
    const auto axes = m_numbers.size() == 1 ? findPackedAxes() : findAxes();
    if (!axes)
        return tl::unexpected(axes.error());
    limitButtons();
    return m_fields;
}

bool FieldSearch::isInNumber(int position) const
{
    return std::any_of(m_numbers.begin(), m_numbers.end(),
                       [=](const ReportNumber& number) { return number.contains(position); });
}

// Finds the positions outside the numbers that change with the button. If there are none, the
// button may be at an end of a number.
void FieldSearch::findButtons()
{
    for (int position = 0; position < m_columns.size(); ++position) {
        if (m_columns.followsButton(position) && !isInNumber(position))
            m_fields.button.append(position);
    }
    if (m_fields.button.isEmpty()) {
        findPackedButton();
        return;
    }
    // The leading zero of codes such as 01 to 09.
    int before = m_fields.button.first() - 1;
    while (before >= 0 && m_fields.button.size() < ReportLayout::codeCharacters &&
           m_columns.isDigits(before) && m_columns.isConstant(before) && !isInNumber(before))
        m_fields.button.prepend(before--);
}

QVector<PackedButton> FieldSearch::packedButtons() const
{
    QVector<PackedButton> found;
    for (int index = 0; index < m_numbers.size(); ++index) {
        const ReportNumber& number = m_numbers.at(index);
        const int widest = std::min(ReportLayout::codeCharacters, number.end - number.start - 1);
        for (int width = 1; width <= widest; ++width) {
            for (const int start : {number.start, number.end - width}) {
                bool follow = true;
                for (int position = start; position < start + width; ++position)
                    follow = follow && m_columns.followsButton(position);
                if (follow)
                    found.append({m_columns.differentTexts(start, width), width, start, index});
            }
        }
    }
    return found;
}

// Takes the button from an end of a number. Of the possible ends, this is the one that tells most
// buttons apart with the fewest characters, and the last of these: a digit may follow the button by
// chance.
void FieldSearch::findPackedButton()
{
    const QVector<PackedButton> found = packedButtons();
    if (found.isEmpty())
        return;
    const PackedButton best = *std::max_element(found.begin(), found.end());
    for (int position = best.start; position < best.start + best.width; ++position)
        m_fields.button.append(position);
    ReportNumber& number = m_numbers[best.number];
    number = best.start == number.start ? m_columns.numberAt(best.start + best.width, number.end)
                                        : m_columns.numberAt(number.start, best.start);
}

void FieldSearch::limitButtons()
{
    if (m_fields.button.size() <= ReportLayout::codeCharacters)
        return;
    m_fields.button.resize(ReportLayout::codeCharacters);
    doubt(Doubt::About::Buttons,
          QStringLiteral(
              "more than three characters change with the button; the first three are used."));
}

bool FieldSearch::follows(const ReportNumber& number, Place own, Place other) const
{
    const double along = std::abs(m_columns.movement(number, own));
    return along > 0 && along >= clearMovement * std::abs(m_columns.movement(number, other));
}

tl::expected<void, QString> FieldSearch::findAxes()
{
    std::optional<ReportNumber> x;
    std::optional<ReportNumber> y;
    for (const ReportNumber& number : qAsConst(m_numbers)) {
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
        return tl::unexpected(
            QStringLiteral("no number follows %1; press each point as asked, with the tablet in an "
                           "absolute mode")
                .arg(x ? QStringLiteral("y") : QStringLiteral("x")));
    m_fields.x = *x;
    m_fields.y = *y;
    return {};
}

// For x and y without a separator: of the ways to split the digits that agree with the movements,
// the one nearest to the middle.
tl::expected<void, QString> FieldSearch::findPackedAxes()
{
    const ReportNumber whole = m_numbers.first();
    int best = 0;
    for (int middle = whole.start + 1; middle < whole.end; ++middle) {
        const ReportNumber left = m_columns.numberAt(whole.start, middle);
        const ReportNumber right = m_columns.numberAt(middle, whole.end);
        if (left.isEmpty() || right.isEmpty())
            continue;
        const bool xFirst = follows(left, Right, Above) && follows(right, Above, Right);
        const bool yFirst = follows(left, Above, Right) && follows(right, Right, Above);
        const int unevenness = std::abs(2 * middle - whole.start - whole.end);
        if ((xFirst || yFirst) &&
            (best == 0 || unevenness < std::abs(2 * best - whole.start - whole.end))) {
            best = middle;
            m_fields.x = xFirst ? left : right;
            m_fields.y = xFirst ? right : left;
        }
    }
    if (best == 0)
        return tl::unexpected(
            QStringLiteral("the digits cannot be split into an x that grows to the right "
                           "and a y that grows upwards"));
    doubt(Doubt::About::Template,
          QStringLiteral("nothing separates x and y; the digits were split at position %1.")
              .arg(best));
    return {};
}

} // namespace

tl::expected<ReportFields, QString> findFields(const ReportColumns& columns)
{
    return FieldSearch(columns).result();
}

} // namespace ReferenceHost
