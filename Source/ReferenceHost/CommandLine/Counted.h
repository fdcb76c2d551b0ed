// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ReferenceHost {

/// Returns "1 file" or "2 files" for \a one "file". \a many is needed if it is not that with an s.
QString counted(qint64 number, const char* one, const char* many = nullptr);

} // namespace ReferenceHost
