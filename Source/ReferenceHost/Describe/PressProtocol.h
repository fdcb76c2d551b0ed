// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Serial/RecordedSession.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <tl/expected.hpp>

#include <optional>

namespace ReferenceHost {

/// The presses by which an unknown tablet shows the layout of its report, in their fixed order:
/// button 1 at the lower left, to the right of that, above it and near the middle, then every
/// further button at the last point.
///
/// Three points of one button tell x from y and both from everything else. The fourth makes it
/// unlikely that a digit stays the same by chance and is taken for part of the button code.
namespace PressProtocol {

/// The presses of button 1, by their index.
enum Place { LowerLeft, Right, Above, Middle };
inline constexpr int placeCount = Middle + 1;

/// The driver ignores buttons beyond this number.
inline constexpr int maximumButtons = 16;

/// At least two buttons, so that their codes can be told apart; at most all of them.
inline constexpr int minimumPresses = placeCount + 1;
inline constexpr int maximumPresses = placeCount + maximumButtons - 1;

/// Returns the number of the button of press \a index, from 1.
int buttonOf(int index);

/// Returns what to ask for press \a index. \a distance is the distance in centimetres from the
/// first point to the one at its right and to the one above it, or nothing for "as far as
/// possible".
QString promptOf(int index, std::optional<double> distance);

/// Two presses are at least this far apart, and the reports of one press never are.
inline constexpr int pauseMilliseconds = 400;

/// Returns the bytes of each press, which are those between two pauses.
QVector<QByteArray> pressesOf(const QVector<RecordedSession::Chunk>& chunks);

/// Returns \a presses, or an error if there are too few or too many for the protocol.
tl::expected<QVector<QByteArray>, QString> checked(const QVector<QByteArray>& presses);

} // namespace PressProtocol

} // namespace ReferenceHost
