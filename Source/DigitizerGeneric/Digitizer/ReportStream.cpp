// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/ReportStream.h"

#include "DigitizerGeneric/Digitizer/PrintableCharacter.h"
#include "DigitizerGeneric/Digitizer/ReportLayout.h"
#include "QextSerialPort/SerialTiming.h"

#include <algorithm>
#include <string_view>

namespace MavSystem {

namespace {

using Characters = std::bitset<256>;

// The largest item of bytes that do not belong to a report, so that noise without a line end or a
// pause is announced while it lasts.
constexpr int strayBytesAtOnce = 512;

// A tablet that sends without any pause fills this in nine minutes at 19200 baud.
constexpr int undecidedBytes = 1024 * 1024;

bool isLineEnd(ReportFormatValues role)
{
    return role == FORMAT_CR || role == FORMAT_LINE_FEED;
}

Characters setOf(std::string_view characters)
{
    Characters set;
    for (const char character : characters)
        set.set(static_cast<unsigned char>(character));
    return set;
}

Characters printable()
{
    Characters set;
    for (char character = firstPrintable; isPrintable(character); ++character)
        set.set(static_cast<unsigned char>(character));
    return set;
}

// The first characters of all codes, or the second or third ones.
Characters codeCharacters(const std::vector<ButtonValue>& buttons, std::size_t index)
{
    Characters set;
    for (const ButtonValue& button : buttons) {
        if (index < button.m_code.size())
            set.set(static_cast<unsigned char>(button.m_code[index]));
    }
    return set;
}

Characters allowedIn(ReportFormatValues role)
{
    switch (role) {
    case FORMAT_X:
    case FORMAT_Y:
        return setOf("0123456789");
    case FORMAT_POINT:
        return setOf(".");
    case FORMAT_SIGN:
        return setOf("+- ");
    case FORMAT_CR:
        return setOf("\r");
    case FORMAT_LINE_FEED:
        return setOf("\n");
    case FORMAT_BUTTON:
        return printable();
    case FORMAT_UNUSED:
        break;
    }
    return Characters().set();
}

} // namespace

ReportStream::ReportStream(const DigitizerArgument& description)
{
    setTemplate(description);
}

void ReportStream::setTemplate(const DigitizerArgument& description)
{
    const std::vector<ReportFormatValues>& roles = description.m_reportFormat;
    Characters lineEnds;
    for (const ReportFormatValues role : roles)
        lineEnds |= isLineEnd(role) ? allowedIn(role) : Characters();

    m_allowed.clear();
    std::size_t buttonCharacters = 0;
    for (const ReportFormatValues role : roles) {
        Characters allowed = allowedIn(role);
        if (role == FORMAT_BUTTON)
            allowed |= codeCharacters(description.m_buttons, buttonCharacters++);
        m_allowed.push_back(isLineEnd(role) ? allowed : allowed & ~lineEnds);
    }

    m_hasLineEnds = lineEnds.any();
    m_beginsWithLineEnd = !roles.empty() && isLineEnd(roles.front());
    m_lineEnd.reset();
    if (!roles.empty() && isLineEnd(roles.back()))
        m_lineEnd = roles.back() == FORMAT_CR ? '\r' : '\n';
    m_certain = 0;
}

bool ReportStream::canCheck() const
{
    return reportSize() > 0 && reportSize() <= ReportLayout::maximumCharacters;
}

void ReportStream::append(const QByteArray& bytes)
{
    m_bytes.remove(0, m_begin);
    m_begin = 0;
    m_bytes += bytes;
}

void ReportStream::pause()
{
    if (!m_pauseAt)
        m_pauseAt = size();
}

std::optional<StreamItem> ReportStream::next()
{
    if (m_pauseAt == 0) {
        m_pauseAt.reset();
        m_lost = false;
    }
    if (visible() == 0)
        return std::nullopt;
    if (!canCheck())
        return takeStray(visible());
    if (m_lost || !m_hasLineEnds)
        return find();
    switch (matchAt(0)) {
    case Match::Whole:
        return takeReport();
    case Match::SoFar:
        return std::nullopt;
    case Match::No:
        break;
    }
    m_lost = true;
    return find();
}

bool ReportStream::allows(int position, char character) const
{
    return m_allowed[std::size_t(position)].test(static_cast<unsigned char>(character));
}

int ReportStream::pauseMilliseconds(const PortSettings& settings)
{
    // Adapters on a bus or a radio link keep bytes back for some tens of milliseconds; a hand does
    // not press twice within this.
    constexpr int slowAdapter = 150;
    constexpr int characters = 4;
    return slowAdapter + int(characters * SerialTiming::characterMicroseconds(settings) / 1000);
}

// Without a line end to hold on to, a template that has some begins after a pause only.
bool ReportStream::mayBeginAt(int offset) const
{
    if (!m_lost || !m_hasLineEnds || m_beginsWithLineEnd)
        return true;
    return m_lineEnd == (offset == 0 ? m_before : m_bytes.at(m_begin + offset - 1));
}

ReportStream::Match ReportStream::matchAt(int offset) const
{
    if (!mayBeginAt(offset))
        return Match::No;
    const int characters = std::min(reportSize(), visible() - offset);
    const char* const text = m_bytes.constData() + m_begin + offset;
    for (int position = 0; position < characters; ++position) {
        if (!allows(position, text[position]))
            return Match::No;
    }
    if (characters == reportSize())
        return Match::Whole;
    return m_pauseAt ? Match::No : Match::SoFar;
}

int ReportStream::firstCandidate() const
{
    int offset = 0;
    while (offset < visible() && matchAt(offset) == Match::No)
        ++offset;
    return offset;
}

// The bytes in front of a candidate that form one item: up to a line end, so that a damaged line is
// announced as one item. None while that line is still arriving.
int ReportStream::strayBefore(int candidate) const
{
    const int lineEnd = m_lineEnd ? m_bytes.indexOf(*m_lineEnd, m_begin) - m_begin : -1;
    if (lineEnd >= 0 && lineEnd < candidate)
        return std::min(lineEnd + 1, strayBytesAtOnce);
    const bool goesOn = m_hasLineEnds && candidate == visible() && !m_pauseAt;
    return goesOn && candidate < strayBytesAtOnce ? 0 : std::min(candidate, strayBytesAtOnce);
}

std::optional<StreamItem> ReportStream::find()
{
    if (m_certain > 0) {
        m_certain -= reportSize();
        return takeReport();
    }
    const int candidate = firstCandidate();
    if (candidate > 0) {
        m_lost = true;
        const int stray = strayBefore(candidate);
        return stray > 0 ? std::optional(takeStray(stray)) : std::nullopt;
    }
    if (matchAt(0) == Match::SoFar)
        return std::nullopt;
    return hasRival() ? resolveRivals() : takeReport();
}

// Another report that fits, or may still fit, where it would overlap the first one.
bool ReportStream::hasRival() const
{
    for (int offset = 1; offset < std::min(reportSize(), visible()); ++offset) {
        if (matchAt(offset) != Match::No)
            return true;
    }
    return false;
}

std::optional<StreamItem> ReportStream::resolveRivals()
{
    if (m_pauseAt && !m_lost && isWholeReports()) {
        m_certain = visible() - reportSize();
        return takeReport();
    }
    if (!m_pauseAt && visible() < undecidedBytes)
        return std::nullopt;
    m_lost = true;
    return takeStray(visible());
}

bool ReportStream::isWholeReports() const
{
    for (int offset = 0; offset < visible(); offset += reportSize()) {
        if (matchAt(offset) != Match::Whole)
            return false;
    }
    return true;
}

StreamItem ReportStream::takeReport()
{
    m_lost = false;
    return {take(reportSize()), true};
}

StreamItem ReportStream::takeStray(int count)
{
    return {take(count), false};
}

QByteArray ReportStream::take(int count)
{
    const QByteArray bytes = m_bytes.mid(m_begin, count);
    m_begin += count;
    m_before = bytes.back();
    if (m_pauseAt)
        *m_pauseAt -= count;
    return bytes;
}

} // namespace MavSystem
