#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "Scene.h"

/// The times of the repetitions of a scene, in seconds of computing.
struct Times
{
    std::vector<double> ours, direct, cairo, agg;
    long differing = 0;
};

double Median(std::vector<double> values);

/// What the repetitions of a scene come to.
struct Summary
{
    explicit Summary(const Times& times);

    double ratio;  ///< The median of the ratios of each repetition.
    double low;    ///< The lower quartile.
    double high;   ///< The upper quartile.
    double margin; ///< What noise can make of the median: two standard errors.
    double ours;   ///< The median in seconds.
    double direct;
    double cairo = 0.0; ///< As a ratio to direct; 0 when it did not compete.
    double agg = 0.0;

    /// A noisy run must not pass for its noise.
    static constexpr double kLargestMargin = 0.01;
    bool Breaks(const Limit& limit) const
    {
        return limit.ratio > 0.0 && ratio - std::min(margin, kLargestMargin) > limit.ratio;
    }
};

/// Makes a benchmark of each scene. @param repetitions how often each is measured.
void Register(const Scenes& scenes, int repetitions);

/// Collects the times by the names of the benchmarks, and says how far it is.
class Collector : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    const std::map<std::string, Times>& All() const { return times; }

private:
    std::map<std::string, Times> times;
};

/// The name of a scene's benchmark.
std::string BenchmarkName(const Scene& scene);
