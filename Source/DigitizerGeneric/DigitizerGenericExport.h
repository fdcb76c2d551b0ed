// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef DIGITIZERGENERIC_BUILD
#define DIGITIZERGENERIC_EXPORT Q_DECL_EXPORT
#else
#define DIGITIZERGENERIC_EXPORT Q_DECL_IMPORT
#endif
