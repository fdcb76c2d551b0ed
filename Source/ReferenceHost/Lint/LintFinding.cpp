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
    return QStringLiteral("%1:%2:%3: %4: %5")
        .arg(file, QString::number(finding.position.line), QString::number(finding.position.column),
             severityText(finding), finding.message);
}

QJsonObject jsonOf(const QString& file, const LintFinding& finding)
{
    return {{QStringLiteral("file"), file},
            {QStringLiteral("line"), finding.position.line},
            {QStringLiteral("column"), finding.position.column},
            {QStringLiteral("severity"), severityText(finding)},
            {QStringLiteral("message"), finding.message}};
}

} // namespace ReferenceHost
