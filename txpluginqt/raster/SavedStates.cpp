#include <txpluginqt/raster/SavedStates.h>

// A host may save states on the painter itself, or through another surface, and Qt does not tell how many there are.
#include <private/qpainter_p.h>

namespace txqt
{

int SavedStates(QPainter& painter)
{
    // The first is the current state.
    return QPainterPrivate::get(&painter)->states.size() - 1;
}

} // namespace txqt
