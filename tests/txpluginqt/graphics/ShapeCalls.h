#pragma once

#include <functional>
#include <string>
#include <vector>

#include <txgraphics/txgraphics.h>

/// A call of one operation with ordinary arguments.
struct ShapeCall
{
    std::string name;
    std::function<bool(TZObjects::TXGraphics&)> draw;
};

/// One call of every shape operation that returns whether it has drawn.
const std::vector<ShapeCall>& ShapeCalls();

/// Makes all of these calls, and draws a path.
void DrawEverything(TZObjects::TXGraphics& surface);

/// Calls every operation of a surface's state and selection, with ordinary arguments.
void ChangeEverything(TZObjects::TXGraphics& surface);
