// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <string>

namespace MavSystem {

class t_DigipenDataConverter;

/// A state of the digital pen: what a button does and what a position writes.
///
/// States are shared by all converters of the process: each concrete class has one instance,
/// s_single, made by the transition that first needs it and never deleted.
/// Thread: the host's main thread.
///
/// The standard family:
///
///   state                         code   button(n)                    coordinate(x, y)
///   t_IdleState                   none   dispatch                     nothing
///   t_LineState                   1      dispatch                     write
///   t_CurveState                  2      dispatch                     write
///   t_PunchHoleState              3      dispatch                     write
///   t_TerminateInformationState   4      write at (0, 0), dispatch    write, then t_LineState
///
///   dispatch: 1 t_LineState, 2 t_CurveState, 3 t_PunchHoleState, 4 t_TerminateInformationState;
///   any other number changes nothing
class DIGITIZERGENERIC_EXPORT t_DigipenState
{
public:
    /// Runs each time the state becomes the current one.
    virtual void enter();

    /// Returns the code that the state writes in front of each position.
    virtual std::string commandCode() = 0;

    /// Returns the number of the terminate button, 4.
    virtual int terminateButton();

    /// Returns whether this is a state of the extended four-button family.
    virtual bool is4ex();

    virtual void button(t_DigipenDataConverter& converter, int n);

    /// Writes one converted command with commandCode() at (\a x, \a y).
    virtual void coordinate(t_DigipenDataConverter& converter, short x, short y);

    /// Makes \a next the current state and runs its enter(), also when it is current already.
    void changeState(t_DigipenDataConverter& converter, t_DigipenState* next);

    /// Returns \a x, a blank and \a y in decimal.
    std::string convertCoordinate(short x, short y);

    /// Internal mode as the end of a file sees it; set before each step of an import.
    static bool m_internal_mode;

protected:
    void writeCommand(t_DigipenDataConverter& converter, const std::string& code, short x, short y);
};

/// Returns the one instance of \a State; the first call makes it.
template <class State>
t_DigipenState* single()
{
    if (!State::s_single)
        State::s_single = new State;
    return State::s_single;
}

class DIGITIZERGENERIC_EXPORT t_IdleState : public t_DigipenState
{
public:
    std::string commandCode() override;
    void coordinate(t_DigipenDataConverter& converter, short x, short y) override;
    static t_IdleState* s_single;
};

class DIGITIZERGENERIC_EXPORT t_LineState : public t_DigipenState
{
public:
    std::string commandCode() override;
    static t_LineState* s_single;
};

class DIGITIZERGENERIC_EXPORT t_CurveState : public t_DigipenState
{
public:
    std::string commandCode() override;
    static t_CurveState* s_single;
};

class DIGITIZERGENERIC_EXPORT t_PunchHoleState : public t_DigipenState
{
public:
    std::string commandCode() override;
    static t_PunchHoleState* s_single;
};

class DIGITIZERGENERIC_EXPORT t_TerminateInformationState : public t_DigipenState
{
public:
    std::string commandCode() override;
    void button(t_DigipenDataConverter& converter, int n) override;
    void coordinate(t_DigipenDataConverter& converter, short x, short y) override;
    static t_TerminateInformationState* s_single;
};

} // namespace MavSystem
