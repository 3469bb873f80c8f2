#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// What the label cache takes while many labels are drawn that are all distinct.
struct LabelMemory
{
    int labels = 0;
    std::size_t limit = 0;     ///< The manager's setting.
    std::size_t allocated = 0; ///< The most bytes that were allocated beyond those before.
    std::size_t resident = 0;  ///< The most bytes by which the process grew.
};

LabelMemory MeasureLabelMemory(int labels);

/// How pictures get drawn by several workers at once, each with a surface of its own.
struct Scaling
{
    std::string workers;
    double picturesPerSecond = 0.0;
    double cpuPerPicture = 0.0; ///< In seconds.
};

/// @param pictures how many each worker draws.
std::vector<Scaling> MeasureScaling(int pictures);
/// The program started as a worker of its own: prints what it measured.
int RunAsWorker(bool direct, int pictures);

/// What belongs to a map, but is not drawing.
struct MapCosts
{
    double reading = 0.0; ///< The file, in seconds.
    double encodingOurs = 0.0;
    double encodingDirect = 0.0;
};

MapCosts MeasureMapCosts();
