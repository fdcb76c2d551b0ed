// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "MavCore/MavInit.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace MavSystem {

MavInit* MavInit::instance()
{
    static MavInit registry;
    return &registry;
}

void MavInit::registerRunOnce(boost::function<void()> function, RunStage stage, int order)
{
    m_entries.push_back({stage, order, std::move(function)});
}

void MavInit::runOnce()
{
    std::vector<Entry> entries;
    entries.swap(m_entries);
    std::stable_sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
        return std::tie(left.stage, left.order) < std::tie(right.stage, right.order);
    });
    for (const Entry& entry : entries)
        entry.function();
}

} // namespace MavSystem
