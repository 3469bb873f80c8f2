#include "Report.h"

#include <fstream>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <thread>

#include <QtGlobal>

#include <cairo.h>
#include <sys/utsname.h>

namespace
{

std::string Number(double value, int digits)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(digits) << value;
    return text.str();
}

std::string MebiBytes(std::size_t bytes) { return Number(static_cast<double>(bytes) / (1 << 20), 1) + " MiB"; }

std::string Ratio(double ratio) { return ratio > 0.0 ? Number(ratio, ratio < 0.1 ? 3 : 2) : std::string("–"); }

std::string ValueOf(const char* file, const std::string& key)
{
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);)
        if (line.rfind(key, 0) == 0)
        {
            std::string value = line.substr(line.find_first_of(":=") + 1);
            value.erase(0, value.find_first_not_of(" \t\""));
            return value.substr(0, value.find_last_not_of('"') + 1);
        }
    return "unknown";
}

std::string Machine()
{
    utsname system{};
    uname(&system);
    return ValueOf("/proc/cpuinfo", "model name") + ", " + std::to_string(std::thread::hardware_concurrency()) +
           " cores, Linux " + system.release + ", " + ValueOf("/etc/os-release", "PRETTY_NAME");
}

std::string LimitText(const Limit& limit)
{
    if (limit.ratio <= 0.0)
        return "–";
    const std::string text = "≤ " + Number(limit.ratio, 2);
    return limit.ratio < 1.0 ? text + " (" + Number(1.0 / limit.ratio, 1) + " times as fast)" : text;
}

const char* const kIntroduction = R"(# Performance

Written by `scripts/bench`; do not edit.

## How to read it

- **Ratio** is the time of this system divided by the time of the direct calls: 1.00 is the same, 0.50 twice as fast,
  1.03 three percent slower. Cairo and AGG are given as ratios to the same direct calls, and are there for information.
- **Ours** loads the plugin at run time and draws through the interface. **Direct** is what a programmer writes with
  `QPainter`, with the same pen, brush and hints, into a twin picture; for labels through cairo, with cairo. Both begin
  with what a map renderer has, points and texts, and direct keeps nothing from one call to the next: it makes a
  `QPainterPath` of a country's rings each time, and sets the font of a symbol each time.
- At the end of each repetition both pictures are compared: **pixels** is how many differ. A scene in which any differ
  is void.
- Both draw in short turns, ours, direct, ours, direct, in one process and on one thread. Times are of computing (CPU
  time of the thread), so that other programs do not count. Each repetition gives one ratio; the table has their median
  and, as **spread**, their quartiles.
- A limit counts as broken when the median is beyond it by more than the **margin**: two standard errors of the median,
  2 × 1.2533 × 1.4826 × (median absolute deviation) / √repetitions, but 0.01 at the most.
- Positions are fractions of pixels, random with fixed seeds. Pictures are 1024 × 1024 pixels, 32 bits premultiplied,
  antialiased.
- Selecting pens, brushes and fonts has no limit: it takes less than a tenth of a microsecond longer than Qt's setters,
  and what is selected is drawn with many times.
- **–** stands where no limit holds, or where nobody else competes.

## The limits

| what | ratio |
|---|---|
| what the rasteriser draws | at most the number in its row |
| every other drawing operation | at most 1.03 |
| characters of a symbol font | at most 1.05 |
| labels drawn or measured for the first time | at most 1.02 |
| labels measured again | at most 0.50, that is 2 times as fast |
| tiles scaled fast | at most 0.77, that is 1.3 times as fast |
| memory of kept labels | at most what the setting says |
)";

} // namespace

void Report::Write(std::ostream& out) const
{
    out << kIntroduction << "\n## This run\n\n"
        << "- Machine: " << Machine() << "\n- Qt " << qVersion() << ", cairo " << cairo_version_string()
        << (TX_BENCH_AGG_VERSION[0] ? ", AGG " TX_BENCH_AGG_VERSION : "") << ", compiler " << TX_BENCH_COMPILER
        << "\n- " << repetitions << " repetitions" << (quick ? " of a fifth of the items (quick)" : "") << "\n";
    WriteScenes(out);
    WriteOthers(out);
}

