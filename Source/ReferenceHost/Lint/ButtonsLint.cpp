// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/ButtonsLint.h"

#include "DigitizerGeneric/Digitizer/DescriptionParsing.h"
#include "DigitizerGeneric/Digitizer/ReportLayout.h"
#include "ReferenceHost/CommandLine/Counted.h"

#include <QMap>

#include <algorithm>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

void checkButtonCount(const XmlElement& buttons, int count, int present, LintFindings& findings)
{
    const XmlAttribute& attribute = *buttons.attribute(QStringLiteral("count"));
    // The text decides how buttons are numbered, so that "04" is not a cursor of four buttons.
    if (attribute.value != QLatin1String("4") && count != 16)
        findings.warn(attribute.offset,
                      QStringLiteral("\"count\" of \"buttons\" is neither 4 nor 16"),
                      quoted(attribute.value), QStringLiteral("4, 16"));
    const QString found = counted(present, "button");
    if (present > count)
        findings.error(buttons.childrenNamed(QStringLiteral("button")).at(count).offset,
                       QStringLiteral("more buttons than \"count\"; the rest are ignored"), found,
                       QString::number(count));
    else if (present < count)
        findings.error(attribute.offset, QStringLiteral("fewer buttons than \"count\""), found,
                       QString::number(count));
}

void checkCodeLength(const XmlElement& buttons, int length, int positions, LintFindings& findings)
{
    if (length == positions)
        return;
    const auto reachesPastReport = [&](const XmlElement& code) {
        return !code.text.mid(positions, length - positions).trimmed().isEmpty();
    };
    const QVector<XmlElement> codes = buttons.childrenNamed(QStringLiteral("button"));
    const bool neverMatch =
        length > positions && std::any_of(codes.begin(), codes.end(), reachesPastReport);
    findings.add(buttons.attribute(QStringLiteral("length"))->offset,
                 neverMatch ? LintFinding::Error : LintFinding::Warning,
                 neverMatch ? QStringLiteral("\"length\" of \"buttons\" is more than the template "
                                             "has \"B\", so no report can match")
                            : QStringLiteral(
                                  "\"length\" of \"buttons\" is less than the template has \"B\""),
                 QString::number(length), QStringLiteral("%1").arg(positions));
}

void checkCode(const XmlElement& button, std::optional<int> length, LintFindings& findings)
{
    const QString& text = button.text;
    const int characters = text.size();
    for (int index = 0; index < std::min(characters, ReportLayout::codeCharacters); ++index) {
        if (text.at(index).unicode() > 0xff)
            findings.error(button.textOffsetAt(index),
                           QStringLiteral("character in a code is not Latin-1"),
                           quoted(text.at(index)), QStringLiteral("characters up to U+00FF"));
    }
    const QString accepted =
        length ? counted(*length, "character") : QStringLiteral("1 to 3 characters");
    if (characters > ReportLayout::codeCharacters)
        findings.error(button.textOffsetAt(ReportLayout::codeCharacters),
                       QStringLiteral("code is cut to three characters"), quoted(text), accepted);
    else if (length && characters > *length)
        findings.warn(button.textOffsetAt(*length),
                      QStringLiteral("end of the code is not compared"), quoted(text), accepted);
    else if (length && characters < *length)
        findings.warn(button.textOffset(),
                      QStringLiteral("code is short and is padded with blanks"), quoted(text),
                      accepted);
}

void checkEqualCodes(const QVector<XmlElement>& buttons, int length, LintFindings& findings)
{
    QMap<QString, int> lines;
    for (const XmlElement& button : buttons) {
        const QString significant = button.text.leftJustified(length).left(length);
        if (lines.contains(significant))
            findings.error(
                button.textOffset(), QStringLiteral("code is that of an earlier button"),
                quoted(significant),
                QStringLiteral("a code other than that in line %1").arg(lines.value(significant)));
        else
            lines.insert(significant, findings.lineAt(button.offset));
    }
}

} // namespace

void lintButtons(const XmlElement& buttons, int positions, LintFindings& findings)
{
    QVector<XmlElement> codes = buttons.childrenNamed(QStringLiteral("button"));
    if (const auto count =
            findings.numberOf(buttons, QStringLiteral("count"), {1, maximumButtonCount})) {
        checkButtonCount(buttons, *count, codes.size(), findings);
        codes = codes.mid(0, *count);
    }
    const auto length =
        findings.numberOf(buttons, QStringLiteral("length"), {1, ReportLayout::codeCharacters});
    for (const XmlElement& code : codes)
        checkCode(code, length, findings);
    if (!length)
        return;
    checkEqualCodes(codes, *length, findings);
    if (positions > 0)
        checkCodeLength(buttons, *length, positions, findings);
}

} // namespace ReferenceHost
