#pragma once

namespace txqt
{

/// Qt's fonts and images need an application object. A host that runs Qt has one; for all others these see to it.

/// Logs that the graphics engine is there, with an application object that lasts as long as the log line. Nothing where
/// an application object exists.
void AnnounceEngine();

/// Makes the process-wide application object, which lasts until the process ends. Nothing where one exists.
void EnsureApplication();

} // namespace txqt
