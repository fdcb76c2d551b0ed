// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/NearestNames.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>
#include <vector>

namespace ReferenceHost {

namespace {

QString comparable(const QString& text)
{
    QString characters;
    for (const QChar character : text) {
        if (character.isLetterOrNumber())
            characters += character.toCaseFolded();
    }
    return characters;
}

// Whether the typed text is compared with the whole name or with the part of it that fits best.
enum class Against { WholeName, PartOfName };

int editDistance(const QString& typed, const QString& name, Against against)
{
    std::vector<int> row(size_t(name.size()) + 1, 0);
    if (against == Against::WholeName)
        std::iota(row.begin(), row.end(), 0);
    for (int line = 0; line < typed.size(); ++line) {
        int diagonal = std::exchange(row[0], line + 1);
        for (size_t column = 1; column < row.size(); ++column) {
            const bool equal = typed.at(line) == name.at(int(column) - 1);
            const int cheapest =
                std::min({diagonal + (equal ? 0 : 1), row[column] + 1, row[column - 1] + 1});
            diagonal = std::exchange(row[column], cheapest);
        }
    }
    return against == Against::WholeName ? row.back() : *std::min_element(row.begin(), row.end());
}

} // namespace

QStringList nearestNames(const QString& typed, const QStringList& names)
{
    constexpr int maximumNames = 3;
    const QString wanted = comparable(typed);
    const int tolerated = std::max(1, wanted.size() / 3);
    std::vector<std::tuple<int, int, QString>> ranked;
    for (const QString& name : names) {
        const QString candidate = comparable(name);
        const int part = editDistance(wanted, candidate, Against::PartOfName);
        if (wanted.size() > 1 && part <= tolerated)
            ranked.emplace_back(part, editDistance(wanted, candidate, Against::WholeName), name);
    }
    std::sort(ranked.begin(), ranked.end());
    QStringList nearest;
    for (const auto& [part, whole, name] : ranked) {
        if (nearest.size() < maximumNames)
            nearest << name;
    }
    return nearest;
}

QString suggestion(const QString& typed, const QStringList& names)
{
    const QStringList nearest = nearestNames(typed, names);
    if (nearest.isEmpty())
        return {};
    return QStringLiteral("; did you mean %1?").arg(nearest.join(QStringLiteral(" or ")));
}

} // namespace ReferenceHost
