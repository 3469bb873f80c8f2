#pragma once

namespace txqt
{

/// True while Qt can measure and draw text: it crashes without a `QGuiApplication`, and a host may own less, or have
/// ended its own already.
bool QtTextIsAvailable();

} // namespace txqt
