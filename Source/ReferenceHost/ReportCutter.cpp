// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/ReportCutter.h"

#include <algorithm>

using namespace MavSystem;

namespace {

bool isLineEnd(ReportFormatValues role)
{
    return role == FORMAT_CR || role == FORMAT_LINE_FEED;
}

bool isLineEnd(char character)
{
    return character == '\r' || character == '\n';
}

} // namespace

ReportCutter::ReportCutter(std::vector<ReportFormatValues> roles)
    : m_roles(std::move(roles)),
      m_hasLineEnd(std::any_of(m_roles.begin(), m_roles.end(),
                               [](ReportFormatValues role) { return isLineEnd(role); }))
{}

QVector<LinePiece> ReportCutter::take(const QByteArray& bytes)
{
    QVector<LinePiece> pieces;
    m_waiting += bytes;
    int strayStart = 0;
    int position = 0;
    const auto takeStray = [&] {
        if (position > strayStart)
            pieces.append({m_waiting.mid(strayStart, position - strayStart), false});
        strayStart = position;
    };
    while (position < m_waiting.size()) {
        const Match match = matchAt(position);
        if (match == Match::SoFar)
            break;
        if (match == Match::No) {
            ++position;
            continue;
        }
        takeStray();
        pieces.append({m_waiting.mid(position, int(m_roles.size())), true});
        strayStart = position += int(m_roles.size());
    }
    takeStray();
    m_waiting.remove(0, position);
    return pieces;
}

std::optional<LinePiece> ReportCutter::flush()
{
    if (m_waiting.isEmpty())
        return std::nullopt;
    return LinePiece{std::exchange(m_waiting, {}), false};
}

bool ReportCutter::fits(ReportFormatValues role, char character)
{
    switch (role) {
    case FORMAT_X:
    case FORMAT_Y:
        return character >= '0' && character <= '9';
    case FORMAT_POINT:
        return character == '.';
    case FORMAT_SIGN:
        return character == '+' || character == '-' || character == ' ';
    case FORMAT_CR:
        return character == '\r';
    case FORMAT_LINE_FEED:
        return character == '\n';
    case FORMAT_BUTTON:
        return character > ' ' && character <= '~';
    case FORMAT_UNUSED:
        break;
    }
    return true;
}

ReportCutter::Match ReportCutter::matchAt(int start) const
{
    if (m_roles.empty())
        return Match::No;
    const int characters = std::min(int(m_roles.size()), m_waiting.size() - start);
    for (int i = 0; i < characters; ++i) {
        if (!delimits(m_roles[std::size_t(i)], m_waiting.at(start + i)))
            return Match::No;
    }
    return characters == int(m_roles.size()) ? Match::Whole : Match::SoFar;
}

// Whether a report may have this character there, for the search of its ends.
bool ReportCutter::delimits(ReportFormatValues role, char character) const
{
    if (!m_hasLineEnd)
        return fits(role, character);
    return isLineEnd(role) ? fits(role, character) : !isLineEnd(character);
}
