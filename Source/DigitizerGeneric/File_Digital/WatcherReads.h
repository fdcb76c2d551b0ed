// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

class QFileSystemWatcher;

namespace MavSystem {

/// Keeps \a watcher from waiting inside the event loop for a change that it has read already.
///
/// When the host runs an event loop inside a slot, that loop may read what the outer one is about
/// to read too. Qt then waits there for the next change of the directory, and the host stands
/// still.
void neverWaitForChanges(const QFileSystemWatcher& watcher);

} // namespace MavSystem
