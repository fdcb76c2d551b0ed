// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/DescriptionKeys.h"

#include "DigitizerGeneric/Digitizer/DescribedSetting.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"

namespace ReferenceHost {

namespace {

QVector<KnownAttribute> serialAttributes()
{
    QVector<KnownAttribute> attributes;
    for (const MavSystem::DescribedSetting& setting : MavSystem::describedSettings())
        attributes.append({setting.attribute, Presence::Required, setting.accepted});
    return attributes;
}

// clang-format off
const KnownElement description = {
    QString(), Presence::Required, false, false,
    {{QStringLiteral("name"), Presence::Required, {}},
     {QStringLiteral("support"), Presence::Optional,
      {QStringLiteral("verified"), QStringLiteral("documented"), QStringLiteral("untested")},
      LintFinding::Warning}},
    {{QStringLiteral("ioPort"), Presence::OfPort, false, false, {},
      {{QStringLiteral("serial"), Presence::Required, false, false,
        serialAttributes(),
        {}}}},
     {QStringLiteral("resolution"), Presence::OfReport, false, true,
      {{QStringLiteral("unit"), Presence::Advisable,
        {MavSystem::Resolution::unitText(MavSystem::LPI),
         MavSystem::Resolution::unitText(MavSystem::LPMM)}, LintFinding::Warning}},
      {}},
     {QStringLiteral("reportFormat"), Presence::OfTemplate, false, true,
      {{QStringLiteral("length"), Presence::Required, {}}},
      {}},
     {QStringLiteral("buttons"), Presence::OfReport, false, false,
      {{QStringLiteral("count"), Presence::Required, {}},
       {QStringLiteral("length"), Presence::Required, {}}},
      {{QStringLiteral("button"), Presence::Optional, true, true, {}, {}}}},
     {QStringLiteral("beepString"), Presence::Optional, false, false, {},
      {{QStringLiteral("character"), Presence::Advisable, true, true, {}, {}}}}}};
// clang-format on

} // namespace

const KnownElement& knownDescription()
{
    return description;
}

} // namespace ReferenceHost
