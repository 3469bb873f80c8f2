#include <txgraphics/TXGraphics.h>

#include <limits>

namespace TZObjects
{
namespace
{

/// Truncates toward zero; NaN gives 0 and what is out of range saturates, where a plain conversion is undefined.
int Truncated(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double largest = std::numeric_limits<int>::max();
    if (value != value)
        return 0;
    if (value <= lowest)
        return std::numeric_limits<int>::min();
    if (value >= largest)
        return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

} // namespace

TXGraphics::TXGraphics() = default;
TXGraphics::~TXGraphics() = default;

void TXGraphics::SetTextHorizAlign(int align) { textHorizAlign = align; }
void TXGraphics::SetTextVertAlign(int align) { textVertAlign = align; }
int TXGraphics::GetTextHorizAlign() const { return textHorizAlign; }
int TXGraphics::GetTextVertAlign() const { return textVertAlign; }
void TXGraphics::SetBackGoundColor(const TXColor& color) { backgroundColor = color; }
TXColor TXGraphics::GetBackGoundColor() { return backgroundColor; }

TXPoint TXGraphics::SetWindowOrg(TXPoint origin) { return SetWindowOrg(Truncated(origin.x), Truncated(origin.y)); }

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
