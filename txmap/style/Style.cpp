#include <txmap/style/Style.h>

namespace txmap
{

Style AtlasStyle()
{
    Style style;
    style.paper = {247, 244, 237, 255};
    style.oceanAtPoles = {159, 197, 219, 255};
    style.oceanAtEquator = {186, 215, 230, 255};
    style.shore = {{{189, 217, 231, 255}, 13.0}, {{202, 225, 236, 255}, 8.0}, {{217, 234, 241, 255}, 4.0}};
    style.noCategory = {243, 244, 242, 255};
    style.categories = {
        {201, 214, 171, 255}, // sage
        {240, 225, 181, 255}, // sand
        {241, 204, 164, 255}, // apricot
        {228, 186, 176, 255}, // rose
        {207, 190, 212, 255}, // mauve
        {182, 211, 194, 255}, // mint
        {225, 197, 131, 255}, // ochre
    };
    style.outline = {{118, 102, 92, 150}, 1.0};
    style.border = {{104, 88, 80, 220}, 1.0};
    style.lake = {189, 217, 231, 255};
    style.lakeShore = {{112, 158, 186, 210}, 1.0};
    style.river = {{112, 160, 192, 200}, 1.0};
    style.graticule = {{74, 106, 130, 70}, 1.0};
    style.graticuleDashes = {4.0, 4.0};
    style.placeFill = {120, 58, 52, 255};
    style.placeRing = {{255, 252, 246, 230}, 1.2};
    style.placeRadius = 1.6;
    style.labels.size = 13.0;
    style.labels.smallest = 0.77;
    style.labels.largest = 1.7;
    style.labels.placeSize = 0.69;
    style.labels.spacing = 0.12;
    style.labels.country = {98, 52, 36, 255};
    style.labels.place = {48, 48, 54, 255};
    style.labels.countryHalo = {1.5, {253, 249, 239, 255}};
    style.labels.placeHalo = {1.5, {253, 249, 239, 255}};
    style.frame = {{98, 84, 74, 255}, 2.4};
    style.overRaster = {{255, 250, 240, 110}, 2.6};
    style.arrow = {{66, 56, 50, 255}, {255, 253, 247, 255}, {255, 252, 244, 190}};
    style.panel = {255, 253, 247, 225};
    return style;
}

} // namespace txmap
