// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/DigipenState.h"

#include "DigitizerGeneric/ConvertedCommand.h"
#include "DigitizerGeneric/Digitizer/Diagnostics.h"
#include "DigitizerGeneric/File_Digital/DigipenDataConverter.h"
#include "DigitizerGeneric/File_Digital/DigipenDispatch.h"

#include <boost/core/demangle.hpp>

#include <charconv>
#include <iterator>
#include <typeinfo>

namespace MavSystem {

namespace {

constexpr DigipenDispatch standardDispatch = {
    single<t_LineState>,
    single<t_CurveState>,
    single<t_PunchHoleState>,
    single<t_TerminateInformationState>,
};

// Not a stream: a host's global locale may group digits.
void append(std::string& text, short number)
{
    char digits[sizeof "-32768"];
    text.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
}

void append(std::string& text, short x, short y)
{
    append(text, x);
    text += COORDINATE_SEPARATOR;
    append(text, y);
}

QString nameOf(const t_DigipenState* state)
{
    if (!state)
        return QStringLiteral("none");
    return QString::fromStdString(boost::core::demangle(typeid(*state).name()))
        .section(QLatin1String("::"), -1);
}

} // namespace

bool t_DigipenState::m_internal_mode = false;
t_IdleState* t_IdleState::s_single = nullptr;
t_LineState* t_LineState::s_single = nullptr;
t_CurveState* t_CurveState::s_single = nullptr;
t_PunchHoleState* t_PunchHoleState::s_single = nullptr;
t_TerminateInformationState* t_TerminateInformationState::s_single = nullptr;

void t_DigipenState::enter() {}

int t_DigipenState::terminateButton()
{
    return TERMINATE_CODE[0] - '0';
}

bool t_DigipenState::is4ex()
{
    return false;
}

void t_DigipenState::button(t_DigipenDataConverter& converter, int n)
{
    dispatchButton(*this, converter, n, standardDispatch);
}

void t_DigipenState::coordinate(t_DigipenDataConverter& converter, short x, short y)
{
    writeCommand(converter, commandCode(), x, y);
}

void t_DigipenState::changeState(t_DigipenDataConverter& converter, t_DigipenState* next)
{
    qCDebug(lcPen).noquote() << "pen state" << nameOf(converter.m_state) << "to" << nameOf(next);
    converter.m_state = next;
    next->enter();
}

std::string t_DigipenState::convertCoordinate(short x, short y)
{
    std::string text;
    append(text, x, y);
    return text;
}

void t_DigipenState::writeCommand(t_DigipenDataConverter& converter, const std::string& code,
                                  short x, short y)
{
    converter.m_commands += code;
    append(converter.m_commands, x, y);
    converter.m_commands += LINE_FEED;
    converter.m_commands += CARRIAGE_RETURN;
}

std::string t_IdleState::commandCode()
{
    return IDLE_CODE;
}

void t_IdleState::coordinate(t_DigipenDataConverter& /*converter*/, short /*x*/, short /*y*/) {}

std::string t_LineState::commandCode()
{
    return LINE_CODE;
}

std::string t_CurveState::commandCode()
{
    return CURVE_CODE;
}

std::string t_PunchHoleState::commandCode()
{
    return PUNCH_HOLE_CODE;
}

std::string t_TerminateInformationState::commandCode()
{
    return TERMINATE_CODE;
}

void t_TerminateInformationState::button(t_DigipenDataConverter& converter, int n)
{
    t_DigipenState::coordinate(converter, 0, 0);
    t_DigipenState::button(converter, n);
}

void t_TerminateInformationState::coordinate(t_DigipenDataConverter& converter, short x, short y)
{
    t_DigipenState::coordinate(converter, x, y);
    changeState(converter, single<t_LineState>());
}

} // namespace MavSystem
