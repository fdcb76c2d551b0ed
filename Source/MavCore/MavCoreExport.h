// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef MAVCORE_BUILD
#define MAVCORE_EXPORT Q_DECL_EXPORT
#else
#define MAVCORE_EXPORT Q_DECL_IMPORT
#endif
