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
                      QStringLiteral("\"count\" of \"buttons\" is %1, but should be 4 or 16")
                          .arg(quoted(attribute.value)));
    if (present == count)
        return;
    const bool isMore = present > count;
    const QVector<XmlElement> each = buttons.childrenNamed(QStringLiteral("button"));
    findings.error(isMore ? each.at(count).offset : attribute.offset,
                   QStringLiteral("\"count\" of \"buttons\" is %1, but the number of buttons is "
                                  "%2%3")
                       .arg(QString::number(count), QString::number(present),
                            QLatin1String(isMore ? "; the rest are ignored" : "")));
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
                 QStringLiteral("\"length\" of \"buttons\" is %1, but the template has %2 \"B\"%3")
                     .arg(QString::number(length), QString::number(positions),
                          QLatin1String(neverMatch ? "; no report can match" : "")));
}

void checkCode(const XmlElement& button, std::optional<int> length, LintFindings& findings)
{
    const QString& text = button.text;
    const int characters = text.size();
    for (int index = 0; index < std::min(characters, ReportLayout::codeCharacters); ++index) {
        if (text.at(index).unicode() > 0xff)
            findings.error(
                button.textOffsetAt(index),
                QStringLiteral("a code holds %1, but only characters up to U+00FF can arrive")
                    .arg(quoted(text.at(index))));
    }
    if (characters > ReportLayout::codeCharacters)
        findings.error(button.textOffsetAt(ReportLayout::codeCharacters),
                       QStringLiteral("the code %1 is longer than %2 characters and is cut")
                           .arg(quoted(text), QString::number(ReportLayout::codeCharacters)));
    else if (length && characters > *length)
        findings.warn(
            button.textOffsetAt(*length),
            QStringLiteral("the code %1 is longer than \"length\", which is %2; the rest is "
                           "not compared")
                .arg(quoted(text), QString::number(*length)));
    else if (length && characters < *length)
        findings.warn(
            button.textOffset(),
            QStringLiteral("the code %1 is shorter than \"length\", which is %2; blanks are "
                           "added")
                .arg(quoted(text), QString::number(*length)));
}

void checkEqualCodes(const QVector<XmlElement>& buttons, int length, LintFindings& findings)
{
    QMap<QString, int> lines;
    for (const XmlElement& button : buttons) {
        const QString significant = button.text.leftJustified(length).left(length);
        if (lines.contains(significant))
            findings.error(
                button.textOffset(),
                QStringLiteral("the code %1 is already that of the button in line %2")
                    .arg(quoted(significant), QString::number(lines.value(significant))));
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
