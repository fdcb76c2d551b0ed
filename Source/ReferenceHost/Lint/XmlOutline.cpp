// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/XmlOutline.h"

#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"

#include <QDomDocument>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace ReferenceHost {

namespace {

using MavSystem::BoundedXmlReader;

/// What the document parser does not tell of an element: where it, its attributes and the
/// characters of its text are.
struct Place
{
    int offset = 0;
    QHash<QString, int> attributes;
    QVector<int> textOffsets;
};

// The reader counts the blanks in front of the root element to its tag.
int beginOfTag(const BoundedXmlReader& reader)
{
    int offset = reader.tokenBegin();
    while (offset < reader.text().size() && reader.text().at(offset).isSpace())
        ++offset;
    return offset;
}

// The names and the offsets of the attributes in the tag that begins there. There are none if an
// entity brought the tag.
QVector<QPair<QString, int>> attributesIn(const QString& source, int begin, int end)
{
    static const QRegularExpression attribute(
        QStringLiteral(R"(\G(?:<[^\s=/>]+)?\s+([^\s=/>]+)\s*=\s*(?:"[^"]*"|'[^']*'))"));
    QVector<QPair<QString, int>> attributes;
    auto matches = attribute.globalMatch(source.midRef(begin, std::max(end - begin, 0)));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        attributes.append({match.captured(1), begin + match.capturedStart(1)});
    }
    return attributes;
}

Place placeOf(const BoundedXmlReader& reader)
{
    Place place{beginOfTag(reader), {}, {}};
    for (const auto& [name, offset] : attributesIn(reader.text(), place.offset, reader.tokenEnd()))
        place.attributes.insert(name, offset);
    return place;
}

// Of a character reference, only the beginning. A reference of an entity may give several
// characters; see XmlElement::textOffsets.
void appendTextOffsets(const BoundedXmlReader& reader, QVector<int>& offsets)
{
    const QString& source = reader.text();
    const bool isLiteral = reader.token().isCDATA();
    const int begin = reader.tokenBegin() + (isLiteral ? int(qstrlen("<![CDATA[")) : 0);
    const int end = reader.tokenEnd() - (isLiteral ? int(qstrlen("]]>")) : 0);
    for (int offset = begin; offset < end; ++offset) {
        offsets.append(offset);
        if (!isLiteral && source.at(offset) == QLatin1Char('&'))
            offset = std::max(offset, source.indexOf(QLatin1Char(';'), offset));
    }
}

// The document parser drops a text of blanks between two tags.
bool isDropped(const QXmlStreamReader& token)
{
    return !token.isCDATA() && token.text().trimmed().isEmpty();
}

// Reads the document to its end, or to the first problem, and returns the places of its elements.
QVector<Place> readPlaces(BoundedXmlReader& reader)
{
    QVector<Place> places;
    QVector<int> open;
    while (reader.readNext()) {
        const QXmlStreamReader& token = reader.token();
        if (token.isStartElement()) {
            open.append(places.size());
            places.append(placeOf(reader));
        } else if (token.isEndElement()) {
            open.removeLast();
        } else if (token.isCharacters() && !open.isEmpty() && !isDropped(token)) {
            appendTextOffsets(reader, places[open.last()].textOffsets);
        }
    }
    return places;
}

/// Puts the document parser's values, which the driver reads, and the places together.
class OutlineBuilder
{
public:
    OutlineBuilder(const QVector<Place>& places, QVector<XmlProblem>& problems)
        : m_places(places), m_problems(problems)
    {}

    XmlElement build(const QDomElement& dom)
    {
        const Place place = m_places.value(m_next++);
        XmlElement element{dom.tagName(), place.offset, {}, {}, place.textOffsets, {}};
        for (int index = 0; index < dom.attributes().size(); ++index) {
            const QDomNode node = dom.attributes().item(index);
            element.attributes.append({node.nodeName(), node.nodeValue(),
                                       place.attributes.value(node.nodeName(), place.offset)});
        }
        for (QDomNode node = dom.firstChild(); !node.isNull(); node = node.nextSibling())
            addChild(element, node);
        if (element.textOffsets.size() != element.text.size())
            element.textOffsets = element.textOffsets.mid(0, 1);
        return element;
    }

private:
    void addChild(XmlElement& element, const QDomNode& node)
    {
        if (node.isElement())
            element.children.append(build(node.toElement()));
        else if (node.isText())
            element.text += node.nodeValue();
        else if (node.isEntityReference())
            m_problems.append({node.nodeName(), element.offset});
    }

    const QVector<Place>& m_places;
    QVector<XmlProblem>& m_problems;
    int m_next = 0;
};

int offsetOfSecondOfName(const BoundedXmlReader& reader, int otherwise)
{
    QSet<QString> names;
    for (const auto& [name, offset] :
         attributesIn(reader.text(), beginOfTag(reader), reader.problemOffset())) {
        if (names.contains(name))
            return offset;
        names.insert(name);
    }
    return otherwise;
}

// The reader stops where it notices. A reader of its message looks for the tag or the entity.
XmlProblem problemOf(const BoundedXmlReader& reader)
{
    int offset = reader.problemOffset();
    const QStringRef noticed = reader.text().midRef(offset, 1);
    if (noticed == QLatin1String(";"))
        offset = std::max(reader.text().lastIndexOf(QLatin1Char('&'), offset), 0);
    else if (noticed == QLatin1String(">"))
        offset = offsetOfSecondOfName(reader, std::min(beginOfTag(reader), offset));
    QString text = reader.problem();
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return {text, offset};
}

} // namespace

const XmlElement* XmlElement::child(const QString& childName) const
{
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const XmlElement& each) { return each.name == childName; });
    return found == children.end() ? nullptr : &*found;
}

QVector<XmlElement> XmlElement::childrenNamed(const QString& childName) const
{
    QVector<XmlElement> named;
    std::copy_if(children.begin(), children.end(), std::back_inserter(named),
                 [&](const XmlElement& each) { return each.name == childName; });
    return named;
}

const XmlAttribute* XmlElement::attribute(const QString& attributeName) const
{
    const auto found =
        std::find_if(attributes.begin(), attributes.end(),
                     [&](const XmlAttribute& each) { return each.name == attributeName; });
    return found == attributes.end() ? nullptr : &*found;
}

SourcePosition XmlOutline::position(int offset) const
{
    const QStringRef before = source.leftRef(offset);
    const int lineBegin = before.lastIndexOf(QLatin1Char('\n')) + 1;
    const auto isHalf = [](QChar character) { return character.isLowSurrogate(); };
    const auto halves = std::count_if(before.begin() + lineBegin, before.end(), isHalf);
    return {before.count(QLatin1Char('\n')) + 1, offset - lineBegin - int(halves) + 1};
}

XmlOutline xmlOutline(const QByteArray& content)
{
    BoundedXmlReader reader(content);
    const QVector<Place> places = readPlaces(reader);
    XmlOutline outline;
    outline.source = reader.text();
    const QDomDocument document = reader.document();
    if (reader.hasProblem())
        outline.problems.append(problemOf(reader));
    else
        outline.root = OutlineBuilder(places, outline.problems).build(document.documentElement());
    return outline;
}

} // namespace ReferenceHost
