// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Lint/LintFinding.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace ReferenceHost {

/// Whether a description must have something.
enum class Presence {
    Optional,
    Advisable,
    OfReport,   ///< needed unless the driver has a layout of its own
    OfPort,     ///< needed for a tablet, not for a pen
    OfTemplate, ///< needed where both of these are
    Required,
};

/// What is known of one attribute of a description.
struct KnownAttribute
{
    QString name;
    Presence presence;
    QStringList texts; ///< the accepted ones; empty when others than fixed texts are
    LintFinding::Severity ofOtherText = LintFinding::Error;
};

/// What is known of one element of a description.
struct KnownElement
{
    QString name;
    Presence presence;
    bool repeats = false; ///< all count, not only the first
    bool hasText = false;
    QVector<KnownAttribute> attributes;
    QVector<KnownElement> children;
};

/// Returns the root element of a description, with all that the driver or a host reads. Its own
/// name is empty, since any does.
const KnownElement& knownDescription();

} // namespace ReferenceHost
