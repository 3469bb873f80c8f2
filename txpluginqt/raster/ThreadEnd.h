#pragma once

namespace txqt
{

/// True once the thread's objects are being destroyed: a host may still draw, as from a static destructor, and then the
/// rasteriser's buffers are gone.
inline thread_local bool rasterBuffersAreGone = false;

/// Says so when it goes.
struct ThreadEndMark
{
    ~ThreadEndMark() { rasterBuffersAreGone = true; }
};

} // namespace txqt
