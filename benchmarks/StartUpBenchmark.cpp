#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdlib>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace {

struct Cost
{
    double cpuSeconds;
    double peakMebibytes;
};

double seconds(timeval const& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

Cost run(char const* program)
{
    std::string name = program;
    char* arguments[] = {name.data(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, program, nullptr, nullptr, arguments, environ) != 0) {
        throw std::runtime_error("can't start " + name);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error(name + " failed");
    }
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) / 1024.0};
}

/// What a program cost so far.
struct Costs
{
    void add(Cost const& cost)
    {
        cpuSeconds.push_back(cost.cpuSeconds);
        peakMebibytes = std::max(peakMebibytes, cost.peakMebibytes);
    }

    double medianMilliseconds()
    {
        auto const middle = cpuSeconds.begin() + static_cast<std::ptrdiff_t>(cpuSeconds.size() / 2);
        std::ranges::nth_element(cpuSeconds, middle);
        return 1e3 * *middle;
    }

    std::vector<double> cpuSeconds;
    double peakMebibytes = 0;
};

/// Iterations are whole processes; the time reported is the CPU time of the sample's. The empty window takes its turn
/// before each, since only the two together tell on a processor whose speed varies.
void start(benchmark::State& state)
{
    run(EMPTY_WINDOW);
    run(SAMPLE_DASHBOARD); // makes the sample's file and warms the disk cache
    Costs empty;
    Costs sample;
    for ([[maybe_unused]] auto const _ : state) {
        empty.add(run(EMPTY_WINDOW));
        sample.add(run(SAMPLE_DASHBOARD));
        state.SetIterationTime(sample.cpuSeconds.back());
    }
    state.counters["empty_ms"] = empty.medianMilliseconds();
    state.counters["empty_MiB"] = empty.peakMebibytes;
    state.counters["sample_ms"] = sample.medianMilliseconds();
    state.counters["sample_MiB"] = sample.peakMebibytes;
    state.counters["times"] = sample.medianMilliseconds() / empty.medianMilliseconds();
}
}

BENCHMARK(start)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(50);
