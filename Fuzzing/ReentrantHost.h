// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

/// A host that calls the driver from inside everything that the driver calls: its report handler,
/// the question and the other message boxes. It opens, closes, selects, throws, runs event loops
/// and lets pen files come and go, with public operations only, in a temporary directory of its
/// own.
namespace ReentrantHost {

/// Runs one host and returns what it found wrong; nothing when all was right.
///
/// Each byte of \a decisions, counted from '0', is one decision; when they are used up, the host
/// answers "Import" and does nothing else. Then a new file must arrive, every file must have been
/// delivered in whole, and only once where the host gave no reason for more.
QStringList run(const QByteArray& decisions);

/// Returns the decisions of a random host; equal seeds give equal ones.
QByteArray randomDecisions(quint32 seed);

} // namespace ReentrantHost
