// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/DescriptionProposal.h"

#include "ReferenceHost/Describe/PressProtocol.h"
#include "ReferenceHost/Describe/ResolutionEstimate.h"
#include "ReferenceHost/Descriptions/DescriptionTexts.h"

#include <algorithm>
#include <cmath>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

constexpr int fewButtons = 4;
constexpr int placeholderLines = 1000;

// Equal distances along x and y that differ by more than this were not measured inaccurately by
// hand.
constexpr double unevenAxes = 0.01;

// A comment must not contain "--".
QString commentText(QString text)
{
    return text.replace(QLatin1String("--"), QLatin1String("-\\-"));
}

// As it could be typed, with line ends and other control characters spelt out.
QString printable(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes) {
        if (byte == '\r')
            text += QLatin1String("\\r");
        else if (byte == '\n')
            text += QLatin1String("\\n");
        else if (byte >= ' ' && byte <= '~')
            text += QLatin1Char(byte);
        else
            text += QLatin1String("\\x") + QString::fromLatin1(QByteArray(1, byte).toHex());
    }
    return text;
}

// A character that no button sends, for the entry of a button whose code is not known.
QByteArray placeholder(const QVector<QByteArray>& codes, int length)
{
    for (char character = '!'; character <= '~'; ++character) {
        const QByteArray code(length, character);
        if (!codes.contains(code))
            return code;
    }
    return QByteArray(length, ' ');
}

class Proposal
{
public:
    Proposal(const ReportSplit& split, const FoundLayout& layout, const TabletFacts& facts)
        : m_split(split), m_layout(layout), m_facts(facts), m_doubts(layout.doubts)
    {
        doubtLine();
        doubtLength();
        findResolution();
        completeCodes();
    }

    QString text() const;

private:
    void doubtLine();
    void doubtLength();
    void findResolution();
    void doubtEvenAxes();
    void completeCodes();
    void doubt(Doubt::About about, const QString& text) { m_doubts.append({about, text}); }
    QString comments(Doubt::About about) const;
    QString headText() const;
    QString serialText() const;
    QString buttonsText() const;

    const ReportSplit& m_split;
    const FoundLayout& m_layout;
    const TabletFacts& m_facts;
    QVector<Doubt> m_doubts;
    QVector<QByteArray> m_codes;
    int m_lines = placeholderLines;
    ResolutionUnit m_unit = LPI;
};

void Proposal::doubtLine()
{
    if (!m_facts.isLineKnown) {
        doubt(Doubt::About::Line, QStringLiteral("the recording does not say which serial settings "
                                                 "were used; these are the usual ones."));
        return;
    }
    doubt(Doubt::About::Line,
          QStringLiteral(
              "the bytes read with these settings are text, but bytes do not show parity, stop "
              "bits and flow control. Compare with the tablet's switches or manual."));
}

void Proposal::doubtLength()
{
    if (m_split.evidence == ReportSplit::Evidence::WholePress)
        doubt(Doubt::About::Template,
              QStringLiteral(
                  "there is no line end; everything sent for one press was taken for one report."));
    if (m_split.evidence == ReportSplit::Evidence::Repetition)
        doubt(Doubt::About::Template,
              QStringLiteral("there is no line end; the bytes repeat after this many characters."));
    if (m_split.mostReportsInPress > 1)
        doubt(Doubt::About::Template,
              QStringLiteral("up to %1 reports came with one press; the first was used. Set the "
                             "tablet to one report per press: without checked reading, the driver "
                             "does not read reports that arrive together.")
                  .arg(m_split.mostReportsInPress));
}

void Proposal::findResolution()
{
    if (!m_facts.distance) {
        doubt(Doubt::About::Resolution,
              QStringLiteral("no distance was given, so %1 is only a placeholder. Until it is "
                             "corrected, all lengths are wrong by the same factor.")
                  .arg(placeholderLines));
        return;
    }
    const auto estimate = estimateResolution(std::abs(m_layout.xCounts), *m_facts.distance);
    if (estimate.lines == 0) {
        doubt(Doubt::About::Resolution,
              QStringLiteral("no resolution in a description gives %1 counts in %2 cm, so %3 is "
                             "only a placeholder.")
                  .arg(m_layout.xCounts)
                  .arg(*m_facts.distance)
                  .arg(placeholderLines));
        return;
    }
    m_lines = estimate.lines;
    m_unit = estimate.unit;
    QString text = QStringLiteral("%1 counts in %2 cm are %3 lines per inch; ")
                       .arg(m_layout.xCounts)
                       .arg(*m_facts.distance)
                       .arg(estimate.measuredLines, 0, 'f', 1);
    text += estimate.isUsual ? QStringLiteral("%1 is the nearest usual resolution.")
                                   .arg(resolutionText(m_lines, m_unit))
                             : QStringLiteral("no known tablet has that resolution.");
    if (m_unit == LPI && m_lines * 10 % 254 == 0)
        text += QStringLiteral(" %1 LPMM is just as near: the two differ by 0.0125 %.")
                    .arg(m_lines * 10 / 254);
    doubt(Doubt::About::Resolution, text);
    doubtEvenAxes();
}

