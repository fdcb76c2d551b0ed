// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/LintFinding.h"

namespace ReferenceHost {

namespace {

QString severityText(const LintFinding& finding)
{
    return finding.severity == LintFinding::Error ? QStringLiteral("error")
                                                  : QStringLiteral("warning");
}

} // namespace

QString textOf(const QString& file, const LintFinding& finding)
{
    return QStringLiteral("%1:%2:%3: ")
               .arg(file)
               .arg(finding.position.line)
               .arg(finding.position.column) +
           QStringLiteral("%1: %2, found %3, accepted %4")
               .arg(severityText(finding), finding.what, finding.found, finding.accepted);
}

QJsonObject jsonOf(const QString& file, const LintFinding& finding)
{
    return {{QStringLiteral("file"), file},
            {QStringLiteral("line"), finding.position.line},
            {QStringLiteral("column"), finding.position.column},
            {QStringLiteral("severity"), severityText(finding)},
            {QStringLiteral("what"), finding.what},
            {QStringLiteral("found"), finding.found},
            {QStringLiteral("accepted"), finding.accepted}};
}

} // namespace ReferenceHost
