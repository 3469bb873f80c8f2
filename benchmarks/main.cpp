// Measures the plugin against direct calls, prints the table, and fails when a limit is broken.
//
//   txbench [--quick] [--repetitions=N] [--report=FILE] [--peers=FILE] [--styled=FILE] [--no-extras] [options of Google
//   Benchmark]
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>

#include <benchmark/benchmark.h>

#include "Canvas.h"
#include "Extras.h"
#include "Report.h"

namespace
{

constexpr int kRepetitions = 11;
constexpr int kLeastRepetitions = 9;
constexpr int kQuickPart = 5;

/// The value of an option such as --name=value; null when the arguments have none.
const char* Option(int argc, char** argv, const char* name)
{
    const std::size_t length = std::strlen(name);
    for (int i = 1; i < argc; ++i)
        if (std::strncmp(argv[i], name, length) == 0)
            return argv[i][length] == '=' ? argv[i] + length + 1 : argv[i] + length;
    return nullptr;
}

Scenes AllScenes(bool quick)
{
    Scenes scenes;
    AddPolygons(scenes);
    AddPolylines(scenes);
    AddShapes(scenes);
    AddTiles(scenes);
    // Before anything draws images of glyphs: outlines of the same face move by 1/64 of a pixel then.
    AddLabels(scenes);
    AddCairoLabels(scenes);
    AddMeasuring(scenes);
    AddMarkers(scenes);
    AddSelection(scenes);
    AddWorldMap(scenes);
    if (quick)
        for (Scene& scene : scenes)
            if (scene.items >= 1000)
                scene.items = std::max(scene.items / kQuickPart, 1);
    return scenes;
}

/// Each line: name, milliseconds, note, with tabs between.
std::vector<Peer> ReadPeers(const char* file)
{
    std::vector<Peer> peers;
    std::ifstream in(file ? file : "");
    for (std::string line; std::getline(in, line);)
    {
        std::istringstream fields(line);
        Peer peer;
        if (std::getline(fields, peer.name, '\t') && std::getline(fields, peer.drawing, '\t'))
        {
            std::getline(fields, peer.note, '\t');
            peers.push_back(peer);
        }
    }
    return peers;
}

} // namespace

int main(int argc, char** argv)
{
    if (const char* const worker = Option(argc, argv, "--worker"))
        return RunAsWorker(std::strcmp(worker, "direct") == 0, std::atoi(Option(argc, argv, "--pictures")));

    const bool quick = Option(argc, argv, "--quick");
    const bool extras = !Option(argc, argv, "--no-extras");
    const char* const wanted = Option(argc, argv, "--repetitions");
    const char* const file = Option(argc, argv, "--report");

    Report report;
    report.quick = quick;
    report.repetitions = std::max(wanted  ? std::atoi(wanted)
                                  : quick ? kLeastRepetitions
                                          : kRepetitions,
                                  kLeastRepetitions);
    report.peers = ReadPeers(Option(argc, argv, "--peers"));
    report.styled = ReadPeers(Option(argc, argv, "--styled"));
    const Scenes scenes = AllScenes(quick);
    report.scenes = &scenes;

    Engine();
    Register(scenes, report.repetitions);
    benchmark::Initialize(&argc, argv);
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    report.times = &collector.All();
    if (extras)
    {
        report.map = MeasureMapCosts();
        report.memory = MeasureLabelMemory(quick ? 40000 : 200000);
        report.scaling = MeasureScaling(quick ? 3 : 10);
    }

    report.Write(std::cout);
    if (file)
    {
        std::ofstream out(file);
        report.Write(out);
    }
    std::cout << std::flush;
    return report.WriteFailures(std::cerr) == 0 ? 0 : 1;
}
