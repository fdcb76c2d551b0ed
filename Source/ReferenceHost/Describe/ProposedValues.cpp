// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/ProposedValues.h"

#include "DigitizerGeneric/Digitizer/PrintableCharacter.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"
#include "ReferenceHost/Describe/PressProtocol.h"
#include "ReferenceHost/Describe/ResolutionEstimate.h"

#include <algorithm>
#include <cmath>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

constexpr int fewButtons = 4;

// Equal distances along x and y that differ by more than this were not measured inaccurately by
// hand.
constexpr double unevenAxes = 0.01;

// A character that no button sends, for the entry of a button whose code is not known.
QByteArray placeholder(const QVector<QByteArray>& codes, int length)
{
    for (char character = firstPrintable + 1; isPrintable(character); ++character) {
        const QByteArray code(length, character);
        if (!codes.contains(code))
            return code;
    }
    return QByteArray(length, ' ');
}

class ValueSearch
{
public:
    ValueSearch(const ReportSplit& split, const FoundLayout& layout, const TabletFacts& facts)
        : m_split(split), m_layout(layout), m_facts(facts)
    {
        m_values.doubts = layout.doubts;
        doubtLine();
        doubtLength();
        findResolution();
        completeCodes();
    }

    const ProposedValues& values() const { return m_values; }

private:
    void doubtLine();
    void doubtLength();
    void findResolution();
    void doubtEvenAxes();
    void completeCodes();
    void doubt(Doubt::About about, const QString& text) { m_values.doubts.append({about, text}); }

    const ReportSplit& m_split;
    const FoundLayout& m_layout;
    const TabletFacts& m_facts;
    ProposedValues m_values;
};

void ValueSearch::doubtLine()
{
    if (!m_facts.isLineKnown) {
        doubt(Doubt::About::Line, QStringLiteral("the recording does not say which serial settings "
                                                 "were used; these are the usual ones."));
        return;
    }
    doubt(
        Doubt::About::Line,
        QStringLiteral("the bytes read with these settings are text, but bytes do not show parity, "
                       "stop bits or flow control. Compare with the tablet's switches or manual."));
}

void ValueSearch::doubtLength()
{
    if (m_split.evidence == ReportSplit::Evidence::WholePress)
        doubt(Doubt::About::Template,
              QStringLiteral(
                  "there is no line end; all bytes of one press were used as one report."));
    if (m_split.evidence == ReportSplit::Evidence::Repetition)
        doubt(Doubt::About::Template,
              QStringLiteral("there is no line end; the bytes repeat after this many characters."));
    if (m_split.mostReportsInPress > 1)
        doubt(Doubt::About::Template,
              QStringLiteral("up to %1 reports came with one press; the first was used. Set the "
                             "tablet to one report per press: without checked reading, the library "
                             "does not read reports that arrive together.")
                  .arg(m_split.mostReportsInPress));
}

void ValueSearch::findResolution()
{
    if (!m_facts.distance) {
        doubt(Doubt::About::Resolution,
              QStringLiteral("no distance was given, so %1 is only a placeholder. Until it is "
                             "corrected, all lengths are wrong by the same factor.")
                  .arg(m_values.lines));
        return;
    }
    const auto estimate = estimateResolution(std::abs(m_layout.xCounts), *m_facts.distance);
    if (estimate.lines == 0) {
        doubt(Doubt::About::Resolution,
              QStringLiteral("no resolution in a description gives %1 counts in %2 cm, so %3 is "
                             "only a placeholder.")
                  .arg(m_layout.xCounts)
                  .arg(*m_facts.distance)
                  .arg(m_values.lines));
        return;
    }
    m_values.lines = estimate.lines;
    m_values.unit = estimate.unit;
    QString text = QStringLiteral("%1 counts in %2 cm are %3 lines per inch; ")
                       .arg(m_layout.xCounts)
                       .arg(*m_facts.distance)
                       .arg(estimate.measuredLines, 0, 'f', 1);
    text += estimate.isUsual ? QStringLiteral("%1 is the nearest usual resolution.")
                                   .arg(Resolution::text(m_values.lines, m_values.unit))
                             : QStringLiteral("no known tablet has that resolution.");
    if (m_values.unit == LPI && m_values.lines * 10 % 254 == 0)
        text += QStringLiteral(" %1 LPMM is just as near: the two differ by 0.0125 %.")
                    .arg(m_values.lines * 10 / 254);
    doubt(Doubt::About::Resolution, text);
    doubtEvenAxes();
}

void ValueSearch::doubtEvenAxes()
{
    const double x = std::abs(m_layout.xCounts);
    const double y = std::abs(m_layout.yCounts);
    if (std::abs(x - y) > unevenAxes * x)
        doubt(Doubt::About::Resolution,
              QStringLiteral("the same distance was %1 counts along x and %2 along y. A "
                             "description has one resolution for both, so measure again.")
                  .arg(x)
                  .arg(y));
}

// Equal codes would hide the later button, and a table of fewer than four would be numbered from 0.
void ValueSearch::completeCodes()
{
    const int pressed = m_layout.codes.size();
    const int length = m_layout.codes.first().size();
    QStringList unknown;
    for (int button = 0; button < std::max(pressed, fewButtons); ++button) {
        const bool isKnown =
            button < pressed && !m_values.codes.contains(m_layout.codes.at(button));
        m_values.codes.append(isKnown ? m_layout.codes.at(button)
                                      : placeholder(m_values.codes + m_layout.codes, length));
        if (!isKnown)
            unknown << QString::number(button + 1);
    }
    if (!unknown.isEmpty())
        doubt(Doubt::About::Buttons,
              QStringLiteral("buttons without a known code: %1. Each has a placeholder, a "
                             "character that no button sends.")
                  .arg(unknown.join(QStringLiteral(", "))));
    if (pressed > fewButtons && pressed < PressProtocol::maximumButtons)
        doubt(Doubt::About::Buttons,
              QStringLiteral("%1 buttons were pressed; the codes of further buttons are not known.")
                  .arg(pressed));
    if (pressed > fewButtons)
        doubt(Doubt::About::Buttons,
              QStringLiteral("with more than four buttons, the first one has the number 0, which "
                             "is also the number of an unknown code."));
}

} // namespace

ProposedValues proposeValues(const ReportSplit& split, const FoundLayout& layout,
                             const TabletFacts& facts)
{
    return ValueSearch(split, layout, facts).values();
}

} // namespace ReferenceHost
