#pragma once

#include <chrono>
#include <cstdint>

namespace txmap
{

/// Says on standard error how far a run is: a line that changes on a terminal, else a new line now and then.
class TileProgress
{
public:
    /// @param total the tiles of this run. @param quiet says nothing.
    TileProgress(std::uint64_t total, bool quiet);

    /// Counts tiles. @param drawn false for those that were there.
    void Add(std::uint64_t tiles, bool drawn);
    /// Says something if it is time to.
    void Tell();
    /// Says how it ended. @param failed tiles that could not be drawn.
    void Finish(std::uint64_t failed);
    /// Makes room for another line on a terminal.
    void Clear() const;

private:
    using Clock = std::chrono::steady_clock;

    std::uint64_t total;
    bool quiet;
    bool isTerminal;
    std::uint64_t done = 0;
    std::uint64_t drawn = 0;
    Clock::time_point start;
    Clock::time_point last;
};

} // namespace txmap
