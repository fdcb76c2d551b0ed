// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/DescriptionKeys.h"

#include "DigitizerGeneric/Digitizer/Resolution.h"
#include "DigitizerGeneric/Digitizer/SerialSettings.h"

#include <algorithm>

namespace ReferenceHost {

namespace {

template <typename Table>
QStringList textsOf(const Table& table)
{
    QStringList texts;
    for (const auto& entry : table)
        texts << entry.first;
    std::stable_sort(texts.begin(), texts.end(), [](const QString& first, const QString& second) {
        return first.toDouble() < second.toDouble();
    });
    return texts;
}

// Made before main: each description that the driver loads later may leave texts in its tables
// that are not accepted.
// clang-format off
const KnownElement description = {
    QString(), Presence::Required, false, false,
    {{QStringLiteral("name"), Presence::Required, {}},
     {QStringLiteral("support"), Presence::Optional,
      {QStringLiteral("verified"), QStringLiteral("documented"), QStringLiteral("untested")},
      LintFinding::Warning}},
    {{QStringLiteral("ioPort"), Presence::OfPort, false, false, {},
      {{QStringLiteral("serial"), Presence::Required, false, false,
        {{QStringLiteral("baudrate"), Presence::Required, textsOf(MavSystem::BaudrateMap())},
         {QStringLiteral("databit"), Presence::Required, textsOf(MavSystem::DatabitMap())},
         {QStringLiteral("parity"), Presence::Required, textsOf(MavSystem::ParityMap())},
         {QStringLiteral("stopbit"), Presence::Required, textsOf(MavSystem::StopbitMap())},
         {QStringLiteral("flowctrl"), Presence::Required, textsOf(MavSystem::FlowCtrlMap())}},
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
