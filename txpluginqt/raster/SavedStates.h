#pragma once

class QPainter;

namespace txqt
{

/// How many states are on the stack of an active painter, whoever has saved them.
int SavedStates(QPainter& painter);

} // namespace txqt
