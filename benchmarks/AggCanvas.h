#pragma once

#include <memory>

#include <QImage>

#include <txbase/TXPoint.h>

struct Look;

/// Draws with the Anti-Grain Geometry library into an image's pixels, where that library was found.
class AggCanvas
{
public:
    explicit AggCanvas(QImage& picture);
    ~AggCanvas();
    AggCanvas(const AggCanvas&) = delete;
    AggCanvas& operator=(const AggCanvas&) = delete;

    static bool IsThere();
    void Use(const Look& look);
    /// Fills and outlines rings.
    void Rings(const TZObjects::TXPoint* points, const int* counts, int rings);
    void Polyline(const TZObjects::TXPoint* points, int count);

private:
    struct Renderer;
    std::unique_ptr<Renderer> renderer;
};
