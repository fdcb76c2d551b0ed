// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

/// Writes \a files numbered pen files into the directory of a host that stalls, half of them
/// slowly, and prints what the host was handed. Returns whether each file came once, whole and
/// right, and was marked as imported.
bool soakPens(int files, unsigned seed);