void Report::WriteScenes(std::ostream& out) const
{
    std::string subject;
    for (const Scene& scene : *scenes)
    {
        const auto found = times->find(BenchmarkName(scene));
        if (found == times->end())
            continue;
        if (subject != scene.subject)
        {
            subject = scene.subject;
            out << "\n### " << subject
                << "\n\n| scene | items | direct, µs each | ours, µs each | ratio | spread | margin | limit | pixels | "
                   "cairo | AGG |\n|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n";
        }
        const Summary s(found->second);
        const double perItem = 1e6 / scene.items;
        out << "| " << scene.name << " | " << scene.items << " | " << Number(s.direct * perItem, 2) << " | "
            << Number(s.ours * perItem, 2) << " | " << (s.Breaks(scene.limit) ? "**" : "") << Number(s.ratio, 3)
            << (s.Breaks(scene.limit) ? "**" : "") << " | " << Number(s.low, 3) << " to " << Number(s.high, 3) << " | "
            << Number(s.margin, 3) << " | " << LimitText(scene.limit) << " | " << found->second.differing << " | "
            << Ratio(s.cairo) << " | " << Ratio(s.agg) << " |\n";
    }
}

void Report::WriteOthers(std::ostream& out) const
{
    if (map.reading > 0.0)
        out << "\nReading and encoding are apart: reading the countries takes " << Number(map.reading * 1e3, 0)
            << " ms, encoding the map as PNG " << Number(map.encodingOurs * 1e3, 0) << " ms (direct "
            << Number(map.encodingDirect * 1e3, 0) << " ms).\n";
    if (!peers.empty())
    {
        out << "\n| other renderers, the same countries and names | drawing, ms | |\n|---|--:|---|\n";
        for (const Peer& peer : peers)
            out << "| " << peer.name << " | " << peer.drawing << " | " << peer.note << " |\n";
    }
    if (!styled.empty())
    {
        out << "\n### Countries from a style\n\nCountries 1:10 million out of a file of GeoJSON, 2048 x 1024 pixels of "
               "Web\n"
               "Mercator at zoom 2, filled by an attribute and outlined 1.2 pixels wide. The least of several runs of "
               "whole\n"
               "programs in turns, by the clock.\n\n| renderer | reading, ms | drawing, ms |\n|---|--:|--:|\n";
        for (const Peer& peer : styled)
            out << "| " << peer.name << " | " << peer.note << " | " << peer.drawing << " |\n";
    }
    if (memory.labels > 0)
        out << "\n### Memory of kept labels\n\nWhile " << memory.labels
            << " labels were drawn that are all distinct, with room for " << MebiBytes(memory.limit)
            << " (the default), at most " << MebiBytes(memory.allocated)
            << " more were allocated than before, and the process grew by at most " << MebiBytes(memory.resident)
            << ".\n";
    if (scaling.empty())
        return;
    out << "\n### Several surfaces at once\n\nPictures of 2000 polygons and 400 labels, each worker with a surface of "
           "its own. Pictures a second depend on\nwhat else the machine does; the time of computing does so less.\n\n"
           "| workers | pictures a second | computing, ms a picture |\n|---|--:|--:|\n";
    for (const Scaling& row : scaling)
        out << "| " << row.workers << " | " << Number(row.picturesPerSecond, 1) << " | "
            << Number(row.cpuPerPicture * 1e3, 2) << " |\n";
}

int Report::WriteFailures(std::ostream& out) const
{
    int failures = 0;
    for (const Scene& scene : *scenes)
    {
        const auto found = times->find(BenchmarkName(scene));
        if (found == times->end())
            continue;
        const Summary s(found->second);
        if (found->second.differing != 0)
        {
            out << "VOID: " << BenchmarkName(scene) << ": " << found->second.differing << " pixels or sums differ\n";
            ++failures;
        }
        if (s.Breaks(scene.limit))
        {
            out << "BROKEN: " << BenchmarkName(scene) << ": ratio " << Number(s.ratio, 3) << " ± "
                << Number(s.margin, 3) << ", limit " << Number(scene.limit.ratio, 3) << '\n';
            ++failures;
        }
    }
    if (memory.allocated > memory.limit)
    {
        out << "BROKEN: kept labels take " << MebiBytes(memory.allocated) << ", limit " << MebiBytes(memory.limit)
            << '\n';
        ++failures;
    }
    return failures;
}
