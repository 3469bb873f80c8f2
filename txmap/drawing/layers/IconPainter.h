#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <txbase/TXPoint.h>
#include <txbase/TXRect.h>
#include <txmap/style/Color.h>
#include <txmap/symbols/IconShape.h>

namespace txmap
{

class MapCanvas;

/// How an icon is coloured that is a distance field; other pictures have their own colours.
struct IconInk
{
    Color color;
    Color haloColor{0.0, 0.0, 0.0, 0.0};
    double haloWidth = 0.0; ///< In logical pixels of the icon.
    double haloBlur = 0.0;
};

/// Draws pictures of sprites, turned and stretched. An icon that comes again is made once, for each quarter of a pixel
/// that its place may have. A picture that is neither turned nor stretched lies on whole pixels, as sharp as it is.
class IconPainter
{
public:
    /// The canvas must outlive the painter.
    explicit IconPainter(MapCanvas& canvas);
    ~IconPainter();

    /// @param at where the anchor lies. @param angle by which the icon is turned about it, in degrees, clockwise.
    /// @param scale pixels of the map for each logical one of the icon.
    void Draw(const IconShape& shape, const TZObjects::TXPoint& at, double angle, double scale, const IconInk& ink,
              double opacity);

private:
    struct Icon;

    const Icon& Find(const IconShape& shape, const TZObjects::TXPoint& part, double angle, double scale,
                     const IconInk& ink);
    void DrawPart(const Icon& icon, long left, long top, double opacity);

    MapCanvas& canvas;
    std::unordered_map<std::string, std::unique_ptr<Icon>> icons;
};

} // namespace txmap
