// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/XmlMarkup.h"

#include <QStringView>

#include <algorithm>

namespace MavSystem {

namespace {

struct Section
{
    QLatin1String begin;
    QLatin1String end;
};

const Section blankSections[] = {{QLatin1String("<!--"), QLatin1String("-->")},
                                 {QLatin1String("<![CDATA["), QLatin1String("]]>")},
                                 {QLatin1String("<?"), QLatin1String("?>")}};

// The position where the section that begins at \a offset ends, in front of its last characters,
// which pass for text; or \a offset if none begins there.
int endOfSection(const QString& document, int offset)
{
    const QStringView rest = QStringView(document).mid(offset);
    for (const Section& section : blankSections) {
        if (!rest.startsWith(section.begin))
            continue;
        const int end = document.indexOf(section.end, offset + section.begin.size());
        return end == -1 ? document.size() : end;
    }
    return offset;
}

// Where one is in the markup: in a tag or declaration, and there in a literal.
class Place
{
public:
    bool isInTag() const { return m_inTag; }

    void pass(QChar character)
    {
        if (!m_quote.isNull())
            m_quote = character == m_quote ? QChar() : m_quote;
        else if (m_inTag && isQuote(character))
            m_quote = character;
        else if (character == QLatin1Char('<'))
            m_inTag = true;
        else if (character == QLatin1Char('>') || character == QLatin1Char('['))
            m_inTag = false; // "[": the declarations inside a document type begin
    }

private:
    bool m_inTag = false;
    QChar m_quote;
};

} // namespace

bool isQuote(QChar character)
{
    return character == QLatin1Char('"') || character == QLatin1Char('\'');
}

QString markupOf(QString document)
{
    QChar* const characters = document.data();
    Place place;
    for (int offset = 0; offset < document.size();) {
        const bool wasInTag = place.isInTag();
        const int end = wasInTag ? offset : endOfSection(document, offset);
        if (end == offset)
            place.pass(characters[offset]);
        const int next = std::max(end, offset + 1);
        if (!wasInTag && !place.isInTag())
            std::fill(characters + offset, characters + next, QLatin1Char(' '));
        offset = next;
    }
    return document;
}

} // namespace MavSystem
