#include "Stopwatch.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;

double microsecondsOf(const std::function<void()>& operation) {
    const auto start = Clock::now();
    operation();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

}  // namespace

std::vector<Timing> timeInTurn(const std::vector<std::function<void()>>& operations,
                               double seconds) {
    for (const auto& operation : operations) {
        operation();  // the first run pays for caches and pages
    }
    std::vector<std::vector<double>> runs(operations.size());
    const auto end = Clock::now() + std::chrono::duration<double>(
                                        seconds * static_cast<double>(operations.size()));
    do {
        for (std::size_t i = 0; i < operations.size(); ++i) {
            runs[i].push_back(microsecondsOf(operations[i]));
        }
    } while (Clock::now() < end);

    std::vector<Timing> timings;
    timings.reserve(runs.size());
    for (std::vector<double>& times : runs) {
        timings.push_back(timingOf(std::move(times)));
    }
    return timings;
}

Timing timingOf(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times[times.size() * 99 / 100]};
}

void use(const void* result) {
    asm volatile("" : : "g"(result) : "memory");
}

void print(const std::string& what, const Timing& timing) {
    std::printf("  %-52s %9.1f us   (slowest in a hundred %9.1f us)\n", what.c_str(), timing.median,
                timing.slowestInAHundred);
}

void printWithin(const Timing& timing, double aim) {
    std::printf("  the slowest in a hundred took %.0f %% of %.0f ms: %s\n\n",
                100 * timing.slowestInAHundred / aim, aim / 1000,
                timing.slowestInAHundred <= aim ? "met" : "MISSED");
}

void printRatio(const Timing& ours, const Timing& plain, double aim) {
    const double ratio = plain.median / ours.median;
    std::printf("  %.1f times as fast", ratio);
    if (aim > 0) {
        std::printf("; the aim is %.0f: %s", aim, ratio >= aim ? "met" : "MISSED");
    }
    std::printf("\n\n");
}

}  // namespace bench
