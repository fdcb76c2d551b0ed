// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavCoreExport.h"

#include <boost/function.hpp>

#include <vector>

namespace MavSystem {

/// The start-up registry: libraries register work when they are loaded, the host runs it once.
///
/// Registration is safe before main() and before any QCoreApplication exists.
/// Thread: registration while a library is loaded, runOnce() on the main thread; no locks.
class MAVCORE_EXPORT MavInit
{
public:
    /// Stages run in ascending order. Libraries register their types in the first one.
    enum RunStage {
        STAGE_TYPES = 0,
        STAGE_APPLICATION = 1,
    };

    /// Returns the one registry of the process; it is created on first use and never null.
    static MavInit* instance();

    /// Keeps \a function until the next runOnce(). Within a stage functions run by ascending
    /// \a order, equal orders in the sequence of their registration.
    void registerRunOnce(boost::function<void()> function, RunStage stage, int order);

    /// Runs what is registered, stage by stage, and forgets it. Functions registered meanwhile
    /// wait for the next call. An exception of a function passes through; the rest is then dropped.
    void runOnce();

private:
    struct Entry
    {
        RunStage stage;
        int order;
        boost::function<void()> function;
    };

    MavInit() = default;

    std::vector<Entry> m_entries;
};

} // namespace MavSystem
