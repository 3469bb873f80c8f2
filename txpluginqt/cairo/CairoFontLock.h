#pragma once

#include <mutex>

namespace txqt
{

/// Held while cairo looks a font up, uses it or lets it go, on whichever surface: cairo keeps at most ten font files
/// open, and closes one that another thread has just begun to use. Nothing that can wait may be called meanwhile.
[[nodiscard]] std::unique_lock<std::mutex> LockCairoFonts();

} // namespace txqt
