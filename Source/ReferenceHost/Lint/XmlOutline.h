// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

namespace ReferenceHost {

/// The elements of a description as the driver reads them, and where each stands in the file.
/// A place in a file as editors count it: both start at 1, a tabulator is one column.
struct SourcePosition
{
    int line = 1;
    int column = 1;
};

struct XmlAttribute
{
    QString name;
    QString value;
    int offset = 0; ///< of its name
};

/// Offsets count the characters of XmlOutline::source.
struct XmlElement
{
    QString name;
    int offset = 0; ///< of its "<"
    QVector<XmlAttribute> attributes;
    QString text; ///< without that of its children
    /// One for each character of the text, or only the first when an entity that the file declares
    /// gave more than one character.
    QVector<int> textOffsets;
    QVector<XmlElement> children;

    /// Returns the first child of that name, or null.
    const XmlElement* child(const QString& childName) const;
    QVector<XmlElement> childrenNamed(const QString& childName) const;
    /// Returns the attribute of that name, or null.
    const XmlAttribute* attribute(const QString& attributeName) const;
    /// Where a character of the text is; where the element is when it has no text.
    int textOffsetAt(int index) const { return textOffsets.value(index, textOffset()); }
    int textOffset() const { return textOffsets.value(0, offset); }
};

struct XmlProblem
{
    QString text;
    int offset = 0;
};

struct XmlOutline
{
    QString source;
    std::optional<XmlElement> root; ///< nothing when the driver takes the file as not well-formed
    QVector<XmlProblem> problems;   ///< why; with a root, the entities that stand for nothing

    SourcePosition position(int offset) const;
};

/// Returns the outline of the file with that content. It has a root exactly when the driver takes
/// the file as well-formed, and the values that the driver sees.
XmlOutline xmlOutline(const QByteArray& content);

} // namespace ReferenceHost
