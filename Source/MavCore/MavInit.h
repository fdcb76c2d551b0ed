// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavCoreExport.h"

#include <boost/function.hpp>

#include <vector>

namespace MavSystem {

/// The start-up registry: libraries register functions when they are loaded, and the host runs them
/// once.
///
/// Registration is safe before main() and before any QCoreApplication exists. Thread: registration
/// while a library is loaded, runOnce() on the main thread. Not thread-safe.
class MAVCORE_EXPORT MavInit
{
public:
    /// Stages run in ascending order. Libraries register their types in the first one.
    enum RunStage {
        STAGE_TYPES = 0,
        STAGE_APPLICATION = 1,
    };

    /// Returns the only registry of the process. It is created on first use and never null.
    static MavInit* instance();

    /// Keeps \a function until the next runOnce(). Within a stage, functions run in ascending \a
    /// order; those with equal \a order run in the order of their registration.
    void registerRunOnce(boost::function<void()> function, RunStage stage, int order);

    /// Runs the registered functions, stage by stage, and forgets them. Functions registered
    /// meanwhile wait for the next call. If a function throws, the exception is passed on and the
    /// remaining functions are dropped.
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
