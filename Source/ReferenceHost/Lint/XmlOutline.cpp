// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/XmlOutline.h"

#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"

#include <QDomDocument>

#include <algorithm>

namespace ReferenceHost {

namespace {

using MavSystem::BoundedXmlReader;

/// What the document parser does not tell of an element: where it and the pieces of its text are.
struct Place
{
    int offset = 0;
    QVector<int> textOffsets;
};

int skipSpace(const QString& source, int offset)
{
    while (offset < source.size() && source.at(offset).isSpace())
        ++offset;
    return offset;
}

int skipName(const QString& source, int offset)
{
    const auto ends = [](QChar character) {
        return character.isSpace() || character == QLatin1Char('=') ||
               character == QLatin1Char('/') || character == QLatin1Char('>');
    };
    while (offset < source.size() && !ends(source.at(offset)))
        ++offset;
    return offset;
}

// Names and values from the start tag itself. Stops at what is not an attribute, so a tag that is
// broken or that an entity brought gives those before it, or none.
QVector<XmlAttribute> attributesAt(const QString& source, int tag)
{
    QVector<XmlAttribute> attributes;
    int offset = skipSpace(source, skipName(source, tag + 1));
    while (offset < source.size()) {
        const int nameEnd = skipName(source, offset);
        const int quote = skipSpace(source, skipSpace(source, nameEnd) + 1);
        if (nameEnd == offset || quote >= source.size())
            break;
        const int end = source.indexOf(source.at(quote), quote + 1);
        if (end < 0)
            break;
        attributes.append({source.mid(offset, nameEnd - offset), QString(), offset});
        offset = skipSpace(source, end + 1);
    }
    return attributes;
}

// A carriage return stays with the document parser, which the driver's values come from.
void appendTextOffsets(const QString& source, int begin, int end, QVector<int>& offsets)
{
    const QString literal = QStringLiteral("<![CDATA[");
    if (source.midRef(begin, literal.size()) == literal) {
        begin += literal.size();
        end -= 3;
        while (begin < end)
            offsets.append(begin++);
    }
    while (begin < end) {
        offsets.append(begin);
        const int reference =
            source.at(begin) == QLatin1Char('&') ? source.indexOf(QLatin1Char(';'), begin) : begin;
        begin = std::max(reference, begin) + 1;
    }
}

int beginOfTag(const BoundedXmlReader& reader)
{
    return skipSpace(reader.text(), reader.tokenBegin());
}

/// Notes the places of all elements, in document order.
class PlaceFinder
{
public:
    explicit PlaceFinder(BoundedXmlReader& reader) : m_reader(reader)
    {
        while (m_reader.readNext())
            note();
    }

    const QVector<Place>& places() const { return m_places; }

private:
    void note()
    {
        const QXmlStreamReader& token = m_reader.token();
        if (token.isStartElement()) {
            m_open.append(m_places.size());
            m_places.append(Place{beginOfTag(m_reader), {}});
        } else if (token.isEndElement()) {
            m_open.removeLast();
        } else if (token.isCharacters() && !m_open.isEmpty() && !isDropped(token)) {
            appendTextOffsets(m_reader.text(), m_reader.tokenBegin(), m_reader.tokenEnd(),
                              m_places[m_open.last()].textOffsets);
        }
    }

    // The document parser drops a text of blanks between two tags.
    static bool isDropped(const QXmlStreamReader& token)
    {
        return !token.isCDATA() && token.text().trimmed().isEmpty();
    }

    BoundedXmlReader& m_reader;
    QVector<Place> m_places;
    QVector<int> m_open;
};

/// Puts the document parser's values and the places together.
class OutlineBuilder
{
public:
    OutlineBuilder(XmlOutline& outline, const QVector<Place>& places)
        : m_outline(outline), m_places(places)
    {}

    XmlElement build(const QDomElement& dom)
    {
        XmlElement element;
        element.name = dom.tagName();
        const Place place = m_places.value(m_next++);
        element.offset = place.offset;
        element.attributes = attributes(dom, place.offset);
        for (QDomNode node = dom.firstChild(); !node.isNull(); node = node.nextSibling())
            addChild(element, node);
        element.textOffsets =
            place.textOffsets.mid(0, place.textOffsets.size() == element.text.size() ? -1 : 1);
        return element;
    }

private:
    QVector<XmlAttribute> attributes(const QDomElement& dom, int offset) const
    {
        QVector<XmlAttribute> attributes = attributesAt(m_outline.source, offset);
        if (attributes.size() != dom.attributes().size()) {
            attributes.clear();
            for (int index = 0; index < dom.attributes().size(); ++index)
                attributes.append({dom.attributes().item(index).nodeName(), QString(), offset});
        }
        for (XmlAttribute& attribute : attributes)
            attribute.value = dom.attribute(attribute.name);
        return attributes;
    }

    void addChild(XmlElement& element, const QDomNode& node)
    {
        if (node.isElement())
            element.children.append(build(node.toElement()));
        else if (node.isText())
            element.text += node.nodeValue();
        else if (node.isEntityReference())
            m_outline.problems.append({node.nodeName(), element.offset});
    }

    XmlOutline& m_outline;
    const QVector<Place>& m_places;
    int m_next = 0;
};

int offsetOfSecondOfName(const QVector<XmlAttribute>& attributes, int otherwise)
{
    for (int index = 1; index < attributes.size(); ++index) {
        for (int earlier = 0; earlier < index; ++earlier) {
            if (attributes.at(earlier).name == attributes.at(index).name)
                return attributes.at(index).offset;
        }
    }
    return otherwise;
}

// The reader stops where it notices. A reader of its message looks for the tag or the entity.
XmlProblem problemOf(const BoundedXmlReader& reader)
{
    const QString& source = reader.text();
    int offset = reader.problemOffset();
    const QChar last = offset < source.size() ? source.at(offset) : QChar();
    if (last == QLatin1Char(';'))
        offset = std::max(source.lastIndexOf(QLatin1Char('&'), offset), 0);
    else if (last == QLatin1Char('>'))
        offset = offsetOfSecondOfName(attributesAt(source, beginOfTag(reader)),
                                      std::min(beginOfTag(reader), offset));
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
    const PlaceFinder finder(reader);
    XmlOutline outline;
    outline.source = reader.text();
    if (reader.hasProblem()) {
        outline.problems.append(problemOf(reader));
        return outline;
    }
    QDomDocument document;
    QString message;
    int line = 0;
    if (document.setContent(reader.text(), false, &message, &line))
        outline.root = OutlineBuilder(outline, finder.places()).build(document.documentElement());
    else
        outline.problems.append({QStringLiteral("%1 in line %2").arg(message).arg(line)});
    return outline;
}

} // namespace ReferenceHost
