// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Lint/LintFinding.h"
#include "ReferenceHost/Lint/XmlOutline.h"

#include <QString>
#include <QVector>

#include <optional>

namespace ReferenceHost {

/// Returns \a text in one line, whatever the file holds.
QString printable(const QString& text);

/// Returns the beginning of \a text in one line and in quotes.
QString quoted(const QString& text);

/// The findings in one description. Offsets are those of its outline.
class LintFindings
{
public:
    struct Range
    {
        int minimum;
        int maximum;
    };

    /// \a outline outlives this object.
    explicit LintFindings(const XmlOutline& outline) : m_outline(outline) {}

    void add(int offset, LintFinding::Severity severity, const QString& message);
    void error(int offset, const QString& message) { add(offset, LintFinding::Error, message); }
    void warn(int offset, const QString& message) { add(offset, LintFinding::Warning, message); }

    /// Returns the number in \a text, as the driver reads it. Otherwise, or outside the range, adds
    /// an error about \a what.
    std::optional<int> number(const QString& what, const QString& text, int offset, Range range);

    /// The same for an attribute. One that is missing is no error here.
    std::optional<int> numberOf(const XmlElement& element, const QString& attribute, Range range);

    /// Returns the number of a line of the file.
    int lineAt(int offset) const { return m_outline.position(offset).line; }

    /// Returns the findings in the order of the file.
    QVector<LintFinding> sorted() const;

private:
    const XmlOutline& m_outline;
    QVector<LintFinding> m_findings;
};

} // namespace ReferenceHost
