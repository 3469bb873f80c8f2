#pragma once

namespace txqt
{

/// The gap after a column of a vertical label, as a part of the font's height.
inline double GapFactor(bool firstColumn, bool italic)
{
    if (firstColumn)
        return italic ? 0.3 : 0.2;
    return italic ? 0.2 : 0.05;
}

} // namespace txqt
