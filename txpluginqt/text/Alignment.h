#pragma once

namespace txqt
{

/// How far a line, or a column, starts from the edge of its block when @p room is left over: not at all for alignment
/// 1, by all of it for 3, by half of it for every other value.
inline double AlignedOffset(int align, double room)
{
    switch (align)
    {
    case 1:
        return 0.0;
    case 3:
        return room;
    default:
        return room * 0.5;
    }
}

} // namespace txqt
