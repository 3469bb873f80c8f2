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
} // namespace TZObjects

namespace txmap
{

/// What a map is drawn on: a surface of the picture's size, and the engine that pens and brushes come from.
class Canvas
{
public:
    /// @param engine where the surface comes from; it must outlive the canvas.
    /// @param view what the picture shows.
    /// @throw Failure with `ExitCode::Drawing` when there is no such surface.
    Canvas(TZObjects::TXGraphicsEngine& engine, const View& view);

    TZObjects::TXGraphicsEngine& Engine() const { return engine; }
    TZObjects::TXGraphics& Surface() const { return *surface; }
    /// What the style calls a pixel, in pixels of this picture.
    double Unit() const { return unit; }
    /// A pen for a line of the style. @throw Failure with `ExitCode::Drawing`.
    TZObjects::TXRefPtr<TZObjects::TXPen> Pen(const Stroke& stroke) const;
    /// Selects such a pen. @throw Failure with `ExitCode::Drawing`.
    void Use(const Stroke& stroke);
    /// Writes the picture to a file; the suffix names the format. @return false when it cannot be written.
    bool Save(const std::string& path);

private:
    TZObjects::TXGraphicsEngine& engine;
    double unit;
    TZObjects::TXRefPtr<TZObjects::TXGraphics> surface;
};

} // namespace txmap
