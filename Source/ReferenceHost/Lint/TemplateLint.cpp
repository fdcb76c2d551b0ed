// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/TemplateLint.h"

#include "DigitizerGeneric/Digitizer/ReportLayout.h"
#include "DigitizerGeneric/Digitizer/TemplateLetters.h"
#include "ReferenceHost/CommandLine/Counted.h"

#include <algorithm>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

/// A character of the template, and how many of it have a meaning.
struct Role
{
    ReportFormatValues value;
    bool needed;
    int useful;
};

constexpr int anyNumber = ReportLayout::maximumCharacters;
constexpr Role roles[] = {
    {FORMAT_X, true, anyNumber},
    {FORMAT_Y, true, anyNumber},
    {FORMAT_POINT, false, 2},
    {FORMAT_SIGN, false, 2},
    {FORMAT_BUTTON, true, ReportLayout::codeCharacters},
    {FORMAT_CR, false, anyNumber},
    {FORMAT_LINE_FEED, false, anyNumber},
    {FORMAT_UNUSED, false, anyNumber},
};

QString roleLetters()
{
    QString letters;
    for (const Role& role : roles)
        letters += TemplateLetters::letterOf(role.value);
    return letters;
}

void checkRole(const XmlElement& reportFormat, const QString& read, const Role& role,
               LintFindings& findings)
{
    const QChar letter = TemplateLetters::letterOf(role.value);
    const int present = read.count(letter);
    if (present == 0 && role.needed)
        findings.error(reportFormat.textOffset(),
                       QStringLiteral("the template %1 has no \"%2\"").arg(quoted(read), letter));
    if (present <= role.useful)
        return;
    int surplus = -1;
    for (int count = 0; count <= role.useful; ++count)
        surplus = read.indexOf(letter, surplus + 1);
    findings.warn(reportFormat.textOffsetAt(surplus),
                  QStringLiteral("the template has %1 \"%2\", but at most %3 have a meaning")
                      .arg(QString::number(present), letter, QString::number(role.useful)));
}

void checkTemplateCharacters(const XmlElement& reportFormat, int length, LintFindings& findings)
{
    const QString letters = roleLetters();
    const QString read = reportFormat.text.left(length);
    bool isBroken = false;
    for (int index = 0; index < length; ++index) {
        const QChar character = read.at(index);
        // The first of each kind: a template in lower case has as many as characters.
        if (letters.contains(character) || read.indexOf(character) < index)
            continue;
        isBroken = true;
        findings.error(reportFormat.textOffsetAt(index),
                       QStringLiteral("character %1 of the template is %2, but must be one of %3")
                           .arg(QString::number(index + 1), quoted(character), letters));
    }
    for (const Role& role : roles) {
        if (!isBroken)
            checkRole(reportFormat, read, role, findings);
    }
}

} // namespace

int lintTemplate(const XmlElement& reportFormat, LintFindings& findings)
{
    const std::optional<int> length = findings.numberOf(reportFormat, QStringLiteral("length"),
                                                        {1, ReportLayout::maximumCharacters});
    const int present = reportFormat.text.size();
    const int read = std::min(length.value_or(present), present);
    checkTemplateCharacters(reportFormat, read, findings);
    if (length && present != *length)
        findings.error(present < *length ? reportFormat.textOffset()
                                         : reportFormat.textOffsetAt(read),
                       QStringLiteral("the template has %1, but \"length\" is %2")
                           .arg(counted(present, "character"), QString::number(*length)));
    const QString letters = reportFormat.text.left(read);
    return std::min(letters.count(TemplateLetters::letterOf(FORMAT_BUTTON)),
                    ReportLayout::codeCharacters);
}

} // namespace ReferenceHost
