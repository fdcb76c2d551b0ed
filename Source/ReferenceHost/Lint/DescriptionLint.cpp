// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/DescriptionLint.h"

#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"
#include "ReferenceHost/Lint/ButtonsLint.h"
#include "ReferenceHost/Lint/LintFindings.h"
#include "ReferenceHost/Lint/StructureLint.h"
#include "ReferenceHost/Lint/TemplateLint.h"

namespace ReferenceHost {

using namespace MavSystem;

namespace {

void addProblems(const XmlOutline& outline, LintFindings& findings)
{
    for (const XmlProblem& problem : outline.problems)
        findings.error(problem.offset,
                       (outline.root
                            ? QStringLiteral("the entity \"%1\" stands for text of another "
                                             "file, which is not read")
                            : QStringLiteral("cannot be read as XML: %1"))
                           .arg(printable(problem.text)));
}

void lintName(const XmlAttribute& name, const QMap<QString, QString>& otherNames,
              LintFindings& findings)
{
    if (name.value.isEmpty())
        findings.error(name.offset,
                       QStringLiteral("the name is empty, but a driver is selected by its name"));
    else if (otherNames.contains(name.value))
        findings.error(name.offset, QStringLiteral("the name %1 is already used by %2")
                                        .arg(quoted(name.value), otherNames.value(name.value)));
}

void lintBeep(const XmlElement& beepString, LintFindings& findings)
{
    for (const XmlElement& character : beepString.childrenNamed(QStringLiteral("character")))
        findings.number(QStringLiteral("the character of the beep"), character.text,
                        character.textOffset(), {0, 255});
}

void lintContent(const XmlElement& root, LintFindings& findings)
{
    if (const XmlElement* resolution = root.child(QStringLiteral("resolution")))
        findings.number(QStringLiteral("the resolution"), resolution->text,
                        resolution->textOffset(), {1, Resolution::mostLines});
    int positions = 0;
    if (const XmlElement* reportFormat = root.child(QStringLiteral("reportFormat")))
        positions = lintTemplate(*reportFormat, findings);
    if (const XmlElement* buttons = root.child(QStringLiteral("buttons")))
        lintButtons(*buttons, positions, findings);
    if (const XmlElement* beepString = root.child(QStringLiteral("beepString")))
        lintBeep(*beepString, findings);
}

void lintRoot(const XmlElement& root, const QMap<QString, QString>& otherNames,
              LintFindings& findings)
{
    DescriptionKind kind;
    kind.isPen =
        !root.child(QStringLiteral("ioPort")) && !root.child(QStringLiteral("reportFormat"));
    if (const XmlAttribute* name = root.attribute(QStringLiteral("name"))) {
        kind.hasOwnLayout = LectraE92::isName(name->value);
        lintName(*name, otherNames, findings);
    }
    lintStructure(root, kind, findings);
    lintContent(root, findings);
}

} // namespace

QVector<LintFinding> lintDescription(const QByteArray& content,
                                     const QMap<QString, QString>& otherNames)
{
    const XmlOutline outline = xmlOutline(content);
    LintFindings findings(outline);
    addProblems(outline, findings);
    if (outline.root)
        lintRoot(*outline.root, otherNames, findings);
    return findings.sorted();
}

} // namespace ReferenceHost
