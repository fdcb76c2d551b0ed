// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Lint/XmlOutline.h"

#include <QJsonObject>
#include <QString>

namespace ReferenceHost {

/// Something in a description file that the driver takes without a message.
struct LintFinding
{
    enum Severity {
        Error,   ///< the driver does something else than the file says, or nothing at all
        Warning, ///< it works as written, but it may not be what is meant
    };

    SourcePosition position;
    Severity severity = Error;
    QString message; ///< what is wrong and what would be right, in one line
};

/// Returns "file:line:column: error: message" in one line, without its end.
QString textOf(const QString& file, const LintFinding& finding);

/// Returns the same with the members "file", "line", "column", "severity" and "message".
QJsonObject jsonOf(const QString& file, const LintFinding& finding);

} // namespace ReferenceHost