void Proposal::doubtEvenAxes()
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
void Proposal::completeCodes()
{
    const int pressed = m_layout.codes.size();
    const int length = m_layout.codes.first().size();
    QStringList unknown;
    for (int button = 0; button < std::max(pressed, fewButtons); ++button) {
        const bool isKnown = button < pressed && !m_codes.contains(m_layout.codes.at(button));
        m_codes.append(isKnown ? m_layout.codes.at(button)
                               : placeholder(m_codes + m_layout.codes, length));
        if (!isKnown)
            unknown << QString::number(button + 1);
    }
    if (!unknown.isEmpty())
        doubt(Doubt::About::Buttons,
              QStringLiteral("the codes of these buttons are not known: %1. In their place are "
                             "characters that no button sends.")
                  .arg(unknown.join(QStringLiteral(", "))));
    if (pressed > fewButtons && pressed < PressProtocol::maximumButtons)
        doubt(Doubt::About::Buttons,
              QStringLiteral("%1 buttons were pressed; the codes of any others are not known.")
                  .arg(pressed));
    if (pressed > fewButtons)
        doubt(Doubt::About::Buttons,
              QStringLiteral("with more than four buttons, the first one has the number 0, which "
                             "is also the number of an unknown code."));
}

QString Proposal::comments(Doubt::About about) const
{
    QString text;
    for (const Doubt& doubt : m_doubts) {
        if (doubt.about == about)
            text += QStringLiteral("  <!-- Not sure: %1 -->\n").arg(commentText(doubt.text));
    }
    return text;
}

QString Proposal::headText() const
{
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<!--\n"
               "Proposed by \"digitizer describe\" from %1 presses of %2 buttons.\n"
               "\n"
               "Example report: %3\n"
               "\n"
               "Comments marked \"Not sure\" say what to check in the element below them.\n"
               "-->\n"
               "<digitizer name=\"%4\" support=\"untested\">\n")
        .arg(m_split.reports.size())
        .arg(m_layout.codes.size())
        .arg(commentText(printable(m_split.reports.first())), m_facts.name.toHtmlEscaped());
}

QString Proposal::serialText() const
{
    const QStringList texts = lineSettingTexts(m_facts.line);
    return QStringLiteral("  <ioPort>\n"
                          "    <serial baudrate=\"%1\" databit=\"%2\" parity=\"%3\" "
                          "stopbit=\"%4\" flowctrl=\"%5\"/>\n"
                          "  </ioPort>\n")
        .arg(texts.at(0), texts.at(1), texts.at(2), texts.at(3), texts.at(4));
}

QString Proposal::buttonsText() const
{
    QString text = QStringLiteral("  <buttons count=\"%1\" length=\"%2\">\n")
                       .arg(m_codes.size())
                       .arg(m_codes.first().size());
    for (const QByteArray& code : m_codes)
        text += QStringLiteral("    <button>%1</button>\n")
                    .arg(QString::fromLatin1(code).toHtmlEscaped());
    return text + QStringLiteral("  </buttons>\n");
}

QString Proposal::text() const
{
    return headText() + comments(Doubt::About::Line) + serialText() +
           comments(Doubt::About::Resolution) +
           QStringLiteral("  <resolution unit=\"%1\">%2</resolution>\n")
               .arg(QLatin1String(m_unit == LPI ? "LPI" : "LPMM"), QString::number(m_lines)) +
           comments(Doubt::About::Template) +
           QStringLiteral("  <reportFormat length=\"%1\">%2</reportFormat>\n")
               .arg(QString::number(m_layout.roles.size()), QString::fromLatin1(m_layout.roles)) +
           comments(Doubt::About::Buttons) + buttonsText() + QStringLiteral("</digitizer>\n");
}

} // namespace

QString proposeDescription(const ReportSplit& split, const FoundLayout& layout,
                           const TabletFacts& facts)
{
    return Proposal(split, layout, facts).text();
}

} // namespace ReferenceHost
