// Contact sheets of the drawing operations: shapes, their styles, markers, images and clipping, a picture for each.
// Usage: gallery-operations FOLDER [SHEET]...
#include <algorithm>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include <txgraphics/txgraphics.h>

#include "gallery/Cells.h"
#include "gallery/Scenery.h"
#include "gallery/Sheet.h"

using namespace gallery;

namespace
{

constexpr int kColumns = 5;
constexpr int kCardWidth = kWidth + 24;
constexpr int kCardHeight = kHeight + 46;

struct Group
{
    const char* name;
    std::vector<Cells (*)()> cells;
};

const Group kGroups[] = {{"shapes", {PolygonCells, FigureCells}},
                         {"styles", {StyleCells}},
                         {"markers", {MarkerCells}},
                         {"images", {ImageCells}},
                         {"clipping", {ClippingCells}}};

bool DrawSheet(TXGraphicsEngine& engine, const Group& group, const std::string& path)
{
    Cells cells;
    for (const auto make : group.cells)
    {
        const Cells more = make();
        cells.insert(cells.end(), more.begin(), more.end());
    }
    const int rows = (static_cast<int>(cells.size()) + kColumns - 1) / kColumns;
    Sheet sheet(engine, {kColumns, rows, kCardWidth, kCardHeight, TXColor::WHITE_});
    UsePen(sheet.Surface(), kInk);
    for (const Cell& cell : cells)
    {
        const TXPoint corner = sheet.AddCard(cell.caption);
        const TXRefPtr<TXGraphics> picture = NewSurface(kWidth, kHeight);
        picture->ClearWithColor(kBackground);
        cell.draw(*picture);
        picture->BiltTo(&sheet.Surface(), static_cast<int>(corner.x) + 12, static_cast<int>(corner.y) + 34);
    }
    return sheet.Save(path.c_str());
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty())
    {
        std::cerr << "usage: gallery-operations FOLDER [SHEET]..." << std::endl;
        return 2;
    }
    const std::vector<std::string> wanted(arguments.begin() + 1, arguments.end());
    for (const std::string& name : wanted)
    {
        if (std::none_of(std::begin(kGroups), std::end(kGroups),
                         [&](const Group& group) { return group.name == name; }))
        {
            std::cerr << "no sheet \"" << name << "\": there are shapes, styles, markers, images and clipping"
                      << std::endl;
            return 2;
        }
    }
    const TXRefPtr<TXGraphicsEngine> engine = LoadEngine();
    if (!engine)
        return 3;

    for (const Group& group : kGroups)
    {
        const bool chosen = wanted.empty() || std::find(wanted.begin(), wanted.end(), group.name) != wanted.end();
        if (chosen && !DrawSheet(*engine, group, arguments.front() + "/" + group.name + ".png"))
            return 1;
    }
    return 0;
}
