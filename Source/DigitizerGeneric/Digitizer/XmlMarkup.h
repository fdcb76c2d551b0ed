// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace MavSystem {

/// Returns \a document with everything blanked out that is neither a tag nor a declaration:
/// comments, CDATA sections, processing instructions and the text of elements. Positions do not
/// change.
///
/// Exact if the document is well-formed and declares no entities.
QString markupOf(QString document);

/// Returns whether \a character begins and ends the value of an attribute.
bool isQuote(QChar character);

} // namespace MavSystem
