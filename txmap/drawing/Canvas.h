#pragma once

#include <string>

#include <txbase/TXRefPtr.h>
#include <txgraphics/TXGraphics.h>
#include <txgraphics/TXPen.h>
#include <txmap/map/View.h>
#include <txmap/style/Style.h>

namespace TZObjects
{

class TXGraphicsEngine;

/// What a map is drawn on: a surface of the picture's size, and the engine that pens and brushes come from.
class Canvas
{
public:
    /// @param engine where the surface comes from; it must outlive the canvas.
    /// @param view what the picture shows.
    /// @throw Failure with `ExitCode::Drawing` when there is no such surface.
    Canvas(TXGraphicsEngine& engine, const View& view);

    TXGraphicsEngine& Engine() const { return engine; }
    TXGraphics& Surface() const { return *surface; }
    /// What the style calls a pixel, in pixels of this picture.
    double Unit() const { return unit; }
    /// A pen for a line of the style. @throw Failure with `ExitCode::Drawing`.
    TXRefPtr<TXPen> Pen(const Stroke& stroke) const;
    /// Selects such a pen. @throw Failure with `ExitCode::Drawing`.
    void Use(const Stroke& stroke);
    /// Writes the picture to a file; the suffix names the format. @return false when it cannot be written.
    bool Save(const std::string& path);

private:
    TXGraphicsEngine& engine;
    double unit;
    TXRefPtr<TXGraphics> surface;
};

} // namespace TZObjects
