// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QString>
#include <QXmlStreamReader>

namespace MavSystem {

/// Limits beyond which a description counts as not well-formed. A real one has about 1,500 bytes
/// and four levels. The limits stop files that would exhaust the stack or the memory, or take too
/// long.
namespace DescriptionLimits {
inline constexpr qint64 bytes = 1024 * 1024;
inline constexpr int nesting = 100;
inline constexpr qint64 expandedCharacters = 1024 * 1024;
inline constexpr int attributesOfOneElement = 1000;
inline constexpr int charactersWithDeclarations = 16 * 1024;
} // namespace DescriptionLimits

/// Reads the XML of a description token by token and stops at the limits. The document parser
/// recurses and expands entities without limit and accepts malformed XML, so it only gets what this
/// class has read to the end without a problem.
class BoundedXmlReader
{
public:
    explicit BoundedXmlReader(const QByteArray& content);

    /// Reads one token. Returns false at the end of the document and from the first problem on.
    bool readNext();

    /// Reads what is left, and returns the document; null when there is a problem.
    QDomDocument document();

    /// The token that was read last.
    const QXmlStreamReader& token() const { return m_reader; }

    /// Where it begins and ends, as positions in text(); it may include blanks in front of it.
    int tokenBegin() const { return m_tokenBegin; }
    int tokenEnd() const { return m_tokenEnd; }

    /// The document as characters, without a byte order mark; as far as its bytes can be decoded.
    const QString& text() const { return m_text; }

    bool hasProblem() const { return !m_refusal.isEmpty() || m_reader.hasError(); }

    /// What is wrong with the document as far as it has been read; empty when nothing is.
    QString problem() const;

    /// Where the problem is, as a position in text().
    int problemOffset() const;

private:
    void placeToken();
    void countToken();

    QString m_text;
    QXmlStreamReader m_reader;
    int m_nesting = 0;
    qint64 m_expandedCharacters = 0;
    int m_tokenBegin = 0;
    int m_tokenEnd = 0;
    QString m_refusal; ///< what this reader rejects, in addition to the errors of m_reader
    int m_refusalOffset = 0;
};

} // namespace MavSystem
