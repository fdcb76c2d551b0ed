// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"

#include "DigitizerGeneric/Digitizer/XmlMarkup.h"

#include <QTextCodec>

#include <algorithm>

namespace MavSystem {

namespace {

struct Refusal
{
    QString reason; // empty: none
    int offset = 0;
};

// An encoding that is not known stops the declaration here and the document later.
const QTextCodec* codecOf(const QByteArray& content)
{
    QXmlStreamReader declaration(content.left(1024));
    declaration.readNext();
    const QByteArray declared = declaration.documentEncoding().toString().toLatin1();
    QTextCodec* codec = QTextCodec::codecForName(declared);
    return QTextCodec::codecForUtfText(content, codec ? codec : QTextCodec::codecForName("UTF-8"));
}

// The last character may still be incomplete.
bool decodesSoFar(const QTextCodec& codec, const QByteArray& content, int bytes)
{
    QTextCodec::ConverterState state;
    codec.toUnicode(content.constData(), bytes, &state);
    return state.invalidChars == 0;
}

// Halving finds the end of what decodes, since no further byte mends an earlier one.
int decodableBytes(const QTextCodec& codec, const QByteArray& content)
{
    int good = 0;
    int bad = content.size() + 1;
    while (bad - good > 1) {
        const int middle = good + (bad - good) / 2;
        (decodesSoFar(codec, content, middle) ? good : bad) = middle;
    }
    return good;
}

Refusal decode(const QByteArray& content, QString& text)
{
    const QTextCodec* codec = codecOf(content);
    QTextCodec::ConverterState state;
    text = codec->toUnicode(content.constData(), content.size(), &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return {};
    QTextCodec::ConverterState decodable;
    text = codec->toUnicode(content.constData(), decodableBytes(*codec, content), &decodable);
    return {QStringLiteral("bytes that are not %1").arg(QLatin1String(codec->name())), text.size()};
}

// The reader compares each attribute of an element with all others, before it hands out any.
Refusal refuseAttributes(const QString& markup)
{
    int attributes = 0;
    bool equals = false;
    for (int offset = 0; offset < markup.size(); ++offset) {
        const QChar character = markup.at(offset);
        if (character == QLatin1Char('<'))
            attributes = 0;
        const bool quote = character == QLatin1Char('"') || character == QLatin1Char('\'');
        if (equals && quote && ++attributes > DescriptionLimits::attributesOfOneElement)
            return {QStringLiteral("more than %1 attributes")
                        .arg(DescriptionLimits::attributesOfOneElement),
                    offset};
        equals = character == QLatin1Char('=') || (equals && character.isSpace());
    }
    return {};
}

// The reader expands all entities of a text in one go, before anybody can count.
Refusal refuseDeclarations(const QString& markup)
{
    const QString declarations[] = {QStringLiteral("<!ENTITY"), QStringLiteral("<!ATTLIST"),
                                    QStringLiteral("<!ELEMENT")};
    if (markup.size() <= DescriptionLimits::charactersWithDeclarations)
        return {};
    for (const QString& declaration : declarations) {
        const int offset = markup.indexOf(declaration);
        if (offset >= 0)
            return {QStringLiteral("declarations in a file of more than %1 characters")
                        .arg(DescriptionLimits::charactersWithDeclarations),
                    offset};
    }
    return {};
}

Refusal refuse(const QByteArray& content, QString& text)
{
    if (content.size() > DescriptionLimits::bytes)
        return {QStringLiteral("more than %1 bytes").arg(DescriptionLimits::bytes)};
    const Refusal undecoded = decode(content, text);
    if (!undecoded.reason.isEmpty())
        return undecoded;
    const QString markup = markupOf(text);
    const Refusal attributes = refuseAttributes(markup);
    return attributes.reason.isEmpty() ? refuseDeclarations(markup) : attributes;
}

// What a token takes when its entities are written out. Tags count as well: an entity may hold
// elements, and each costs the document parser some two hundred bytes.
qint64 writtenCharacters(const QXmlStreamReader& token)
{
    qint64 characters = token.text().size();
    if (token.isStartElement() || token.isEndElement())
        characters += token.qualifiedName().size() + 3;
    for (const QXmlStreamAttribute& attribute : token.attributes())
        characters += attribute.qualifiedName().size() + attribute.value().size() + 4;
    return characters;
}

} // namespace

BoundedXmlReader::BoundedXmlReader(const QByteArray& content)
{
    const Refusal refusal = refuse(content, m_text);
    m_refusal = refusal.reason;
    m_refusalOffset = refusal.offset;
    m_reader.setNamespaceProcessing(false);
    if (m_refusal.isEmpty())
        m_reader.addData(m_text);
}

bool BoundedXmlReader::readNext()
{
    if (hasProblem() || m_reader.atEnd())
        return false;
    m_reader.readNext();
    placeToken();
    countToken();
    return !hasProblem();
}

// The reader looks ahead: it has taken the "<" behind a text, and also the beginning of the first
// tag when there is no declaration.
void BoundedXmlReader::placeToken()
{
    const int offset = int(m_reader.characterOffset());
    const bool aheadOfText =
        m_reader.isCharacters() && offset > 0 && m_text.at(offset - 1) == QLatin1Char('<');
    const bool aheadOfTag =
        m_reader.isStartDocument() && !m_text.startsWith(QLatin1String("<?xml"));
    m_tokenBegin = m_tokenEnd;
    m_tokenEnd = aheadOfTag ? 0 : aheadOfText ? offset - 1 : offset;
}

void BoundedXmlReader::countToken()
{
    m_nesting += m_reader.isStartElement() ? 1 : m_reader.isEndElement() ? -1 : 0;
    m_expandedCharacters += writtenCharacters(m_reader);
    if (m_nesting > DescriptionLimits::nesting)
        m_refusal = QStringLiteral("elements more than %1 deep").arg(DescriptionLimits::nesting);
    else if (m_expandedCharacters > DescriptionLimits::expandedCharacters)
        m_refusal = QStringLiteral("more than %1 characters with entities expanded")
                        .arg(DescriptionLimits::expandedCharacters);
    m_refusalOffset = m_tokenBegin;
}

QString BoundedXmlReader::problem() const
{
    return m_refusal.isEmpty() ? m_reader.errorString() : m_refusal;
}

int BoundedXmlReader::problemOffset() const
{
    if (!m_refusal.isEmpty())
        return m_refusalOffset;
    // At the end of the document the reader forgets where it was; elsewhere it has read past it.
    return m_reader.error() == QXmlStreamReader::PrematureEndOfDocumentError
               ? m_text.size()
               : std::max(int(m_reader.characterOffset()) - 1, 0);
}

} // namespace MavSystem
