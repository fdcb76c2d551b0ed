// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/LintFindings.h"

#include <algorithm>
#include <tuple>

namespace ReferenceHost {

QString printable(const QString& text)
{
    QString line;
    for (const QChar character : text)
        line +=
            character.isPrint() || character.isSurrogate()
                ? QString(character)
                : QStringLiteral("\\u%1").arg(int(character.unicode()), 4, 16, QLatin1Char('0'));
    return line;
}

QString quoted(const QString& text)
{
    constexpr int shown = 40;
    return QStringLiteral("\"%1\"%2")
        .arg(printable(text.left(shown)), QLatin1String(text.size() > shown ? "..." : ""));
}

void LintFindings::add(int offset, LintFinding::Severity severity, const QString& message)
{
    m_findings.append({m_outline.position(offset), severity, message});
}

std::optional<int> LintFindings::number(const QString& what, const QString& text, int offset,
                                        Range range)
{
    bool isNumber = false;
    const qlonglong value = text.toLongLong(&isNumber);
    if (isNumber && value >= range.minimum && value <= range.maximum)
        return int(value);
    error(offset, QStringLiteral("%1 is %2, but must be a whole number from %3 to %4")
                      .arg(what, quoted(text), QString::number(range.minimum),
                           QString::number(range.maximum)));
    return std::nullopt;
}

std::optional<int> LintFindings::numberOf(const XmlElement& element, const QString& attribute,
                                          Range range)
{
    const XmlAttribute* present = element.attribute(attribute);
    if (!present)
        return std::nullopt;
    return number(QStringLiteral("\"%1\" of \"%2\"").arg(attribute, element.name), present->value,
                  present->offset, range);
}

QVector<LintFinding> LintFindings::sorted() const
{
    QVector<LintFinding> sorted = m_findings;
    std::stable_sort(sorted.begin(), sorted.end(), [](const auto& one, const auto& other) {
        return std::tie(one.position.line, one.position.column) <
               std::tie(other.position.line, other.position.column);
    });
    return sorted;
}

} // namespace ReferenceHost
