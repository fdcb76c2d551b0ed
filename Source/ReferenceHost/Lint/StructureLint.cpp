// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/StructureLint.h"

#include "ReferenceHost/CommandLine/NearestNames.h"
#include "ReferenceHost/Lint/DescriptionKeys.h"

namespace ReferenceHost {

namespace {

QString oneOf(const QStringList& texts)
{
    return QStringLiteral("one of ") + texts.join(QStringLiteral(", "));
}

// What may be meant by an unknown name, or all that is known there.
QString inPlaceOf(const QString& unknown, const QStringList& names)
{
    const QString near = suggestion(unknown, names);
    if (!near.isEmpty() || names.isEmpty())
        return near;
    return QStringLiteral("; known here: ") + names.join(QStringLiteral(", "));
}

class StructureLint
{
public:
    StructureLint(const DescriptionKind& kind, LintFindings& findings)
        : m_kind(kind), m_findings(findings)
    {}

    void checkElement(const XmlElement& element, const KnownElement& known);

private:
    void checkPresence(const XmlElement& parent, const QString& missing, Presence presence);
    void checkAttributes(const XmlElement& element, const KnownElement& known);
    void checkAttributeText(const XmlAttribute& attribute, const KnownAttribute& known);
    void checkChildren(const XmlElement& element, const KnownElement& known);
    void checkIgnoredText(const XmlElement& element, const KnownElement& known);

    const DescriptionKind& m_kind;
    LintFindings& m_findings;
};

void StructureLint::checkElement(const XmlElement& element, const KnownElement& known)
{
    checkAttributes(element, known);
    checkChildren(element, known);
    checkIgnoredText(element, known);
}

void StructureLint::checkPresence(const XmlElement& parent, const QString& missing,
                                  Presence presence)
{
    const bool isNotNeeded =
        presence == Presence::Optional || (presence == Presence::OfPort && m_kind.isPen) ||
        (presence == Presence::OfReport && m_kind.hasOwnLayout) ||
        (presence == Presence::OfTemplate && (m_kind.hasOwnLayout || m_kind.isPen));
    if (isNotNeeded)
        return;
    m_findings.add(parent.offset,
                   presence == Presence::Advisable ? LintFinding::Warning : LintFinding::Error,
                   QStringLiteral("%1 has no %2").arg(quoted(parent.name), missing));
}

void StructureLint::checkAttributes(const XmlElement& element, const KnownElement& known)
{
    QStringList names;
    for (const KnownAttribute& attribute : known.attributes) {
        names << attribute.name;
        if (const XmlAttribute* present = element.attribute(attribute.name))
            checkAttributeText(*present, attribute);
        else
            checkPresence(element,
                          QStringLiteral("attribute \"%1\"").arg(attribute.name) +
                              (attribute.texts.isEmpty()
                                   ? QString()
                                   : QStringLiteral(" (%1)").arg(oneOf(attribute.texts))),
                          attribute.presence);
    }
    for (const XmlAttribute& attribute : element.attributes) {
        if (!names.contains(attribute.name))
            m_findings.error(attribute.offset,
                             QStringLiteral("unknown attribute %1 of %2%3")
                                 .arg(quoted(attribute.name), quoted(element.name),
                                      inPlaceOf(attribute.name, names)));
    }
}

void StructureLint::checkAttributeText(const XmlAttribute& attribute, const KnownAttribute& known)
{
    if (!known.texts.isEmpty() && !known.texts.contains(attribute.value))
        m_findings.add(attribute.offset, known.ofOtherText,
                       QStringLiteral("\"%1\" is %2, which is not %3")
                           .arg(attribute.name, quoted(attribute.value), oneOf(known.texts)));
}

void StructureLint::checkChildren(const XmlElement& element, const KnownElement& known)
{
    QStringList names;
    for (const KnownElement& child : known.children) {
        names << child.name;
        const QVector<XmlElement> present = element.childrenNamed(child.name);
        if (present.isEmpty())
            checkPresence(element, QStringLiteral("element \"%1\"").arg(child.name),
                          child.presence);
        for (int index = 0; index < present.size(); ++index) {
            if (index == 0 || child.repeats)
                checkElement(present.at(index), child);
            else
                m_findings.error(present.at(index).offset,
                                 QStringLiteral("a second \"%1\" is ignored").arg(child.name));
        }
    }
    for (const XmlElement& child : element.children) {
        if (!names.contains(child.name))
            m_findings.error(child.offset, QStringLiteral("unknown element %1 in %2%3")
                                               .arg(quoted(child.name), quoted(element.name),
                                                    inPlaceOf(child.name, names)));
    }
}

void StructureLint::checkIgnoredText(const XmlElement& element, const KnownElement& known)
{
    if (!known.hasText && !element.text.trimmed().isEmpty())
        m_findings.error(element.textOffset(),
                         QStringLiteral("the text %1 in %2 is ignored")
                             .arg(quoted(element.text.trimmed()), quoted(element.name)));
}

} // namespace

void lintStructure(const XmlElement& root, const DescriptionKind& kind, LintFindings& findings)
{
    StructureLint(kind, findings).checkElement(root, knownDescription());
}

} // namespace ReferenceHost
