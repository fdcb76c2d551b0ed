// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef QEXTSERIALPORT_BUILD
#define QEXTSERIALPORT_EXPORT Q_DECL_EXPORT
#else
#define QEXTSERIALPORT_EXPORT Q_DECL_IMPORT
#endif
