// The memory of the label cache, and what belongs to a map besides drawing.
#include <algorithm>
#include <cstdio>
#include <fstream>

#include <malloc.h>
#include <unistd.h>

#include <QImage>

#include "Canvas.h"
#include "Countries.h"
#include "CpuTime.h"
#include "Extras.h"
#include "NaiveLabels.h"

using namespace TZObjects;

namespace
{

std::size_t Allocated()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::size_t Resident()
{
    std::size_t pages = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

std::size_t Growth(std::size_t now, std::size_t before) { return now > before ? now - before : 0; }

} // namespace

LabelMemory MeasureLabelMemory(int labels)
{
    TXGraphicsEngineManager& manager = *TXGraphicsEngineManager::instance("");
    LabelMemory memory;
    memory.labels = labels;
    memory.limit = manager.LabelCacheSize();

    Canvas canvas(256, 64);
    LabelLook look;
    look.haloWidth = 1;
    canvas.Surface().SelectFont(MakeFont(look));
    const auto draw = [&](int number)
    {
        canvas.Surface().DrawOutlineString(4.0, 20.0, 4.0, 20.0, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft,
                                           DistinctName(number).text, look.fill, 0.0, 0.0, 1.0);
    };
    // Fonts are loaded, and nothing is kept.
    manager.SetLabelCacheSize(0);
    for (int i = 0; i < 100; ++i)
        draw(i);
    manager.SetLabelCacheSize(memory.limit);
    malloc_trim(0);
    const std::size_t allocatedBefore = Allocated();
    const std::size_t residentBefore = Resident();
    constexpr int kFirst = 1 << 24;
    for (int i = 0; i < labels; ++i)
    {
        draw(kFirst + i);
        if (i % 500 != 0 && i + 1 != labels)
            continue;
        memory.allocated = std::max(memory.allocated, Growth(Allocated(), allocatedBefore));
        memory.resident = std::max(memory.resident, Growth(Resident(), residentBefore));
    }
    return memory;
}

MapCosts MeasureMapCosts()
{
    MapCosts costs;
    double start = CpuSeconds();
    const std::vector<Country> countries = ReadCountries("countries-10m.json", 2048, 1024);
    costs.reading = CpuSeconds() - start;

    Canvas canvas(2048, 1024);
    for (const Country& country : countries)
        canvas.Surface().PolyPolygon(country.points.data(), country.counts.data(), country.Rings());
    const TXRefPtr<TXImage> image = canvas.Surface().GetImage();
    const std::string path = "world-" + std::to_string(getpid()) + ".png";
    start = CpuSeconds();
    canvas.Surface().Save(TXString(path.c_str()));
    costs.encodingOurs = CpuSeconds() - start;
    start = CpuSeconds();
    static_cast<const QImage*>(image->GetInternalObject())->save(QString::fromStdString(path));
    costs.encodingDirect = CpuSeconds() - start;
    std::remove(path.c_str());
    return costs;
}
