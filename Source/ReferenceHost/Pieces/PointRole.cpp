// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Pieces/PointRole.h"

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"
#include "DigitizerGeneric/Digitizer/DigitalReport.h"
#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "ReferenceHost/CommandLine/NearestNames.h"

#include <algorithm>
#include <iterator>

namespace ReferenceHost {

namespace {

// In the order of the enumerators. A button can have those before "other".
constexpr const char* names[] = {"corner", "curve", "hole",    "end",
                                 "notch",  "other", "closing", "rejected"};

tl::expected<PointRole, QString> parseRole(const QString& name, const QString& entry)
{
    const auto* const found =
        std::find_if(std::begin(names), std::end(names),
                     [&](const char* known) { return name == QLatin1String(known); });
    if (found - std::begin(names) < int(PointRole::Other))
        return PointRole(found - std::begin(names));
    QStringList accepted;
    for (int role = 0; role < int(PointRole::Other); ++role)
        accepted << roleName(PointRole(role));
    return tl::unexpected(
        QStringLiteral("--buttons contains '%1', but a meaning must be one of %2%3")
            .arg(entry, accepted.join(QStringLiteral(", ")), suggestion(name, accepted)));
}

} // namespace

QString roleName(PointRole role)
{
    return QLatin1String(names[int(role)]);
}

ButtonRoles standardButtonRoles(const MavSystem::DescribedDriver& driver)
{
    const bool lectraE92 = driver.isLectraE92();
    const int first = lectraE92 ? MavSystem::LectraE92::firstButton : 1;
    ButtonRoles roles = {{first, PointRole::Corner},
                         {first + 1, PointRole::Curve},
                         {first + 2, PointRole::Hole},
                         {first + 3, PointRole::End}};
    if (!lectraE92 && !driver.description.m_fourButtons)
        roles.insert(5, PointRole::Notch);
    return roles;
}

tl::expected<ButtonRoles, QString> parseButtonRoles(const QString& text)
{
    ButtonRoles roles;
    for (const QString& entry : text.split(QLatin1Char(','))) {
        const int equals = entry.indexOf(QLatin1Char('='));
        bool isNumber = false;
        const int button = entry.left(equals).toInt(&isNumber);
        if (equals < 0 || !isNumber || button < 0)
            return tl::unexpected(QStringLiteral("--buttons contains '%1', but each entry must be "
                                                 "BUTTON=MEANING, such as 1=corner")
                                      .arg(entry));
        if (roles.contains(button))
            return tl::unexpected(QStringLiteral("--buttons names button %1 twice").arg(button));
        const auto role = parseRole(entry.mid(equals + 1).trimmed(), entry);
        if (!role)
            return tl::unexpected(role.error());
        roles.insert(button, *role);
    }
    return roles;
}

PointRole roleOf(const MavSystem::DigitalReport& report, const ButtonRoles& roles)
{
    if (report.isClosing())
        return PointRole::Closing;
    if (report.m_button_number < 0)
        return PointRole::Rejected;
    return roles.value(report.m_button_number, PointRole::Other);
}

} // namespace ReferenceHost
