// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "RatioTable.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

namespace {

class Collector : public benchmark::BenchmarkReporter
{
public:
    struct Row
    {
        std::vector<double> nanoseconds;
        double checksum = 0;
    };

    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            Row& row = rows[run.run_name.function_name];
            row.nanoseconds.push_back(1e9 * run.real_accumulated_time / double(run.iterations));
            row.checksum = run.counters.at("checksum");
        }
    }

    std::map<std::string, Row> rows;
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int runWithRatios(int argc, char** argv, const std::string& subject)
{
    std::vector<std::string> arguments(argv, argv + argc);
    arguments.insert(arguments.end(),
                     {"--benchmark_repetitions=5", "--benchmark_enable_random_interleaving=true",
                      "--benchmark_min_time=0.2"});
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    auto count = int(pointers.size());
    benchmark::Initialize(&count, pointers.data());

    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);

    const Collector::Row& reference = collector.rows.at(subject);
    const double base = median(reference.nanoseconds);
    bool same = true;
    std::printf("%-34s %14s %9s   %s\n", "", "median", "ratio", "checksum");
    for (const auto& [name, row] : collector.rows) {
        const double time = median(row.nanoseconds);
        std::printf("%-34s %11.1f ns %9.2f   %.17g\n", name.c_str(), time, time / base,
                    row.checksum);
        same = same && row.checksum == reference.checksum;
    }
    if (!same)
        std::fprintf(stderr, "the checksums differ\n");
    return same ? 0 : 1;
}
