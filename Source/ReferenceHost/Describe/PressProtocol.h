// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Serial/RecordedSession.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

namespace ReferenceHost {

/// The presses by which an unknown tablet shows the layout of its report, in their fixed order:
/// button 1 at the lower left, to the right of that, above it and near the middle, then every
/// further button at the last point.
///
/// Three points of one button tell x from y and both from all else; the fourth makes it unlikely
/// that a digit stays the same by chance and passes for a part of the button code.
namespace PressProtocol {

/// The presses of button 1, by their index.
enum Place { LowerLeft, Right, Above, Middle };
inline constexpr int placeCount = Middle + 1;

/// Buttons beyond this number are not looked at by the driver.
inline constexpr int maximumButtons = 16;

/// Two buttons, or none can be told from the other; and all of them.
inline constexpr int minimumPresses = placeCount + 1;
inline constexpr int maximumPresses = placeCount + maximumButtons - 1;

/// Returns the number of the button of press \a index, from 1.
int buttonOf(int index);

/// Returns what to ask for press \a index. The distance is that from the first point to those at
/// its right and above it, in centimetres, or nothing for "far away".
QString promptOf(int index, std::optional<double> distance);

/// A pause this long lies between two presses and never within the reports of one.
inline constexpr int pauseMilliseconds = 400;

/// Returns the bytes of each press: what lies between two pauses.
QVector<QByteArray> pressesOf(const QVector<RecordedSession::Chunk>& chunks);

/// Returns why the presses are too few or too many for the protocol, or an empty text.
QString problemOf(const QVector<QByteArray>& presses);

} // namespace PressProtocol

} // namespace ReferenceHost
