// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"

#include "DigitizerGeneric/Digitizer/XmlMarkup.h"

#include <QTextCodec>
#include <QTextDecoder>

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

// Byte by byte, so that an error stands behind what decodes. The last character may be incomplete.
QString decodableText(const QTextCodec& codec, const QByteArray& content)
{
    QTextDecoder decoder(&codec);
    QString text;
    for (const char byte : content) {
        const QString decoded = decoder.toUnicode(&byte, 1);
        if (decoder.hasFailure())
            break;
        text += decoded;
    }
    return text;
}

Refusal decode(const QByteArray& content, QString& text)
{
    const QTextCodec* codec = codecOf(content);
    QTextCodec::ConverterState state;
    text = codec->toUnicode(content.constData(), content.size(), &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return {};
    text = decodableText(*codec, content);
    return {QStringLiteral("bytes that are not %1").arg(QLatin1String(codec->name())), text.size()};
}

// The reader compares each attribute of an element with all others, before it hands out any. No
// regular expression finds them in a text with half a surrogate pair.
Refusal refuseAttributes(const QString& markup)
{
    int attributes = 0;
    QChar before; // the last one that is no blank
    for (int offset = 0; offset < markup.size(); ++offset) {
        const QChar character = markup.at(offset);
        if (character == QLatin1Char('<'))
            attributes = 0;
        else if (before == QLatin1Char('=') && isQuote(character))
            ++attributes;
        if (attributes > DescriptionLimits::attributesOfOneElement)
            return {QStringLiteral("more than %1 attributes")
                        .arg(DescriptionLimits::attributesOfOneElement),
                    offset};
        if (!character.isSpace())
            before = character;
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

QDomDocument BoundedXmlReader::document()
{
    while (readNext()) {
    }
    QDomDocument document;
    QString message;
    int line = 0;
    if (hasProblem() || document.setContent(m_text, false, &message, &line))
        return document;
    m_refusal = QStringLiteral("%1 in line %2").arg(message).arg(line);
    m_refusalOffset = 0;
    return {};
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
