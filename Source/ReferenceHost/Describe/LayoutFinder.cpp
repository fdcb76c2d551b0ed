// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/LayoutFinder.h"

#include "ReferenceHost/Describe/PressProtocol.h"
#include "ReferenceHost/Describe/ReportColumns.h"
#include "ReferenceHost/Describe/ReportFields.h"

#include <algorithm>

namespace ReferenceHost {

using namespace MavSystem;
using namespace PressProtocol;

namespace {

// Fails for what a template cannot express, as far as a single position shows it.
tl::expected<void, QString> requireTextOfDigits(const ReportColumns& columns)
{
    for (int position = 0; position < columns.size(); ++position) {
        if (columns.isConstant(position))
            continue;
        if (!columns.isText(position))
            return tl::unexpected(
                QStringLiteral("position %1 changes and is not text; the report is binary, or the "
                               "serial settings are wrong")
                    .arg(position));
        if (columns.hasDigits(position) && columns.at(position).contains(' ') &&
            !columns.followsButton(position))
            return tl::unexpected(
                QStringLiteral("position %1 holds a digit in some reports and a blank in others; a "
                               "template cannot express numbers padded with blanks")
                    .arg(position));
    }
    return {};
}

// The driver assigns the first point of a report to x.
tl::expected<ReportFields, QString> expressible(const ReportFields& fields)
{
    if (fields.y.point >= 0 && (fields.x.point < 0 || fields.y.start < fields.x.start))
        return tl::unexpected(QStringLiteral(
            "a template cannot express a decimal point in y unless x has one too and comes first"));
    if (fields.x.point >= 0 && fields.y.start < fields.x.start)
        return tl::unexpected(QStringLiteral(
            "a template cannot express a decimal point in x unless x comes before y"));
    return fields;
}

/// Expresses the fields as a template.
class Layout
{
public:
    Layout(const ReportColumns& columns, const ReportFields& fields)
        : m_columns(columns), m_fields(fields)
    {
        m_layout.doubts = fields.doubts;
        assignLineEnds();
        assignNumber(fields.x, FORMAT_X);
        assignNumber(fields.y, FORMAT_Y);
        assignSigns();
        for (const int position : fields.button)
            roleAt(position) = FORMAT_BUTTON;
        readCodes();
        noteDirections();
        noteUnchangedDigits();
    }

    const FoundLayout& found() const { return m_layout; }

private:
    void assignLineEnds();
    void assignNumber(const ReportNumber& number, ReportFormatValues role);
    void assignSigns();
    void readCodes();
    void noteDirections();
    void noteUnchangedDigits();
    void doubt(Doubt::About about, const QString& text) { m_layout.doubts.append({about, text}); }

    ReportFormatValues& roleAt(int position) { return m_layout.roles[std::size_t(position)]; }

    const ReportColumns& m_columns;
    const ReportFields& m_fields;
    FoundLayout m_layout;
};

void Layout::assignLineEnds()
{
    m_layout.roles.assign(std::size_t(m_columns.size()), FORMAT_UNUSED);
    for (int position = 0; position < m_columns.size(); ++position) {
        if (m_columns.isAlways(position, '\r'))
            roleAt(position) = FORMAT_CR;
        else if (m_columns.isAlways(position, '\n'))
            roleAt(position) = FORMAT_LINE_FEED;
    }
}

void Layout::assignNumber(const ReportNumber& number, ReportFormatValues role)
{
    std::fill(m_layout.roles.begin() + number.start, m_layout.roles.begin() + number.end, role);
    if (number.point >= 0)
        roleAt(number.point) = FORMAT_POINT;
}

// The driver assigns the first sign of a report to x.
void Layout::assignSigns()
{
    const int x = m_fields.x.sign;
    const int y = m_fields.y.sign;
    if (x < 0 && y < 0)
        return;
    if (x < 0 || (y >= 0 && y < x)) {
        doubt(Doubt::About::Template,
              QStringLiteral("a template cannot express a sign of y unless x has one too and comes "
                             "first. The signs are marked as unused, so negative coordinates "
                             "become positive. Keep the origin at the lower left."));
        return;
    }
    for (const int position : {x, y}) {
        if (position < 0)
            continue;
        roleAt(position) = FORMAT_SIGN;
        if (!m_columns.at(position).contains('-'))
            doubt(Doubt::About::Template,
                  QStringLiteral("position %1 was never a minus, but is taken for a sign.")
                      .arg(position));
    }
}

void Layout::readCodes()
{
    for (int press = Middle; press < m_columns.presses(); ++press) {
        const QByteArray code = m_columns.characters(press, m_fields.button);
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

void Layout::noteDirections()
{
    m_layout.xCounts = m_columns.movement(m_fields.x, Right);
    m_layout.yCounts = m_columns.movement(m_fields.y, Above);
    if (m_layout.xCounts < 0 || m_layout.yCounts < 0)
        doubt(Doubt::About::Template,
              QStringLiteral("%1 decreases where it should increase, and a template cannot reverse "
                             "an axis. Turn the tablet or change its origin.")
                  .arg(m_layout.xCounts < 0 ? QStringLiteral("x") : QStringLiteral("y")));
}

void Layout::noteUnchangedDigits()
{
    for (int position = 0; position < m_columns.size(); ++position) {
        if (!m_columns.isConstant(position))
            continue;
        const ReportFormatValues role = roleAt(position);
        const QLatin1Char character(m_columns.at(position).at(0));
        if (role == FORMAT_UNUSED && m_columns.isDigits(position))
            doubt(Doubt::About::Template,
                  QStringLiteral("position %1 was %2 in every report and is marked as unused.")
                      .arg(position)
                      .arg(character));
        if (role == FORMAT_X || role == FORMAT_Y)
            doubt(
                Doubt::About::Template,
                QStringLiteral("position %1 was %2 in every report; it is taken for a digit of %3.")
                    .arg(position)
                    .arg(character)
                    .arg(QLatin1Char(role == FORMAT_X ? 'x' : 'y')));
    }
}

} // namespace

tl::expected<FoundLayout, QString> findLayout(const QVector<QByteArray>& reports)
{
    const ReportColumns columns(reports);
    return requireTextOfDigits(columns)
        .and_then([&] { return findFields(columns); })
        .and_then(expressible)
        .map([&](const ReportFields& fields) { return Layout(columns, fields).found(); });
}

} // namespace ReferenceHost
