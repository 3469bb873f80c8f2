#include <txgraphics/TXGraphics.h>

namespace TZObjects
{

TXGraphics::TXGraphics() = default;
TXGraphics::~TXGraphics() = default;

bool TXGraphics::Line(TXPoint from, TXPoint to) { return Line(from.x, from.y, to.x, to.y); }

bool TXGraphics::PolyPolyline(const TXPoint* points, const int* counts, int parts)
{
    if (!points || !counts || parts < 1)
        return false;
    bool drawn = true;
    for (int i = 0; i < parts; ++i)
    {
        if (counts[i] < 1)
            continue;
        drawn = Polyline(points, counts[i]) && drawn;
        points += counts[i];
    }
    return drawn;
}

bool TXGraphics::Rectangle(const TXRect& rect) { return Rectangle(rect.left, rect.top, rect.Width(), rect.Height()); }

bool TXGraphics::Ellipse(const TXRect& rect, int angle, bool fill)
{
    return Ellipse((rect.left + rect.right) * 0.5, (rect.top + rect.bottom) * 0.5, rect.Width(), rect.Height(), angle,
                   fill);
}

bool TXGraphics::Arc(const TXRect& rect, double start, double span)
{
    return Arc(rect.left, rect.top, rect.Width(), rect.Height(), start, span);
}

bool TXGraphics::Pie(const TXRect& rect, double start, double span)
{
    return Pie(rect.left, rect.top, rect.Width(), rect.Height(), start, span);
}

bool TXGraphics::VectorMarker(const TXPoint& anchor, double scaleX, double scaleY, double angle, const TXPoint* points,
                              int count, bool closed)
{
    return VectorMarker(anchor.x, anchor.y, scaleX, scaleY, angle, points, count, closed);
}

bool TXGraphics::FontMarker(const TXPoint& center, double width, double height, double angle, TXString fontName,
                            short character)
{
    return FontMarker(center.x, center.y, width, height, angle, fontName, character);
}

bool TXGraphics::StretchBlt(const TXRect& dst, const TXGraphics* source, const TXRect& srcRect)
{
    if (!source)
        return false;
    // Reading the image changes nothing in the source; GetImage is not const because its siblings are not.
    const TXRefPtr<TXImage> image = const_cast<TXGraphics*>(source)->GetImage();
    return image && DrawImage(dst, image.get(), srcRect, 1.0);
}

} // namespace TZObjects
