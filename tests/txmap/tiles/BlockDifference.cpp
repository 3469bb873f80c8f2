#include <tests/txmap/tiles/BlockDifference.h>

#include <algorithm>
#include <cstdlib>

using txmap::BlockPixels;
using txmap::TileBlock;
using txmap::TilePixels;

Difference Compare(txmap::TileRenderer& renderer, const TileBlock& all, int side)
{
    const BlockPixels whole = renderer.Draw(all);
    const int width = renderer.TileSide();
    Difference difference;
    for (int top = 0; top < all.rows; top += side)
        for (int left = 0; left < all.columns; left += side)
        {
            const BlockPixels part = renderer.Draw({all.z, all.x + left, all.y + top, side, side});
            for (int row = 0; row < side; ++row)
                for (int column = 0; column < side; ++column)
                {
                    const TilePixels one = part.Tile(column, row);
                    const TilePixels other = whole.Tile(left + column, top + row);
                    for (std::size_t i = 0; i < one.rgba.size(); i += 4)
                    {
                        int most = 0;
                        for (std::size_t k = 0; k < 4; ++k)
                            most = std::max(most, std::abs(one.rgba[i + k] - other.rgba[i + k]));
                        difference.pixels += most > 0 ? 1 : 0;
                        difference.clear += most > 4 ? 1 : 0;
                        if (most > 4 && difference.where.size() < 2000)
                            difference.where +=
                                " " +
                                std::to_string((left + column) * width +
                                               static_cast<int>(i / 4 % static_cast<std::size_t>(width))) +
                                "," +
                                std::to_string((top + row) * width +
                                               static_cast<int>(i / 4 / static_cast<std::size_t>(width))) +
                                ":" + std::to_string(most);
                        difference.most = std::max(difference.most, most);
                    }
                }
        }
    return difference;
}
