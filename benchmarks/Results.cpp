#include "Results.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>

#include "AggCanvas.h"
#include "CpuTime.h"

namespace
{

// Short turns: what disturbs the machine then disturbs both.
constexpr int kTurns = 24;
// Those that compete for information only need not be as exact.
constexpr int kPeerRepetitions = 3;

double Quantile(std::vector<double> values, double part)
{
    if (values.empty())
        return 0.0;
    std::sort(values.begin(), values.end());
    const double at = part * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(at);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    return values[below] + (at - static_cast<double>(below)) * (values[above] - values[below]);
}

double Time(const Way& way, int first, int last)
{
    const double start = CpuSeconds();
    way(first, last);
    return CpuSeconds() - start;
}

struct Repetition
{
    double ours = 0.0;
    double direct = 0.0;
    double cairo = 0.0;
    double agg = 0.0;
};

/// Draws the scene once in every way, in turns. Who begins changes from turn to turn.
Repetition Repeat(const Contenders& scene, int items, int number)
{
    Repetition seconds;
    scene.begin(number);
    const bool withPeers = number >= 0 && number < kPeerRepetitions;
    for (int turn = 0; turn < kTurns; ++turn)
    {
        const int first = static_cast<int>(static_cast<long>(items) * turn / kTurns);
        const int last = static_cast<int>(static_cast<long>(items) * (turn + 1) / kTurns);
        if (scene.turn)
            scene.turn(turn);
        if ((turn + number) % 2 == 0)
        {
            seconds.ours += Time(scene.ours, first, last);
            seconds.direct += Time(scene.direct, first, last);
        }
        else
        {
            seconds.direct += Time(scene.direct, first, last);
            seconds.ours += Time(scene.ours, first, last);
        }
        if (withPeers && scene.cairo)
            seconds.cairo += Time(scene.cairo, first, last);
        if (withPeers && scene.agg && AggCanvas::IsThere())
            seconds.agg += Time(scene.agg, first, last);
    }
    return seconds;
}

/// The scene whose turn it is: one at a time, for the sake of memory.
struct Current
{
    const Scene* scene = nullptr;
    Contenders contenders;
    int repetition = 0;

    static Current& Of(const Scene& wanted)
    {
        static Current current;
        if (current.scene != &wanted)
        {
            current = Current();
            current.scene = &wanted;
            current.contenders = wanted.make();
            // The first time fonts are loaded and memory is fetched.
            Repeat(current.contenders, wanted.items, -1);
        }
        return current;
    }
};

void Measure(benchmark::State& state, const Scene& scene)
{
    Current& current = Current::Of(scene);
    for (auto _ : state)
    {
        const Repetition seconds = Repeat(current.contenders, scene.items, current.repetition++);
        state.SetIterationTime(seconds.ours);
        state.counters["ours"] = seconds.ours;
        state.counters["direct"] = seconds.direct;
        state.counters["cairo"] = seconds.cairo;
        state.counters["agg"] = seconds.agg;
        state.counters["differing"] = static_cast<double>(current.contenders.differing());
    }
}

void Add(std::vector<double>& values, double value)
{
    if (value > 0.0)
        values.push_back(value);
}

/// How many times as long as direct, in those repetitions in which both took part.
double RatioTo(const std::vector<double>& direct, const std::vector<double>& peer)
{
    std::vector<double> ratios;
    for (std::size_t i = 0; i < peer.size(); ++i)
        ratios.push_back(peer[i] / direct[i]);
    return Median(ratios);
}

} // namespace

double Median(std::vector<double> values) { return Quantile(std::move(values), 0.5); }

Summary::Summary(const Times& times) : ours(Median(times.ours)), direct(Median(times.direct))
{
    std::vector<double> ratios;
    for (std::size_t i = 0; i < times.ours.size(); ++i)
        ratios.push_back(times.ours[i] / times.direct[i]);
    ratio = Median(ratios);
    low = Quantile(ratios, 0.25);
    high = Quantile(ratios, 0.75);
    std::vector<double> deviations;
    for (const double one : ratios)
        deviations.push_back(std::abs(one - ratio));
    // The deviation that a normal distribution of that median deviation has, and that of its medians.
    const double deviation = 1.4826 * Median(deviations);
    margin = 2.0 * 1.2533 * deviation / std::sqrt(static_cast<double>(ratios.size()));
    cairo = RatioTo(times.direct, times.cairo);
    agg = RatioTo(times.direct, times.agg);
}

std::string BenchmarkName(const Scene& scene) { return std::string(scene.subject) + ": " + scene.name; }

void Register(const Scenes& scenes, int repetitions)
{
    for (const Scene& scene : scenes)
        benchmark::RegisterBenchmark(BenchmarkName(scene).c_str(),
                                     [&scene](benchmark::State& state) { Measure(state, scene); })
            ->Iterations(1)
            ->Repetitions(repetitions)
            ->UseManualTime();
}

void Collector::ReportRuns(const std::vector<Run>& runs)
{
    std::string name;
    for (const Run& run : runs)
    {
        if (run.run_type != Run::RT_Iteration)
            continue;
        name = run.run_name.function_name;
        Times& scene = times[name];
        const auto value = [&run](const char* counter) { return run.counters.at(counter).value; };
        Add(scene.ours, value("ours"));
        Add(scene.direct, value("direct"));
        Add(scene.cairo, value("cairo"));
        Add(scene.agg, value("agg"));
        scene.differing = std::max(scene.differing, static_cast<long>(value("differing")));
    }
    if (!name.empty())
        std::cerr << name << std::endl;
}
