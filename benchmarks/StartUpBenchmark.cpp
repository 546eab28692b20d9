#include <benchmark/benchmark.h>
#include <cstdlib>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>

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

/// Iterations are whole processes; the time reported is their CPU time.
void measure(benchmark::State& state, char const* program)
{
    run(program); // makes the sample's file and warms the disk cache
    double peak = 0;
    for ([[maybe_unused]] auto const _ : state) {
        auto const cost = run(program);
        state.SetIterationTime(cost.cpuSeconds);
        peak = std::max(peak, cost.peakMebibytes);
    }
    state.counters["peak_MiB"] = peak;
}
}

BENCHMARK_CAPTURE(measure, empty_window, EMPTY_WINDOW)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(40);
BENCHMARK_CAPTURE(measure, sample_dashboard, SAMPLE_DASHBOARD)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(40);
