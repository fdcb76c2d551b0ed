// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/DigipenState_4ex.h"

#include "DigitizerGeneric/File_Digital/DigipenDispatch.h"
#include "DigitizerGeneric/File_Digital/InternalMode.h"

namespace MavSystem {

namespace {

constexpr DigipenDispatch extendedDispatch = {
    single<t_LineState_4ex>,
    single<t_CurveState_4ex>,
    single<t_Button3State_4ex>,
    single<t_TerminateInformationState_4ex>,
};

constexpr DigipenDispatch prefixDispatch = {
    single<t_Button3_1Phase1State_4ex>,
    single<t_Button3_2Phase1State_4ex>,
    single<t_Button3_3Phase1State_4ex>,
    single<t_IdleState_4ex>,
};

} // namespace

bool t_DigipenState_4ex::m_curve = false;
t_IdleState_4ex* t_IdleState_4ex::s_single = nullptr;
t_LineState_4ex* t_LineState_4ex::s_single = nullptr;
t_CurveState_4ex* t_CurveState_4ex::s_single = nullptr;
t_Button3State_4ex* t_Button3State_4ex::s_single = nullptr;
t_Button3_1Phase1State_4ex* t_Button3_1Phase1State_4ex::s_single = nullptr;
t_Button3_2Phase1State_4ex* t_Button3_2Phase1State_4ex::s_single = nullptr;
t_Button3_3Phase1State_4ex* t_Button3_3Phase1State_4ex::s_single = nullptr;
t_Button3_1Phase2State_4ex* t_Button3_1Phase2State_4ex::s_single = nullptr;
t_Button3_2Phase2State_4ex* t_Button3_2Phase2State_4ex::s_single = nullptr;
t_Button3_3Phase2State_4ex* t_Button3_3Phase2State_4ex::s_single = nullptr;
t_TerminateInformationState_4ex* t_TerminateInformationState_4ex::s_single = nullptr;

bool t_DigipenState_4ex::is4ex()
{
    return true;
}

void t_DigipenState_4ex::button(t_DigipenDataConverter& converter, int n)
{
    dispatchButton(*this, converter, n, extendedDispatch);
}

void t_DigipenState_4ex::firstPhase(t_DigipenDataConverter& converter, const char* code,
                                    t_DigipenState* (*next)(), short x, short y)
{
    const bool isInternal = hostModeIsInternal();
    // Not with commandCode(): a class that derives from a state does not change what is written.
    writeCommand(converter, PUNCH_HOLE_CODE, x, y);
    if (isInternal)
        writeCommand(converter, code, x, y);
    else
        changeState(converter, next());
}

void t_DigipenState_4ex::secondPhase(t_DigipenDataConverter& converter, short x, short y)
{
    t_DigipenState::coordinate(converter, x, y);
    changeState(converter, m_curve ? single<t_CurveState_4ex>() : single<t_LineState_4ex>());
}

std::string t_IdleState_4ex::commandCode()
{
    return IDLE_CODE;
}

void t_IdleState_4ex::coordinate(t_DigipenDataConverter& /*converter*/, short /*x*/, short /*y*/) {}

void t_Button3State_4ex::button(t_DigipenDataConverter& converter, int n)
{
    dispatchButton(*this, converter, n, prefixDispatch);
}

void t_Button3State_4ex::coordinate(t_DigipenDataConverter& converter, short /*x*/, short /*y*/)
{
    changeState(converter, single<t_IdleState_4ex>());
}

void t_TerminateInformationState_4ex::enter()
{
    m_coordinate_given = false;
}

void t_TerminateInformationState_4ex::button(t_DigipenDataConverter& converter, int n)
{
    if (!m_coordinate_given)
        t_DigipenState::coordinate(converter, 0, 0);
    t_DigipenState_4ex::button(converter, n);
}

void t_TerminateInformationState_4ex::coordinate(t_DigipenDataConverter& converter, short x,
                                                 short y)
{
    t_DigipenState::coordinate(converter, x, y);
    m_coordinate_given = true;
    if (hostModeIsInternal())
        changeState(converter, single<t_LineState_4ex>());
}

} // namespace MavSystem
