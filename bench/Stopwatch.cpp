#include "Stopwatch.h"

#include <algorithm>
#include <array>
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

void printGoal(const std::string& what, const std::string& goal, bool isMet) {
    std::printf("    %s; the goal is %s: %s\n", what.c_str(), goal.c_str(),
                isMet ? "met" : "MISSED");
}

void printGoal(const std::string& what, const std::string& goal, double timesTheGoal) {
    std::array<char, 32> ratio{};
    std::snprintf(ratio.data(), ratio.size(), " (%.2f times that)", timesTheGoal);
    printGoal(what, goal + ratio.data(), timesTheGoal <= 1);
}

void printWithin(const std::string& what, const Timing& timing, double goal) {
    print(what, timing);
    const std::string milliseconds = std::to_string(static_cast<int>(goal) / 1000);
    printGoal(what + ", the slowest in a hundred", milliseconds + " ms",
              timing.slowestInAHundred / goal);
}

void printRatio(const Timing& ours, const Timing& plain) {
    std::printf("    %.1f times as fast\n\n", plain.median / ours.median);
}

void printRatio(const std::string& what, const Timing& ours, const Timing& plain, double goal) {
    const std::string times = std::to_string(static_cast<int>(goal));
    printGoal(what, times + " times as fast as the plain way", plain.median / ours.median >= goal);
    printRatio(ours, plain);
}

}  // namespace bench
