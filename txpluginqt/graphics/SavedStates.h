#pragma once

class QPainter;

/// How many states are on the stack of an active painter, whoever has saved them.
int SavedStates(QPainter& painter);
