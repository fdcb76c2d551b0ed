// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/ConvertedCommand.h"
#include "DigitizerGeneric/DigitizerGenericExport.h"
#include "DigitizerGeneric/File_Digital/DigipenState.h"

namespace MavSystem {

/// A state of the extended four-button family, in which button 3 is a prefix.
///
///   state                           code   button(n)                  coordinate(x, y)
///   t_LineState_4ex                 1      dispatch                   m_curve off, write
///   t_CurveState_4ex                2      dispatch                   m_curve on, write
///   t_Button3State_4ex              none   prefix dispatch            t_IdleState_4ex
///   t_Button3_kPhase1State_4ex      3      dispatch                   write; internal mode: write
///     (k = 1, 2, 3)                                                   code k and stay, else
///                                                                     t_Button3_kPhase2State_4ex
///   t_Button3_kPhase2State_4ex      k      dispatch                   write, then t_CurveState_4ex
///                                                                     if m_curve, else
///                                                                     t_LineState_4ex
///   t_TerminateInformationState_4ex 4      write at (0, 0) unless a   write; internal mode:
///                                          position was given;        t_LineState_4ex, else stay
///                                          dispatch
///   t_IdleState_4ex                 none   standard family's dispatch nothing
///
///   dispatch: 1 t_LineState_4ex, 2 t_CurveState_4ex, 3 t_Button3State_4ex,
///             4 t_TerminateInformationState_4ex
///   prefix dispatch: 1 to 3 t_Button3_1Phase1State_4ex to t_Button3_3Phase1State_4ex,
///             4 t_IdleState_4ex
///   any other number changes nothing
class DIGITIZERGENERIC_EXPORT t_DigipenState_4ex : public t_DigipenState
{
public:
    std::string commandCode() override = 0;
    bool is4ex() override;
    void button(t_DigipenDataConverter& converter, int n) override;

    /// Whether the last drawing position was a curve point; lives on from file to file.
    static bool m_curve;

protected:
    void firstPhase(t_DigipenDataConverter& converter, const char* code, t_DigipenState* (*next)(),
                    short x, short y);
    void secondPhase(t_DigipenDataConverter& converter, short x, short y);
};

/// An extended state with \a code.
template <const char* code>
class DIGITIZERGENERIC_EXPORT t_CodedState_4ex : public t_DigipenState_4ex
{
public:
    std::string commandCode() override { return code; }
};

/// An extended state that draws with \a code, lines or a \a curve.
template <const char* code, bool curve>
class DIGITIZERGENERIC_EXPORT t_DrawingState_4ex : public t_CodedState_4ex<code>
{
public:
    void coordinate(t_DigipenDataConverter& converter, short x, short y) override
    {
        t_DigipenState_4ex::m_curve = curve;
        t_DigipenState::coordinate(converter, x, y);
    }
};

/// The second position of a prefixed input, with \a code.
template <const char* code>
class DIGITIZERGENERIC_EXPORT t_SecondPhaseState_4ex : public t_CodedState_4ex<code>
{
public:
    void coordinate(t_DigipenDataConverter& converter, short x, short y) override
    {
        t_DigipenState_4ex::secondPhase(converter, x, y);
    }
};

/// The first position of a prefixed input, whose second is for \a SecondPhase with \a code.
template <class SecondPhase, const char* code>
class DIGITIZERGENERIC_EXPORT t_FirstPhaseState_4ex : public t_CodedState_4ex<PUNCH_HOLE_CODE>
{
public:
    void coordinate(t_DigipenDataConverter& converter, short x, short y) override
    {
        firstPhase(converter, code, single<SecondPhase>, x, y);
    }
};

/// Not an extended state by its base: its buttons lead into the standard family.
class DIGITIZERGENERIC_EXPORT t_IdleState_4ex : public t_DigipenState
{
public:
    std::string commandCode() override;
    void coordinate(t_DigipenDataConverter& converter, short x, short y) override;
    static t_IdleState_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_LineState_4ex : public t_DrawingState_4ex<LINE_CODE, false>
{
public:
    static t_LineState_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_CurveState_4ex : public t_DrawingState_4ex<CURVE_CODE, true>
{
public:
    static t_CurveState_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_Button3State_4ex : public t_CodedState_4ex<IDLE_CODE>
{
public:
    void button(t_DigipenDataConverter& converter, int n) override;
    void coordinate(t_DigipenDataConverter& converter, short x, short y) override;
    static t_Button3State_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_Button3_1Phase2State_4ex : public t_SecondPhaseState_4ex<LINE_CODE>
{
public:
    static t_Button3_1Phase2State_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_Button3_2Phase2State_4ex : public t_SecondPhaseState_4ex<CURVE_CODE>
{
public:
    static t_Button3_2Phase2State_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_Button3_3Phase2State_4ex
    : public t_SecondPhaseState_4ex<PUNCH_HOLE_CODE>
{
public:
    static t_Button3_3Phase2State_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_Button3_1Phase1State_4ex
    : public t_FirstPhaseState_4ex<t_Button3_1Phase2State_4ex, LINE_CODE>
{
public:
    static t_Button3_1Phase1State_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_Button3_2Phase1State_4ex
    : public t_FirstPhaseState_4ex<t_Button3_2Phase2State_4ex, CURVE_CODE>
{
public:
    static t_Button3_2Phase1State_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_Button3_3Phase1State_4ex
    : public t_FirstPhaseState_4ex<t_Button3_3Phase2State_4ex, PUNCH_HOLE_CODE>
{
public:
    static t_Button3_3Phase1State_4ex* s_single;
};

class DIGITIZERGENERIC_EXPORT t_TerminateInformationState_4ex
    : public t_CodedState_4ex<TERMINATE_CODE>
{
public:
    void enter() override;
    void button(t_DigipenDataConverter& converter, int n) override;
    void coordinate(t_DigipenDataConverter& converter, short x, short y) override;
    static t_TerminateInformationState_4ex* s_single;

    /// Whether a position has arrived since the state was last entered.
    bool m_coordinate_given = false;
};

} // namespace MavSystem
